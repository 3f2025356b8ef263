// The next occurrence of a rule without BY parts, by arithmetic instead of a walk.
//
// Times are on the wall clock, as seconds since 1970 (see secondsOf). The answer is the one of
// RuleAnswers::after, its jump, its clamped days and its counting from the jumped start included; a
// test compares it with libical's. Pure functions; any thread.
#pragma once

#include <cstdint>
#include <limits>

#include "recurrence/ParsedRule.h"

namespace dayward {

inline constexpr std::int64_t kNoOccurrence = std::numeric_limits<std::int64_t>::max();

/// Whether the rule consists of FREQ, INTERVAL, COUNT, WKST and an UNTIL that is a time of the calendar.
bool hasClosedForm(const ParsedRule& rule);

/// The first occurrence after the given time, or kNoOccurrence. The rule must have a closed form, and
/// the start lie in the years 0 to 2582.
std::int64_t closedOccurrenceAfter(const ParsedRule& rule, std::int64_t start, std::int64_t after);

}  // namespace dayward
