// Dates as broken-down times, the form in which rules are evaluated (and which libical calls a time).
//
// Two labels for an instant: the true one in UTC, and the wall clock's fields in the current
// environment's calendar, labelled as UTC so that nothing converts them further ("notz"). Plain
// values; any thread. Calendars are immutable values here, so no lock guards them.
#pragma once

#include <compare>
#include <cstdint>
#include <optional>

#include "platform/Calendar.h"
#include "platform/Date.h"

namespace dayward {

/// Fields of a time on a clock without daylight saving, in the order in which times compare. All zero
/// is the null time. A date without a time of day is before every time of that day.
struct IcalTime {
    int year = 0, month = 0, day = 0;
    bool hasTime = true;
    int hour = 0, minute = 0, second = 0;

    auto operator<=>(const IcalTime&) const = default;
    [[nodiscard]] bool isNull() const { return year == 0 && month == 0 && day == 0; }
};

/// The time's distance from 1970-01-01 00:00:00 on its own clock, in seconds; 0 for the null time.
/// Fields out of range roll over.
std::int64_t secondsOf(const IcalTime& time);
/// The reverse, for years -200000 to 200000.
IcalTime icalTimeOfSeconds(std::int64_t seconds);

/// Whether the fields of a date can be told: it is finite and lies within 100000 years of 1970.
bool hasIcalTime(Date date);

/// UTC fields of the seconds since 1970, truncated toward zero to an integer.
IcalTime icaltime(Date date);
Date dateForICalTime(const IcalTime& time);

/// The wall clock's fields, fractions of a second dropped. The date must have an IcalTime.
IcalTime notz_icaltime(Date date);
IcalTime notz_icaltime(Date date, const Calendar& calendar);
/// A local time that occurs twice is its first pass; a skipped one is later by the gap's length.
Date notz_dateForICalTime(const IcalTime& time);
Date notz_dateForICalTime(const IcalTime& time, const Calendar& calendar);

}  // namespace dayward
