#include "recurrence/XELUpdater.h"

#include <algorithm>

#include "recurrence/XELCalendarAnniversary.h"
#include "recurrence/XELCalendarCustom.h"
#include "recurrence/XELCalendarStandard.h"
#include "recurrence/XELRRuleComponents.h"

namespace dayward {

namespace {

using DaysOfWeek = XELRRuleComponents::DaysOfWeek;

RuleFrequency frequencyOf(CalendarUnit unit) {
    switch (unit) {
        case CalendarUnit::year: return RuleFrequency::yearly;
        case CalendarUnit::month: return RuleFrequency::monthly;
        case CalendarUnit::week: return RuleFrequency::weekly;
        case CalendarUnit::day: return RuleFrequency::daily;
        case CalendarUnit::hour: return RuleFrequency::hourly;
        case CalendarUnit::minute: return RuleFrequency::minutely;
        case CalendarUnit::second: return RuleFrequency::secondly;
        default: return RuleFrequency::none;
    }
}

void setRepetition(XELRRuleComponents& components, const XDIDateInterval* interval) {
    const double value = interval == nullptr ? 0.0 : interval->getSingleValue();
    components.setFrequency(interval == nullptr ? RuleFrequency::none : frequencyOf(interval->getSingleUnit()));
    components.setInterval(value == value ? static_cast<std::int64_t>(std::clamp(value, -9e18, 9e18)) : 0);
}

void setStandard(XELRRuleComponents& components, const XELCalendarStandard& calendar) {
    setRepetition(components, calendar.repeatInterval().get());
    if (!calendar.daysOfWeek() || calendar.daysOfWeek()->empty()) return;
    DaysOfWeek days;
    for (const std::int64_t day : *calendar.daysOfWeek()) days.push_back(XELRecurrenceDayOfWeek::dayOfWeek(day));
    components.setDaysOfWeek(std::move(days));
}

/// Each weekday with each ordinal.
DaysOfWeek numberedDays(const XELCalendarCustom::Lists& lists) {
    static const XELCalendarBase::Numbers none;
    const auto& weekdays = lists.dayOfWeek ? *lists.dayOfWeek : none;
    const auto& ordinals = lists.dayOfWeekInMonth ? *lists.dayOfWeekInMonth : none;
    // Ordinals beyond these mean nothing, and two long lists would make far too many days.
    constexpr std::size_t mostDays = 1000;
    DaysOfWeek days;
    for (const std::int64_t weekday : weekdays) {
        if (ordinals.empty()) days.push_back(XELRecurrenceDayOfWeek::dayOfWeek(weekday));
        for (const std::int64_t ordinal : ordinals) {
            if (days.size() < mostDays) days.push_back(XELRecurrenceDayOfWeek::dayOfWeek(weekday, ordinal));
        }
    }
    return days;
}

RuleFrequency frequencyOf(const XELCalendarCustom::Lists& lists) {
    const auto isGiven = [](const auto& numbers) { return numbers && !numbers->empty(); };
    const bool hasMonths = isGiven(lists.months);
    const bool hasDaysOfMonth = isGiven(lists.dayOfMonth);
    if (isGiven(lists.dayOfWeek)) {
        const bool byMonth = isGiven(lists.dayOfWeekInMonth) || hasDaysOfMonth;
        if (!byMonth) return RuleFrequency::weekly;
        return hasMonths ? RuleFrequency::yearly : RuleFrequency::monthly;
    }
    if (hasDaysOfMonth) return hasMonths ? RuleFrequency::yearly : RuleFrequency::monthly;
    return hasMonths ? RuleFrequency::daily : RuleFrequency::none;
}

void setCustom(XELRRuleComponents& components, const XELCalendarCustom::Lists& lists) {
    components.setMonthsOfYear(lists.months);
    components.setDaysOfMonth(lists.dayOfMonth);
    const DaysOfWeek days = numberedDays(lists);
    if (!days.empty()) components.setDaysOfWeek(days);
    components.setFrequency(frequencyOf(lists));
}

}  // namespace

std::string XELUpdater::rruleFromDateInterval(const XDIDateInterval* interval) {
    XELRRuleComponents components;
    setRepetition(components, interval);
    return components.rfc2445String();
}

std::string XELUpdater::rruleFromCalendar(const XELCalendarBase* calendar) {
    XELRRuleComponents components;
    if (const auto* standard = dynamic_cast<const XELCalendarStandard*>(calendar)) {
        setStandard(components, *standard);
    } else if (const auto* custom = dynamic_cast<const XELCalendarCustom*>(calendar)) {
        setCustom(components, custom->lists());
    } else if (dynamic_cast<const XELCalendarAnniversary*>(calendar) != nullptr) {
        components.setFrequency(RuleFrequency::yearly);
    }
    return components.rfc2445String();
}

}  // namespace dayward
