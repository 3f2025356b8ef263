// Evaluates one event: a rule, the day on which it starts, and the times of day at which it happens.
//
// Each time of day is a rule of its own that starts on that day at that time. A value object without
// shared state; any thread. The rule is parsed and the start dates are found once, in the zone of the environment
// that is current then.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/Date.h"

namespace dayward {

class ParsedRule;

class XELEventMath {
public:
    /// The times are minutes after midnight, in any order. Without a rule the event happens once a time.
    XELEventMath(std::optional<std::string> rrule, std::optional<Date> startDateDay,
                 std::vector<std::int64_t> startDateTimes);

    [[nodiscard]] const std::optional<std::string>& rrule() const { return rrule_; }
    void setRrule(std::optional<std::string> rrule);
    [[nodiscard]] std::optional<Date> startDateDay() const { return startDateDay_; }
    void setStartDateDay(std::optional<Date> day);
    /// Ascending.
    [[nodiscard]] const std::vector<std::int64_t>& startDateTimes() const { return startDateTimes_; }
    void setStartDateTimes(std::vector<std::int64_t> times);

    /// The start day at each of the times, ascending by time.
    [[nodiscard]] const std::vector<Date>& getStartDates() const { return startDates_; }

    /// The earliest occurrence of all times strictly after the date; nothing without times.
    [[nodiscard]] std::optional<Date> dateAfterDate(Date date) const;
    static std::optional<Date> dateAfterDate(Date date, std::optional<std::string> rrule,
                                             std::optional<Date> startDateDay,
                                             std::vector<std::int64_t> startDateTimes);

    /// Occurrences strictly after the first date and not after the second, ascending, without equal
    /// dates. Each time of day gives at most maxCount divided by the number of times, rounded up, so
    /// the whole may be longer than maxCount.
    [[nodiscard]] std::vector<Date> datesFromDate(Date fromDate, Date toDate, std::size_t maxCount) const;

    /// See XELRRuleMath::isSteady().
    [[nodiscard]] bool isSteady() const;

    /// The latest of the last dates of all times; nothing where no time has one.
    [[nodiscard]] std::optional<Date> lastDate() const;

private:
    void findStartDates();

    std::optional<std::string> rrule_;
    std::shared_ptr<const ParsedRule> parsed_;
    std::optional<Date> startDateDay_;
    std::vector<std::int64_t> startDateTimes_;
    std::vector<Date> startDates_;
};

}  // namespace dayward
