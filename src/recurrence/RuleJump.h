// Distances in a rule's own unit, and the jump that starts a walk near its target.
// Pure functions over wall-clock times; any thread.
#pragma once

#include <cstdint>

#include "recurrence/DateIcal.h"
#include "recurrence/ParsedRule.h"

namespace dayward {

/// Whether a distance of whole weeks counts. It does not where the published answers are counted
/// without the weeks field of a duration: there such a distance is 0.
enum class WholeWeeks { ignored, counted };

/// The length of a rule's unit; 0 for months, years and rules without a frequency.
constexpr std::int64_t secondsPerUnit(ParsedRule::Frequency frequency) {
    constexpr std::int64_t kSeconds[] = {1, 60, 3600, 86400, 7 * 86400, 0, 0, 0};
    return kSeconds[static_cast<std::size_t>(frequency)];
}

/// How many whole units of the rule's frequency lie from `from` to `to`, truncated toward zero.
std::int64_t distanceInUnits(ParsedRule::Frequency frequency, const IcalTime& from, const IcalTime& to,
                             WholeWeeks wholeWeeks);

/// The same in intervals of the rule, truncated; 0 where the interval is 0.
std::int64_t distanceInIntervals(const ParsedRule& rule, const IcalTime& from, const IcalTime& to,
                                 WholeWeeks wholeWeeks);

/// The time moved by that many intervals. Months take the last day of a shorter month; years keep the
/// day, so that 29 February may come to a year that has none.
IcalTime movedByIntervals(const ParsedRule& rule, const IcalTime& time, std::int64_t intervals);

/// Where a walk towards the target starts: two to three intervals before it, or one interval before
/// the start where the start is not before the target. A yearly move of 29 February goes back by
/// further intervals until the year has that day.
IcalTime jumpedStart(const ParsedRule& rule, const IcalTime& start, const IcalTime& target, WholeWeeks wholeWeeks);

}  // namespace dayward
