// Operations on a date in the current calendar, which follows the user's changes of zone.
//
// The start and the end of a day reset the time of day; those of a week's end, a month and a year
// keep it. Operations that rebuild a date from its fields drop the fraction of a second. Where a
// value is so far out that no date can hold the result, the date comes back unchanged. Any thread.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/Calendar.h"
#include "platform/Date.h"
#include "platform/DateFormatter.h"

namespace dayward {

/// The current calendar as it is now.
std::shared_ptr<const Calendar> cc_calendar();

/// The text of the two styles in the current locale and zone.
std::string stringWithDateStyle(Date date, DateFormatter::Style dateStyle, DateFormatter::Style timeStyle);
std::string shortString(Date date);
std::string mediumString(Date date);
std::string longString(Date date);
std::string shortTimeString(Date date);
std::string mediumTimeString(Date date);
std::string longTimeString(Date date);
std::string shortDateString(Date date);
std::string mediumDateString(Date date);
std::string longDateString(Date date);

/// On the calendar: the day is kept, or becomes the last of a shorter month.
Date dateByAddingYears(Date date, std::int64_t years);
Date dateByAddingMonths(Date date, std::int64_t months);
/// Elapsed time, 86400 s a day: across a change of the clocks the wall clock moves.
Date dateByAddingDays(Date date, std::int64_t days);
Date dateByAddingHours(Date date, std::int64_t hours);
Date dateByAddingMinutes(Date date, std::int64_t minutes);
/// Adds to the field of the unit and lets the calendar roll over; a week (256) is seven days.
Date dateByAddingValue(Date date, std::int64_t value, CalendarUnit forUnit);
/// The date with one field replaced. The day of the month decides the day, whatever a week field says.
Date dateBySetValue(Date date, std::int64_t value, CalendarUnit forUnit);
/// This date's day with the other date's hour, minute and second.
Date dateWithTimeFromDate(Date date, Date otherDate);

Date dateAtStartOfDay(Date date);
Date dateAtEndOfDay(Date date);  ///< 23:59:59
Date dateAtStartOfWeek(Date date);
/// Keeps the time of day. The weekday whose number is the count of the month's days in this week:
/// Saturday for a full week.
Date dateAtEndOfWeek(Date date);
Date dateAtStartOfMonth(Date date);
Date dateAtEndOfMonth(Date date);
Date dateAtStartOfYear(Date date);
Date dateAtEndOfYear(Date date);
/// The seconds since 1970 less their remainder modulo 60.
Date dateWithoutSecons(Date date);

/// A field of the date; 0 for a unit without one.
std::int64_t valueForUnit(Date date, CalendarUnit unit);
/// The hour half an hour from now, whatever the date is.
std::int64_t nearestHour(Date date);
std::int64_t hour(Date date);
std::int64_t minute(Date date);
std::int64_t seconds(Date date);
std::int64_t day(Date date);
std::int64_t month(Date date);
std::int64_t week(Date date);
std::int64_t weekday(Date date);     ///< 1 (Sunday) to 7
std::int64_t nthWeekday(Date date);  ///< the weekday's ordinal in the month
std::int64_t year(Date date);

}  // namespace dayward
