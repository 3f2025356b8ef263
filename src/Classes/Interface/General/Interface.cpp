#include "Classes/Interface/General/Interface.h"

#include <algorithm>
#include <array>

#include "Classes/Other/Date/HHEventDateFormat.h"
#include "intervals/UnitAgreement.h"
#include "intervals/XDIFormatter.h"
#include "intervals/XELDateTime.h"
#include "platform/DateFormatter.h"
#include "platform/Environment.h"
#include "platform/Strings.h"
#include "recurrence/XELFormatter.h"
#include "resources/XELAudioManager.h"

namespace dayward {

namespace {

using Style = DateFormatter::Style;

constexpr std::array kUnits{
    std::pair{CalendarUnit::year, "Years"},     std::pair{CalendarUnit::month, "Months"},
    std::pair{CalendarUnit::week, "Weeks"},     std::pair{CalendarUnit::day, "Days"},
    std::pair{CalendarUnit::hour, "Hours"},     std::pair{CalendarUnit::minute, "Minutes"},
    std::pair{CalendarUnit::second, "Seconds"},
};

std::string dateText(Date date, Style dateStyle, Style timeStyle) {
    const Environment& environment = Environment::current();
    return DateFormatter::withStyles(dateStyle, timeStyle, environment.locale(), environment.timeZone())
        .stringFromDate(date);
}

template <class Values, class Text>
std::string joined(const Values& values, Text text) {
    std::string all;
    for (const auto& value : values) all += (all.empty() ? "" : ", ") + text(value);
    return all;
}

std::string intervalText(const XDIDateInterval& interval) {
    return unitsInAgreement(XDIFormatter::stringForDateInterval(interval, TextStyle::full), UnitRole::alone);
}

std::string lastPathComponentWithoutExtension(std::string_view path) {
    path.remove_prefix(std::min(path.rfind('/') + 1, path.size()));
    const auto point = path.rfind('.');
    return std::string(point == std::string_view::npos || point == 0 ? path : path.substr(0, point));
}

}  // namespace

std::string Interface::descriptionTime(std::int64_t minutes) {
    return dateText(dateWithTimeAsMinutes(minutes), Style::none, Style::short_);
}

std::string Interface::descriptionTimes(const std::vector<std::int64_t>& times) {
    return joined(times, descriptionTime);
}

std::string Interface::descriptionDate(Date date, const std::vector<std::int64_t>& times) {
    if (times.size() == 1) return dateText(dateWithTimesAsMinutes(date, times[0]), Style::medium, Style::short_);
    const std::string day = dateText(date, Style::medium, Style::none);
    return times.empty() ? day : day + "\n(" + descriptionTimes(times) + ")";
}

std::string Interface::descriptionDuration(const std::optional<XDIDateInterval>& duration) {
    return duration ? intervalText(*duration) : localized("None");
}

std::string Interface::descriptionRRule(const std::optional<std::string>& rrule) {
    const auto text = rrule ? XELFormatter().stringForRRule(*rrule) : std::nullopt;
    return text ? unitsInAgreement(*text, UnitRole::period) : localized("Never");
}

std::string Interface::descriptionIntervalFormat(const HHEventDateFormat& format) {
    std::string text;
    for (const auto& [unit, name] : kUnits) {
        if (format.units.contains(unit)) text += (text.empty() ? "" : ", ") + localized(name);
    }
    if (format.textStyle == TextStyle::full) return text;
    return text + " (" + nameOfTextStyle(format.textStyle) + ")";
}

std::string Interface::descriptionAlert(const XDIDateInterval& alert) {
    return alert.getSingleValue() == 0 ? localized("On Event") : intervalText(alert);
}

std::string Interface::descriptionAlerts(const std::vector<XDIDateInterval>& alerts) {
    return alerts.empty() ? localized("None") : joined(alerts, descriptionAlert);
}

std::string Interface::descriptionSound(const std::optional<std::string>& soundName) {
    if (isDefaultSound(soundName)) return localized("Default");
    if (*soundName == kSilentSound) return localized("No Sound");
    std::string title = lastPathComponentWithoutExtension(*soundName);
    std::ranges::replace(title, '_', ' ');
    return title;
}

bool Interface::isDefaultSound(const std::optional<std::string>& soundName) {
    return !soundName || *soundName == kDefaultSound || *soundName == XELAudioManager::kDefaultSoundName;
}

std::string Interface::nameOfUnit(CalendarUnit unit) {
    const auto found = std::ranges::find(kUnits, unit, [](const auto& known) { return known.first; });
    return found != kUnits.end() ? localized(found->second) : std::string();
}

std::string Interface::nameOfTextStyle(TextStyle style) {
    switch (style) {
        case TextStyle::symbol: return localized("Symbol");
        case TextStyle::short_: return localized("Abbreviation");
        default: return localized("Full");
    }
}

}  // namespace dayward
