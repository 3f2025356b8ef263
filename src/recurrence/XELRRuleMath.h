// Evaluates one recurrence rule from one start: next occurrence, occurrences of a range, the last one.
//
// Everything runs on wall-clock fields of the current environment's zone, so that 09:00 stays 09:00
// across daylight saving and moves; a time that the clock skips is answered later by the gap's length,
// and one that it shows twice means its first pass. A value object without shared state; any thread.
// Every rule text is answered in bounded time and memory: what cannot be read, never matches or leaves
// the years that can be walked has no occurrences.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Date.h"

namespace dayward {

class ParsedRule;

class XELRRuleMath {
public:
    /// Without a rule the start is the only occurrence; without a start there is none.
    XELRRuleMath(std::optional<std::string> rrule, std::optional<Date> startDate);
    /// The same for a rule that is parsed already, whose text is then not known; null is no rule.
    XELRRuleMath(std::shared_ptr<const ParsedRule> rule, std::optional<Date> startDate);

    [[nodiscard]] const std::optional<std::string>& rrule() const { return rrule_; }
    void setRrule(std::optional<std::string> rrule);
    [[nodiscard]] std::optional<Date> startDate() const { return startDate_; }
    void setStartDate(std::optional<Date> startDate) { startDate_ = startDate; }

    /// How many whole intervals of the rule lie between the start and the date, negative before the
    /// start; 0 without a rule or with interval 0. In rules of a second to a week a distance of an exact
    /// number of weeks is 0.
    [[nodiscard]] std::int64_t intervalsToDate(std::optional<Date> date) const;

    /// The first occurrence strictly after the date, and none before the start.
    [[nodiscard]] std::optional<Date> dateAfterDate(Date date) const;
    static std::optional<Date> dateAfterDate(Date date, const std::optional<std::string>& rrule,
                                             std::optional<Date> startDate);

    /// Occurrences strictly after the first date and not after the second, ascending, at most maxCount.
    /// Without a rule the start counts only strictly before the second date.
    [[nodiscard]] std::vector<Date> datesFromDate(Date fromDate, Date toDate, std::size_t maxCount) const;

    /// Whether the first occurrence after a date is surely also the first after any later date before it. Rules
    /// with COUNT are counted from near the date, and those of months and years take their day from there where
    /// a month lacks it or the rule names others.
    [[nodiscard]] bool isSteady() const;

    /// The last occurrence of a rule with UNTIL; nothing for an endless or a counted rule; the start
    /// where nothing repeats.
    [[nodiscard]] std::optional<Date> lastDate() const;

private:
    std::optional<std::string> rrule_;
    std::shared_ptr<const ParsedRule> parsed_;  ///< null where there is no rule
    std::optional<Date> startDate_;
};

}  // namespace dayward
