#include "recurrence/RuleWalk.h"

#include <algorithm>
#include <cstdlib>

#include "platform/Calendar.h"

namespace dayward {

namespace {

using Frequency = ParsedRule::Frequency;

bool isWalkable(const IcalTime& start) {
    return start.year >= 0 && start.year <= kLastRuleYear && start.month >= 1 && start.month <= 12 &&
           start.day >= 1 && start.day <= Calendar::daysInMonth(start.year, start.month);
}

/// The values and combinations that libical's iterator refuses.
bool isLegal(const ParsedRule& rule) {
    const auto within = [](const ParsedRule::Values& values, int limit) {
        return std::ranges::all_of(values, [limit](int value) { return std::abs(value) <= limit; });
    };
    const bool valuesFit = within(rule.months(), 12) && within(rule.days(), 53 * 8 + 7) &&
                           within(rule.daysOfMonth(), 31) && within(rule.daysOfYear(), 366) &&
                           within(rule.weeks(), 53) && within(rule.setPositions(), 366);
    const bool isYearly = rule.frequency() == Frequency::yearly;
    const bool hasWeeks = !rule.weeks().empty(), hasDaysOfMonth = !rule.daysOfMonth().empty();
    const bool weeksFit = !hasWeeks || (isYearly && !hasDaysOfMonth);
    const bool monthDaysFit = !hasDaysOfMonth || rule.frequency() != Frequency::weekly;
    const bool yearDaysFit = rule.daysOfYear().empty() || rule.frequency() < Frequency::daily ||
                             (isYearly && !hasWeeks && !hasDaysOfMonth && rule.months().empty());
    return valuesFit && weeksFit && monthDaysFit && yearDaysFit;
}

ParsedRule::Values valuesOr(const ParsedRule::Values& values, int fallback) {
    return values.empty() ? ParsedRule::Values{fallback} : values;
}

}  // namespace

std::vector<int> secondsWithinUnit(const ParsedRule& rule, const IcalTime& start) {
    const Frequency frequency = rule.frequency();
    const ParsedRule::Values none = {0};
    const auto hours = frequency <= Frequency::hourly ? none : valuesOr(rule.hours(), start.hour);
    const auto minutes = frequency <= Frequency::minutely ? none : valuesOr(rule.minutes(), start.minute);
    const auto seconds = frequency <= Frequency::secondly ? none : valuesOr(rule.seconds(), start.second);
    std::vector<int> result;
    result.reserve(hours.size() * minutes.size() * seconds.size());
    for (const int hour : hours) {
        for (const int minute : minutes) {
            for (const int second : seconds) result.push_back(hour * 3600 + minute * 60 + second);
        }
    }
    return result;
}

std::unique_ptr<RuleWalk> RuleWalk::from(std::shared_ptr<const ParsedRule> rule, const IcalTime& start,
                                         const std::optional<IcalTime>& skipTo) {
    if (!rule->canOccur() || !isWalkable(start) || !isLegal(*rule)) return nullptr;
    rule = ParsedRule::anchored(std::move(rule), start);
    if (rule->frequency() <= Frequency::daily) return makeStepWalk(std::move(rule), start, skipTo);
    return makeDayWalk(std::move(rule), start, skipTo);
}

}  // namespace dayward
