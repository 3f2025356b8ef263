#include "Classes/Other/Date/DateParts.h"

#include <cmath>

#include "platform/CalendarUnit.h"
#include "platform/Environment.h"
#include "platform/FatalError.h"

namespace dayward {

namespace {

constexpr CalendarUnits kPartUnits = kYearToSecondUnits.without(CalendarUnit::week) | CalendarUnit::weekday;

DateComponents partsOf(Date date) { return Environment::current().calendar()->components(kPartUnits, date); }

Date built(const DateComponents& parts) {
    const auto date = Environment::current().calendar()->dateFromComponents(parts);
    if (!date) fatalError("the calendar has no such date");
    return *date;
}

/// The instant of the fields; of the two in a repeated hour, the one in the date's own pass.
Date builtInPassOf(Date date, const DateComponents& parts) {
    const Date first = built(parts);
    const TimeInterval betweenPasses(std::floor((date - built(partsOf(date))).seconds()));
    const Date second = first + betweenPasses;
    return betweenPasses.seconds() > 0 && partsOf(second).hour == parts.hour && partsOf(second).minute == parts.minute
               ? second
               : first;
}

DateComponents withTime(DateComponents parts, std::int64_t hour, std::int64_t minute, std::int64_t second) {
    parts.hour = hour;
    parts.minute = minute;
    parts.second = second;
    return parts;
}

DateComponents withDay(DateComponents parts, std::int64_t month, std::int64_t day) {
    parts.month = month;
    parts.day = day;
    return parts;
}

Date movedByDays(Date date, std::int64_t days) {
    const auto moved = Environment::current().calendar()->dateByAddingUnit(CalendarUnit::day, days, date);
    if (!moved) fatalError("the calendar has no such day");
    return *moved;
}

}  // namespace

std::int64_t second(Date date) { return *partsOf(date).second; }

TimeZone timeZone(Date) { return Environment::current().timeZone(); }

TimeZone timeZone(const ZonedDate& date) { return date.zone; }

ZonedDate changeWithTimeZone(Date date, const TimeZone& zone) { return {date, zone}; }

Date changeWithWeekday(Date date, int weekday) { return movedByDays(date, weekday - *partsOf(date).weekday); }

Date dateWithYear(std::optional<std::int64_t> year, std::optional<std::int64_t> month, std::optional<std::int64_t> day,
                  std::optional<std::int64_t> hour, std::optional<std::int64_t> minute,
                  std::optional<std::int64_t> second) {
    const DateComponents now = partsOf(Environment::current().now());
    DateComponents parts;
    parts.year = year ? year : now.year;
    parts.month = month ? month : now.month;
    parts.day = day ? day : now.day;
    parts.hour = hour ? hour : now.hour;
    parts.minute = minute ? minute : now.minute;
    parts.second = second ? second : now.second;
    return built(parts);
}

Date dateWithYear(std::optional<std::int64_t> year, std::optional<std::int64_t> month,
                  std::optional<std::int64_t> day) {
    return dateWithYear(year, month, day, 0, 0, 0);
}

Date today() { return beginningOfDay(Environment::current().now()); }
// The start of the day again: where midnight is skipped today, today starts later than its neighbours.
Date yesterday() { return beginningOfDay(movedByDays(today(), -1)); }
Date tomorrow() { return beginningOfDay(movedByDays(today(), 1)); }

Date beginningOfYear(Date date) { return built(withTime(withDay(partsOf(date), 1, 1), 0, 0, 0)); }
Date endOfYear(Date date) { return built(withTime(withDay(partsOf(date), 12, 31), 23, 59, 59)); }

Date beginningOfMonth(Date date) {
    const DateComponents parts = partsOf(date);
    return built(withTime(withDay(parts, *parts.month, 1), 0, 0, 0));
}

Date endOfMonth(Date date) {
    const DateComponents parts = partsOf(date);
    const auto days = Environment::current().calendar()->rangeOfUnit(CalendarUnit::day, CalendarUnit::month, date);
    return built(withTime(withDay(parts, *parts.month, days->length), 23, 59, 59));
}

Date beginningOfWeek(Date date) {
    const std::int64_t firstWeekday = Environment::current().calendar()->firstWeekday();
    return beginningOfDay(movedByDays(beginningOfDay(date), -((weekday(date) - firstWeekday + 7) % 7)));
}

Date endOfWeek(Date date) {
    const std::int64_t firstWeekday = Environment::current().calendar()->firstWeekday();
    return movedByDays(endOfDay(date), (firstWeekday - 1 - weekday(date) + 7) % 7);
}

Date beginningOfDay(Date date) { return built(withTime(partsOf(date), 0, 0, 0)); }
Date endOfDay(Date date) { return built(withTime(partsOf(date), 23, 59, 59)); }

Date beginningOfHour(Date date) {
    const DateComponents parts = partsOf(date);
    return builtInPassOf(date, withTime(parts, *parts.hour, 0, 0));
}

Date endOfHour(Date date) {
    const DateComponents parts = partsOf(date);
    return builtInPassOf(date, withTime(parts, *parts.hour, 59, 59));
}

Date beginningOfMinute(Date date) {
    const DateComponents parts = partsOf(date);
    return builtInPassOf(date, withTime(parts, *parts.hour, *parts.minute, 0));
}

Date endOfMinute(Date date) {
    const DateComponents parts = partsOf(date);
    return builtInPassOf(date, withTime(parts, *parts.hour, *parts.minute, 59));
}

std::string stringFromFormat(Date date, std::string_view format) {
    const Environment& environment = Environment::current();
    return DateFormatter::withPattern(format, environment.locale(), environment.timeZone()).stringFromDate(date);
}

Date dateWithMunitesInDay(Date date, std::int64_t minutes) {
    return built(withTime(partsOf(date), minutes / 60, minutes % 60, 0));
}

std::int64_t munitesInDay(Date date) {
    const DateComponents parts = partsOf(date);
    return *parts.hour * 60 + *parts.minute;
}

}  // namespace dayward
