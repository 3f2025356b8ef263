// The questions that are asked of one rule and one start, in wall-clock times.
//
// The one place that decides how an answer is found: by a walk from a jumped start. Pure functions; any
// thread. An occurrence equal to the jumped start is passed over, and nothing before the start is an
// answer. COUNT is counted from the jumped start.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

#include "recurrence/DateIcal.h"
#include "recurrence/ParsedRule.h"

namespace dayward {

/// The first occurrence after the target.
std::optional<IcalTime> nextAfter(const std::shared_ptr<const ParsedRule>& rule, const IcalTime& start,
                                  const IcalTime& target);

/// The occurrences after the first time and not after the second, at most so many.
std::vector<IcalTime> occurrencesBetween(const std::shared_ptr<const ParsedRule>& rule, const IcalTime& start,
                                         const IcalTime& from, const IcalTime& to, std::size_t maxCount);

/// The last occurrence of a rule with UNTIL.
std::optional<IcalTime> lastOccurrence(const std::shared_ptr<const ParsedRule>& rule, const IcalTime& start);

}  // namespace dayward
