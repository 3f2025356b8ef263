// The occurrences of a rule as instants: every one once, ascending, strictly after a given instant.
//
// Rules are walked on the wall clock, which is no straight line: a time that the clock skips is
// answered later by the gap's length, among or behind later times, and one that it shows twice means
// its first pass, also where the given instant lies in the second. One thread for each walk.
#pragma once

#include <deque>
#include <memory>
#include <optional>

#include "platform/Calendar.h"
#include "platform/Date.h"
#include "recurrence/RuleEvaluation.h"

namespace dayward {

/// Whether the clock went forward so shortly before the instant that it answers a skipped time too.
bool answersSkippedTime(Date date, const Calendar& calendar);

/// The first occurrence after the instant, on a short road where the clock does not change nearby. Both
/// dates must have an IcalTime (see hasIcalTime).
std::optional<Date> firstInstantAfter(const std::shared_ptr<const ParsedRule>& rule, Date startDate, Date after,
                                      const std::shared_ptr<const Calendar>& calendar);

class InstantWalk {
public:
    /// Both dates must have an IcalTime (see hasIcalTime).
    InstantWalk(const std::shared_ptr<const ParsedRule>& rule, Date startDate, Date after,
                std::shared_ptr<const Calendar> calendar);

    std::optional<Date> next();

private:
    struct Occurrence {
        Date instant;
        bool isSkipped;  ///< by the clock
    };

    std::optional<Occurrence> take();
    [[nodiscard]] Occurrence occurrenceAt(const IcalTime& time) const;
    void takeGap(Date firstInstant);

    std::shared_ptr<const Calendar> calendar_;
    Date startDate_;
    TimeInterval laterPass_;  ///< from the first pass of the start's time to the start
    Date last_;               ///< the answer given last
    RuleAnswers answers_;
    std::deque<Date> found_;  ///< ascending; answers to give before anything else is taken
};

}  // namespace dayward
