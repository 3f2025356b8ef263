#include "cli/EventOptions.h"

#include <CLI/CLI.hpp>

#include "Classes/Category/EventCategory.h"
#include "Classes/Event/HHEvent.h"
#include "cli/Arguments.h"
#include "cli/CategoryLookup.h"
#include "cli/EventLook.h"
#include "platform/Environment.h"

namespace dayward {

namespace {

constexpr const char* kNone = "none";

bool takesAway(const std::optional<std::string>& text) { return text && *text == kNone; }

}  // namespace

void EventOptions::declare(CLI::App& command) {
    command.add_option("--date", date, "The day of the first occurrence");
    command.add_option("--time", times, "A time of day, HH:MM; may be given more than once")->allow_extra_args(false);
    command.add_option("--repeat", repeat, "A rule, or daily, weekly, monthly, yearly, never");
    command.add_option("--duration", duration, "How long it lasts, \"2 hours\"");
    command.add_option("--alert", alerts, "\"1 day before\", \"on event\", \"2 hours after\"; may be given more than once")
        ->allow_extra_args(false);
    command.add_option("--units", units, "Units of the countdown, day,hour");
    command.add_option("--style", style, "Words of the countdown: number, symbol, short, full");
    command.add_option("--category", category, "A category by its name or key");
    command.add_option("--icon", icon, "The name of an icon, or a picture file");
    command.add_option("--background", background, "The name of a background, a picture file, or #RRGGBB");
    command.add_option("--font", font, "The font's name");
    command.add_option("--text-color", textColor, "#RRGGBB");
    command.add_flag("--show-age", showAge, "Show the count of years");
    command.add_option("--note", note, "A note");
}

Result<> EventOptions::apply(HHEvent& event) const {
    if (name) event.setName(*name);
    TRY_VOID(applyDates(event));
    TRY_VOID(applyAlerts(event));
    TRY_VOID(applyFormat(event));
    TRY_VOID(applyCategory(event));
    TRY_VOID(applyLook(event));
    if (showAge) event.setShowAge(true);
    if (hideAge) event.setShowAge(false);
    if (note) event.setNote(takesAway(note) ? std::nullopt : note);
    return {};
}

Result<> EventOptions::applyDates(HHEvent& event) const {
    if (date) {
        const Date moment = TRY(parseMoment(*date));
        const auto calendar = Environment::current().calendar();
        const Calendar::Fields fields = calendar->fields(moment);
        event.setDate(calendar->date({fields.year, fields.month, fields.day, 0, 0, 0}));
        const std::int64_t minutes = fields.hour * 60 + fields.minute;
        if (minutes != 0 && times.empty()) event.setTimes({minutes});
    }
    if (!times.empty()) {
        std::vector<std::int64_t> minutes;
        for (const std::string& time : times) minutes.push_back(TRY(parseTimeOfDay(time)));
        std::ranges::sort(minutes);
        minutes.erase(std::ranges::unique(minutes).begin(), minutes.end());
        event.setTimes(std::move(minutes));
    }
    if (repeat) event.setRrule(TRY(parseRepeat(*repeat)));
    if (takesAway(duration)) {
        event.setDuration(std::nullopt);
    } else if (duration) {
        event.setDuration(TRY(parseInterval(*duration)));
    }
    return {};
}

Result<> EventOptions::applyAlerts(HHEvent& event) const {
    if (alerts.empty()) return {};
    std::vector<XDIDateInterval> list;
    for (const std::string& alert : alerts) {
        if (alert != kNone) list.push_back(TRY(parseAlert(alert)));
    }
    event.alerts().list = std::move(list);
    return {};
}

Result<> EventOptions::applyFormat(HHEvent& event) const {
    if (units) event.intervalFormat().units = TRY(parseUnits(*units));
    if (style) event.intervalFormat().textStyle = TRY(parseTextStyle(*style));
    return {};
}

Result<> EventOptions::applyCategory(HHEvent& event) const {
    if (!category) return {};
    const auto found = TRY(categoryNamed(*category));
    event.setCategoryKey(found->key);
    const auto& backgrounds = found->eventBackgroundTpl;
    event.setRandomBackground(backgrounds && backgrounds->isRandom() ? backgrounds->getPicture() : nullptr);
    return {};
}

Result<> EventOptions::applyLook(HHEvent& event) const {
    if (icon) event.setIcon(takesAway(icon) ? nullptr : TRY(iconNamed(*icon)));
    if (background) event.setBackground(takesAway(background) ? nullptr : TRY(backgroundNamed(*background)));
    if (font) event.appearance().fontName = takesAway(font) ? std::nullopt : font;
    if (takesAway(textColor)) {
        event.appearance().textColor = std::nullopt;
    } else if (textColor) {
        event.appearance().textColor = TRY(parseColor(*textColor));
    }
    return {};
}

}  // namespace dayward
