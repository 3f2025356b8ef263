#include <cmath>

#include "Classes/Event/EventJSON.h"
#include "Classes/Event/EventJSONFields.h"
#include "Classes/Event/EventJSONValue.h"
#include "intervals/ISODate.h"
#include "platform/Environment.h"

namespace dayward {
namespace {

struct IntervalField {
    const char* name;
    CalendarUnit unit;
};

constexpr IntervalField kIntervalFields[] = {
    {"year", CalendarUnit::year},     {"month", CalendarUnit::month}, {"week", CalendarUnit::week},
    {"day", CalendarUnit::day},       {"hour", CalendarUnit::hour},   {"minute", CalendarUnit::minute},
    {"second", CalendarUnit::second},
};

Result<XDIDateInterval> intervalOf(const JSON& value, const std::string& field) {
    const auto fields = TRY(JSONFields::of(value, field));
    XDIDateInterval interval;
    for (const auto& [name, unit] : kIntervalFields) {
        if (const auto number = TRY(fields.number(name))) interval.setValue(*number, unit);
    }
    return interval;
}

Result<HHEventAlerts> alertsOf(const JSON& value) {
    const auto fields = TRY(JSONFields::of(value, "alerts"));
    HHEventAlerts alerts;
    alerts.soundName = TRY(fields.text("soundName"));
    const JSON* list = fields.value("list");
    if (!list) return alerts;
    if (!list->is_array()) return jsonFault(fields.path("list"), "must be a list of intervals");
    alerts.list.emplace();
    for (const auto& item : *list) alerts.list->push_back(TRY(intervalOf(item, fields.path("list"))));
    return alerts;
}

Result<HHEventAppearance> appearanceOf(const JSON& value) {
    const auto fields = TRY(JSONFields::of(value, "appearance"));
    HHEventAppearance appearance;
    appearance.fontName = TRY(fields.text("fontName"));
    appearance.textColor = TRY(fields.color("textColor", "textColorComponents"));
    return appearance;
}

/// What an archive's reader would stop at is refused here.
Result<HHEventDateFormat> formatOf(const JSON& value) {
    const auto fields = TRY(JSONFields::of(value, "intervalFormat"));
    HHEventDateFormat format;
    if (const auto units = TRY(fields.integer("units"))) {
        if (*units < 0) return jsonFault(fields.path("units"), "must not be negative");
        format.units = CalendarUnits::fromMask(static_cast<std::uint64_t>(*units));
    }
    if (const auto style = TRY(fields.integer("textStyle"))) {
        if (*style < 0 || *style > static_cast<std::int64_t>(kLastTextStyle)) {
            return jsonFault(fields.path("textStyle"), "must be 0, 1, 2 or 3");
        }
        format.textStyle = static_cast<TextStyle>(*style);
    }
    return format;
}

Result<std::optional<Date>> dateOf(const JSONFields& fields) {
    if (const auto seconds = TRY(fields.number("dateSeconds"))) return Date::sinceReference(*seconds);
    const auto text = TRY(fields.text("date"));
    if (!text) return std::nullopt;
    const auto date = dateFromISOText(*text);
    if (!date) return jsonFault("date", "must be a date such as 2027-03-14T09:00:00");
    return date;
}

Result<> readPlainFields(HHEvent& event, const JSONFields& fields) {
    event.setName(TRY(fields.text("name")));
    event.setCategoryKey(TRY(fields.text("categoryKey")));
    if (const auto date = TRY(dateOf(fields))) event.setDate(*date);
    if (auto times = TRY(fields.integers("times"))) event.setTimes(*std::move(times));
    event.setRrule(TRY(fields.text("rrule")));
    event.setShowAge(TRY(fields.boolean("showAge")).value_or(false));
    event.setNote(TRY(fields.text("note")));
    if (const auto version = TRY(fields.number("version"))) event.setVersion(CCSyncItemVersion(TimeInterval(*version)));
    return {};
}

Result<> readRecords(HHEvent& event, const JSONFields& fields) {
    if (const JSON* value = fields.value("duration")) event.setDuration(TRY(intervalOf(*value, "duration")));
    if (const JSON* value = fields.value("intervalFormat")) event.setIntervalFormat(TRY(formatOf(*value)));
    if (const JSON* value = fields.value("alerts")) event.setAlerts(TRY(alertsOf(*value)));
    if (const JSON* value = fields.value("appearance")) event.setAppearance(TRY(appearanceOf(*value)));
    if (const JSON* value = fields.value("sourceInfo")) {
        event.setSourceInfo(TRY(objectFromJSONValue(*value, "sourceInfo")));
    }
    return {};
}

Result<> readPictures(HHEvent& event, const JSONFields& fields) {
    const auto& key = event.identifier();
    if (const JSON* value = fields.value("icon")) event.setIcon(TRY(iconFromJSONValue(*value, "icon", key)));
    if (const JSON* value = fields.value("background")) {
        event.setBackground(TRY(backgroundFromJSONValue(*value, "background", key)));
    }
    if (const JSON* value = fields.value("randomBackground")) {
        event.setRandomBackground(TRY(backgroundFromJSONValue(*value, "randomBackground", key)));
    }
    return {};
}

}  // namespace

Result<std::shared_ptr<HHEvent>> eventFromJSONValue(const JSON& value) {
    const auto fields = TRY(JSONFields::of(value, ""));
    auto identifier = TRY(fields.text("identifier"));
    auto event = identifier ? std::make_shared<HHEvent>(*std::move(identifier)) : std::make_shared<HHEvent>();
    TRY_VOID(readPlainFields(*event, fields));
    TRY_VOID(readRecords(*event, fields));
    TRY_VOID(readPictures(*event, fields));
    return event;
}

Result<std::shared_ptr<HHEvent>> eventFromJSON(std::string_view text) {
    const auto value = JSON::parse(text, nullptr, /*allow_exceptions=*/false);
    if (value.is_discarded()) return jsonFault("", "the text is no JSON");
    return eventFromJSONValue(value);
}

}  // namespace dayward
