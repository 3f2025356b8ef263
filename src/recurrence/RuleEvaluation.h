// The questions that are asked of one rule and one start, in wall-clock times.
//
// The one place that decides how an answer is found: by a walk from a jumped start. An occurrence equal
// to the jumped start is passed over, and nothing before the start is an answer. COUNT is counted from
// the jumped start. One thread for each object.
#pragma once

#include <memory>
#include <optional>

#include "recurrence/DateIcal.h"
#include "recurrence/ParsedRule.h"
#include "recurrence/RuleJump.h"
#include "recurrence/RuleWalk.h"

namespace dayward {

/// A walk that begins near its target and gives answers only, in the order of the wall clock.
class RuleAnswers {
public:
    /// Jumps towards the target. Answers before `skipTo` may be left out.
    RuleAnswers(const std::shared_ptr<const ParsedRule>& rule, const IcalTime& start, const IcalTime& target,
                WholeWeeks wholeWeeks, const std::optional<IcalTime>& skipTo);
    /// For the answers after a time, which the caller still has to compare. The target differs from
    /// that time where the clock went forward shortly before it.
    static RuleAnswers after(const std::shared_ptr<const ParsedRule>& rule, const IcalTime& start,
                             const IcalTime& target, const IcalTime& time);

    std::optional<IcalTime> next();
    /// The first answer, where the jumped start counts too.
    std::optional<IcalTime> first();
    /// The end of the walk, where the jumped start counts too.
    std::optional<IcalTime> last();

private:
    IcalTime start_;
    std::optional<IcalTime> passedOver_;
    std::unique_ptr<RuleWalk> walk_;
};

/// The last occurrence of a rule with UNTIL.
std::optional<IcalTime> lastOccurrence(const std::shared_ptr<const ParsedRule>& rule, const IcalTime& start);

}  // namespace dayward
