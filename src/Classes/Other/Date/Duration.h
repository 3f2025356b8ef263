// An amount of one calendar unit that dates can be moved by, on the calendar that was current when it
// was built.
//
// A value; one thread at a time, since `interval` is computed on first use and kept.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "platform/Calendar.h"
#include "platform/CalendarUnit.h"
#include "platform/Date.h"

namespace dayward {

class Duration {
public:
    Duration(std::int64_t value, CalendarUnit unit);

    static Duration year(std::int64_t value = 1) { return {value, CalendarUnit::year}; }
    static Duration years(std::int64_t value) { return year(value); }
    static Duration month(std::int64_t value = 1) { return {value, CalendarUnit::month}; }
    static Duration months(std::int64_t value) { return month(value); }
    static Duration week(std::int64_t value = 1) { return {value, CalendarUnit::weekOfYear}; }
    static Duration weeks(std::int64_t value) { return week(value); }
    static Duration day(std::int64_t value = 1) { return {value, CalendarUnit::day}; }
    static Duration days(std::int64_t value) { return day(value); }
    static Duration hour(std::int64_t value = 1) { return {value, CalendarUnit::hour}; }
    static Duration hours(std::int64_t value) { return hour(value); }
    static Duration minute(std::int64_t value = 1) { return {value, CalendarUnit::minute}; }
    static Duration minutes(std::int64_t value) { return minute(value); }
    static Duration second(std::int64_t value = 1) { return {value, CalendarUnit::second}; }
    static Duration seconds(std::int64_t value) { return second(value); }

    [[nodiscard]] std::int64_t value() const { return value_; }
    [[nodiscard]] CalendarUnit unit() const { return unit_; }
    [[nodiscard]] const Calendar& calendar() const { return *calendar_; }
    /// About how long it is: a month is 2592000 s, a year 31556952 s. A unit without a length is logged
    /// and is 0.
    [[nodiscard]] TimeInterval interval() const;

    /// On the calendar; the process stops where the calendar has no such date.
    [[nodiscard]] Date dateLater(Date date) const;
    [[nodiscard]] Date dateEarlier(Date date) const;
    [[nodiscard]] Date fromNow() const;
    [[nodiscard]] Date ago() const;

private:
    std::int64_t value_;
    CalendarUnit unit_;
    std::shared_ptr<const Calendar> calendar_;
    mutable std::optional<TimeInterval> interval_;
};

}  // namespace dayward
