// The occurrences of a parsed rule, one by one, from a start on the wall clock.
//
// The answers are libical's, its reading of each part included; but libical tries every period of a
// rule, and every second of one that seldom or never matches, where a walk here goes on at once. The
// Gregorian rule holds for all years. A walk ends at the rule's end, after the year 2582, or where an
// occurrence is too far for a bounded search.
// One thread for each walk.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "recurrence/DateIcal.h"
#include "recurrence/ParsedRule.h"

namespace dayward {

/// The last year in which libical lets anything occur.
inline constexpr int kLastRuleYear = 2582;

class RuleWalk {
public:
    virtual ~RuleWalk() = default;

    /// The next occurrence, or nothing for good.
    virtual std::optional<IcalTime> next() = 0;

    /// Walks to the end; the last occurrence of a rule with UNTIL.
    virtual std::optional<IcalTime> last() {
        std::optional<IcalTime> result;
        while (const auto time = next()) result = time;
        return result;
    }

    /// A walk from the start, which occurs only where the rule says so. Occurrences before `skipTo`
    /// may be left out, so far as COUNT allows. Null where the rule or the start cannot be walked.
    static std::unique_ptr<RuleWalk> from(std::shared_ptr<const ParsedRule> rule, const IcalTime& start,
                                          const std::optional<IcalTime>& skipTo = std::nullopt);
};

// The two kinds, and what they share; for RuleWalk::from.

std::unique_ptr<RuleWalk> makeStepWalk(std::shared_ptr<const ParsedRule> rule, const IcalTime& start,
                                       const std::optional<IcalTime>& skipTo);
std::unique_ptr<RuleWalk> makeDayWalk(std::shared_ptr<const ParsedRule> rule, const IcalTime& start,
                                      const std::optional<IcalTime>& skipTo);

/// The seconds after the start of a unit (a day, an hour, a minute) at which a rule of that unit
/// occurs, in the order of its lists; a missing list means the start's own field.
std::vector<int> secondsWithinUnit(const ParsedRule& rule, const IcalTime& start);

}  // namespace dayward
