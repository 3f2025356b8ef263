// A weekday of a recurrence rule, with its ordinal: one item of BYDAY (RFC 2445, section 4.3.10).
// A plain value; any thread.
#pragma once

#include <compare>
#include <cstdint>

namespace dayward {

/// Items order by week number and then by day, non-negative numbers ascending before negative ones
/// descending; equal in that order means equal.
class XELRecurrenceDayOfWeek {
public:
    /// Every such day of the period (week number 0).
    static XELRecurrenceDayOfWeek dayOfWeek(std::int64_t dayOfWeek) { return {dayOfWeek, 0}; }
    /// The n-th such day, counted from the end where the week number is negative.
    static XELRecurrenceDayOfWeek dayOfWeek(std::int64_t dayOfWeek, std::int64_t weekNumber) {
        return {dayOfWeek, weekNumber};
    }

    /// 1 Sunday to 7 Saturday; 0 for a text that names no day.
    [[nodiscard]] std::int64_t dayOfWeek() const { return dayOfWeek_; }
    [[nodiscard]] std::int64_t weekNumber() const { return weekNumber_; }

    [[nodiscard]] std::strong_ordering compare(const XELRecurrenceDayOfWeek& other) const;
    std::strong_ordering operator<=>(const XELRecurrenceDayOfWeek& other) const { return compare(other); }
    bool operator==(const XELRecurrenceDayOfWeek& other) const = default;

private:
    XELRecurrenceDayOfWeek(std::int64_t dayOfWeek, std::int64_t weekNumber)
        : dayOfWeek_(dayOfWeek), weekNumber_(weekNumber) {}

    std::int64_t dayOfWeek_;
    std::int64_t weekNumber_;
};

/// The order of a rule's number lists: non-negative numbers ascend and come before negative numbers,
/// which descend (1, 15, -1, -2).
std::strong_ordering compareRuleNumbers(std::int64_t left, std::int64_t right);

}  // namespace dayward
