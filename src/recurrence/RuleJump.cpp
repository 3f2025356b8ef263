#include "recurrence/RuleJump.h"

#include <algorithm>

#include "platform/Calendar.h"

namespace dayward {

namespace {

using Frequency = ParsedRule::Frequency;
constexpr std::int64_t kSecondsPerWeek = 7 * 86400;

IcalTime movedByMonths(const IcalTime& time, std::int64_t months) {
    const std::int64_t total = time.year * 12LL + time.month - 1 + months;
    IcalTime moved = time;
    moved.year = static_cast<int>(total >= 0 ? total / 12 : (total - 11) / 12);
    moved.month = static_cast<int>(total - moved.year * 12LL) + 1;
    moved.day = std::min(time.day, Calendar::daysInMonth(moved.year, moved.month));
    return moved;
}

bool isMissingLeapDay(const IcalTime& time) {
    return time.month == 2 && time.day == 29 && !Calendar::isLeapYear(time.year);
}

}  // namespace

std::int64_t distanceInUnits(Frequency frequency, const IcalTime& from, const IcalTime& to, WholeWeeks wholeWeeks) {
    if (frequency == Frequency::monthly) return (to.year - from.year) * 12LL + to.month - from.month;
    if (frequency == Frequency::yearly) return to.year - from.year;
    const std::int64_t unit = secondsPerUnit(frequency);
    if (unit == 0) return 0;
    const std::int64_t seconds = secondsOf(to) - secondsOf(from);
    if (wholeWeeks == WholeWeeks::ignored && seconds % kSecondsPerWeek == 0) return 0;
    return seconds / unit;
}

std::int64_t distanceInIntervals(const ParsedRule& rule, const IcalTime& from, const IcalTime& to,
                                 WholeWeeks wholeWeeks) {
    if (rule.interval() == 0) return 0;
    return distanceInUnits(rule.frequency(), from, to, wholeWeeks) / rule.interval();
}

IcalTime movedByIntervals(const ParsedRule& rule, const IcalTime& time, std::int64_t intervals) {
    const std::int64_t units = intervals * rule.interval();
    switch (rule.frequency()) {
        case Frequency::none: return time;
        case Frequency::monthly: return movedByMonths(time, units);
        case Frequency::yearly: {
            IcalTime moved = time;
            moved.year = static_cast<int>(time.year + units);
            return moved;
        }
        default: return icalTimeOfSeconds(secondsOf(time) + units * secondsPerUnit(rule.frequency()));
    }
}

IcalTime jumpedStart(const ParsedRule& rule, const IcalTime& start, const IcalTime& target, WholeWeeks wholeWeeks) {
    std::int64_t intervals = -1;
    if (start < target) {
        const std::int64_t distance = distanceInIntervals(rule, start, target, wholeWeeks);
        if (distance < 3) return start;
        intervals = distance - 2;
    }
    IcalTime moved = movedByIntervals(rule, start, intervals);
    // Leap years come back within eight years, or within 400 in steps of whole centuries.
    for (int tries = 0; tries < 400 && isMissingLeapDay(moved); ++tries) {
        moved = movedByIntervals(rule, start, --intervals);
    }
    return moved;
}

}  // namespace dayward
