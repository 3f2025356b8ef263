#include "Classes/Interface/Edit/RRuleState.h"

#include <algorithm>
#include <cmath>

namespace dayward {

namespace {

bool isMonthlyOrYearly(RuleFrequency frequency) {
    return frequency == RuleFrequency::monthly || frequency == RuleFrequency::yearly;
}

std::vector<std::int64_t> numbersWithin(const std::optional<XELRRuleComponents::Numbers>& numbers, std::int64_t last,
                                        std::int64_t alsoAllowed = 0) {
    std::vector<std::int64_t> within;
    for (const std::int64_t number : numbers.value_or(XELRRuleComponents::Numbers())) {
        const bool fits = (number >= 1 && number <= last) || (alsoAllowed != 0 && number == alsoAllowed);
        if (fits && std::ranges::find(within, number) == within.end()) within.push_back(number);
    }
    return within;
}

std::optional<XELRRuleComponents::Numbers> presentNumbers(const std::vector<std::int64_t>& numbers) {
    return numbers.empty() ? std::nullopt : std::optional(numbers);
}

Date cutToMinutes(Date date) { return Date::sinceReference(std::floor(date.secondsSinceReference() / 60) * 60); }

}  // namespace

RRuleState RRuleState::ofRule(const std::optional<std::string>& rrule) {
    const XELRRuleComponents components = rrule ? XELRRuleComponents(*rrule) : XELRRuleComponents();
    RRuleState state;
    if (components.frequency() > RuleFrequency::secondly) state.frequency = components.frequency();
    state.interval = std::clamp<std::int64_t>(components.interval(), 1, kLastInterval);
    state.monthsOfYear = numbersWithin(components.monthsOfYear(), 12);
    state.daysOfMonth = numbersWithin(components.daysOfMonth(), 31, kLastDayOfMonth);
    for (const auto& day : components.daysOfWeek().value_or(XELRRuleComponents::DaysOfWeek())) state.take(day);
    state.until = components.until();
    return state;
}

void RRuleState::take(const XELRecurrenceDayOfWeek& day) {
    if (day.dayOfWeek() < 1 || day.dayOfWeek() > 7) return;
    const auto weekday = static_cast<std::size_t>(day.dayOfWeek() - 1);
    const std::int64_t number = day.weekNumber();
    if (number == 0) daysOfWeek[weekday] = true;
    if (number == -1) customDay = {true, kLastOrdinal, weekday};
    if (number >= 1 && number <= 5) customDay = {true, static_cast<std::size_t>(number - 1), weekday};
}

std::string RRuleState::rrule() const {
    XELRRuleComponents components;
    components.setFrequency(frequency);
    components.setInterval(interval);
    if (showsMonthsOfYear()) components.setMonthsOfYear(presentNumbers(monthsOfYear));
    if (showsDaysOfMonth()) components.setDaysOfMonth(presentNumbers(daysOfMonth));
    if (const auto day = showsCustomDay() ? customDayOfWeek() : std::nullopt) {
        components.setDaysOfWeek(XELRRuleComponents::DaysOfWeek{*day});
    }
    const auto chosen = chosenDays();
    if (showsDaysOfWeek() && !chosen.empty()) components.setDaysOfWeek(chosen);
    if (until) components.setUntil(cutToMinutes(*until));
    return components.rrule();
}

bool RRuleState::showsMonthsOfYear() const { return frequency == RuleFrequency::yearly || !monthsOfYear.empty(); }

bool RRuleState::showsDaysOfMonth() const { return isMonthlyOrYearly(frequency) || !daysOfMonth.empty(); }

bool RRuleState::showsDaysOfWeek() const {
    if (frequency == RuleFrequency::weekly) return true;
    return frequency < RuleFrequency::weekly && !chosenDays().empty();
}

bool RRuleState::showsCustomDay() const { return isMonthlyOrYearly(frequency); }

std::optional<XELRecurrenceDayOfWeek> RRuleState::customDayOfWeek() const {
    if (!customDay.on) return std::nullopt;
    const auto number = customDay.ordinal == kLastOrdinal ? -1 : static_cast<std::int64_t>(customDay.ordinal) + 1;
    return XELRecurrenceDayOfWeek::dayOfWeek(static_cast<std::int64_t>(customDay.weekday) + 1, number);
}

XELRRuleComponents::DaysOfWeek RRuleState::chosenDays() const {
    XELRRuleComponents::DaysOfWeek days;
    for (std::size_t index = 0; index < daysOfWeek.size(); ++index) {
        if (daysOfWeek[index]) days.push_back(XELRecurrenceDayOfWeek::dayOfWeek(static_cast<std::int64_t>(index) + 1));
    }
    return days;
}

}  // namespace dayward
