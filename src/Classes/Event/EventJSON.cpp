#include "Classes/Event/EventJSON.h"

#include <cmath>

#include "Classes/Event/EventJSONValue.h"
#include "Classes/Other/Date/EventDateText.h"
#include "intervals/ISODate.h"
#include "platform/Environment.h"

namespace dayward {
namespace {

struct IntervalField {
    const char* name;
    double XDIDateInterval::*field;
};

constexpr IntervalField kIntervalFields[] = {
    {"year", &XDIDateInterval::year},     {"month", &XDIDateInterval::month}, {"week", &XDIDateInterval::week},
    {"day", &XDIDateInterval::day},       {"hour", &XDIDateInterval::hour},   {"minute", &XDIDateInterval::minute},
    {"second", &XDIDateInterval::second},
};

template <class T>
JSON orNull(const std::optional<T>& value) {
    return value ? JSON(*value) : JSON(nullptr);
}

/// Whole numbers as such; what is no number has no place in JSON.
JSON numberValue(double number) {
    if (!std::isfinite(number)) return nullptr;
    const bool whole = number == std::trunc(number) && std::abs(number) < 1e15;
    return whole ? JSON(static_cast<std::int64_t>(number)) : JSON(number);
}

JSON intervalValue(const XDIDateInterval& interval) {
    JSON value = JSON::object();
    for (const auto& [name, field] : kIntervalFields) {
        if (interval.*field != XDIDateInterval::kUnset) value[name] = numberValue(interval.*field);
    }
    return value;
}

JSON alertsValue(const HHEventAlerts& alerts) {
    JSON list = nullptr;
    if (alerts.list) {
        list = JSON::array();
        for (const auto& interval : *alerts.list) list.push_back(intervalValue(interval));
    }
    return {{"list", std::move(list)}, {"soundName", orNull(alerts.soundName)}};
}

JSON appearanceValue(const HHEventAppearance& appearance) {
    JSON value = {{"fontName", orNull(appearance.fontName)}, {"textColor", nullptr}};
    if (appearance.textColor) {
        value["textColor"] = appearance.textColor->hex();
        if (auto exact = exactColorJSONValue(*appearance.textColor)) value["textColorComponents"] = *std::move(exact);
    }
    return value;
}

JSON formatValue(const HHEventDateFormat& format) {
    return {{"units", format.units.mask()}, {"textStyle", static_cast<std::int64_t>(format.textStyle)}};
}

JSON secondsValue(Date date) {
    const double seconds = date.secondsSinceReference();
    return std::isfinite(seconds) ? JSON(seconds) : JSON(nullptr);
}

void addComputedFields(JSON& value, const HHEvent& event) {
    const auto next = event.nextDate();
    value["nextDate"] = next ? JSON(isoText(*next)) : JSON(nullptr);
    value["nextDateSeconds"] = next ? secondsValue(*next) : JSON(nullptr);
    value["isComing"] = event.isComing();
    value["title"] = event.titleToDate(next);
    value["dateText"] = next ? JSON(EventDateText::textFromDate(*next, EventDateTextAll)) : JSON(nullptr);
    value["countdown"] = orNull(event.intervalFormat().countdownToDate(next));
}

}  // namespace

JSON eventJSONValue(const HHEvent& event, const EventJSONOptions& options) {
    JSON value = {
        {"identifier", event.identifier()},
        {"name", orNull(event.name())},
        {"categoryKey", orNull(event.categoryKey())},
        {"date", isoText(event.date())},
        {"dateSeconds", secondsValue(event.date())},
        {"times", event.times()},
        {"rrule", orNull(event.rrule())},
        {"duration", event.duration() ? intervalValue(*event.duration()) : JSON(nullptr)},
        {"showAge", event.showAge()},
        {"intervalFormat", formatValue(event.intervalFormat())},
        {"alerts", alertsValue(event.alerts())},
        {"appearance", appearanceValue(event.appearance())},
        {"icon", pictureJSONValue(event.icon())},
        {"background", pictureJSONValue(event.background())},
        {"randomBackground", pictureJSONValue(event.randomBackground())},
        {"note", orNull(event.note())},
        {"version", event.version() ? JSON(event.version()->timeInterval().seconds()) : JSON(nullptr)},
        {"sourceInfo", objectJSONValue(event.sourceInfo())},
    };
    if (options.computedFields) addComputedFields(value, event);
    return value;
}

std::string eventJSON(const HHEvent& event, const EventJSONOptions& options) {
    return eventJSONValue(event, options).dump(-1, ' ', false, JSON::error_handler_t::replace);
}

}  // namespace dayward
