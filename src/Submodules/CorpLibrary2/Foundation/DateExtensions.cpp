#include "Submodules/CorpLibrary2/Foundation/DateExtensions.h"

#include <cmath>

#include "Submodules/CorpLibrary2/Foundation/ComponentsExtensions.h"
#include "platform/Environment.h"

namespace dayward {

namespace {

DateComponents fieldsOf(Date date, CalendarUnits units = kDateHelperUnits) {
    return cc_calendar()->components(units, date);
}

Date rebuilt(const DateComponents& components, Date otherwise) {
    return cc_calendar()->dateFromComponents(components).value_or(otherwise);
}

Date withTime(Date date, std::int64_t hour, std::int64_t minute, std::int64_t second) {
    DateComponents components = fieldsOf(date);
    components.hour = hour;
    components.minute = minute;
    components.second = second;
    return rebuilt(components, date);
}

/// a + b, at the nearest end of the range where it does not fit.
std::int64_t plus(std::int64_t a, std::int64_t b) {
    std::int64_t sum = 0;
    if (!__builtin_add_overflow(a, b, &sum)) return sum;
    return b < 0 ? INT64_MIN : INT64_MAX;
}

std::int64_t times(std::int64_t a, std::int64_t b) {
    std::int64_t product = 0;
    if (!__builtin_mul_overflow(a, b, &product)) return product;
    return (a < 0) != (b < 0) ? INT64_MIN : INT64_MAX;
}

Calendar::Range rangeInUnit(CalendarUnit smaller, CalendarUnit larger, Date date) {
    return cc_calendar()->rangeOfUnit(smaller, larger, date).value_or(Calendar::Range{1, 1});
}

Date adding(Date date, std::int64_t count, double seconds) {
    return date + TimeInterval(static_cast<double>(count) * seconds);
}

}  // namespace

std::shared_ptr<const Calendar> cc_calendar() { return Environment::current().calendar(); }

Date dateByAddingYears(Date date, std::int64_t years) {
    return cc_calendar()->dateByAddingUnit(CalendarUnit::year, years, date).value_or(date);
}

Date dateByAddingMonths(Date date, std::int64_t months) {
    return cc_calendar()->dateByAddingUnit(CalendarUnit::month, months, date).value_or(date);
}

Date dateByAddingDays(Date date, std::int64_t days) { return adding(date, days, 86400); }
Date dateByAddingHours(Date date, std::int64_t hours) { return adding(date, hours, 3600); }
Date dateByAddingMinutes(Date date, std::int64_t minutes) { return adding(date, minutes, 60); }

Date dateByAddingValue(Date date, std::int64_t value, CalendarUnit forUnit) {
    const bool isWeek = forUnit == CalendarUnit::week;
    const CalendarUnit unit = isWeek ? CalendarUnit::day : forUnit;
    DateComponents components = fieldsOf(date);
    const std::int64_t field = valueForUnit(components, unit).value_or(0);
    setValue(components, plus(field, isWeek ? times(value, 7) : value), unit);
    return rebuilt(components, date);
}

Date dateBySetValue(Date date, std::int64_t value, CalendarUnit forUnit) {
    DateComponents components = fieldsOf(date);
    setValue(components, value, forUnit);
    return rebuilt(components, date);
}

Date dateWithTimeFromDate(Date date, Date otherDate) {
    const DateComponents time = fieldsOf(otherDate);
    return withTime(date, *time.hour, *time.minute, *time.second);
}

Date dateAtStartOfDay(Date date) { return withTime(date, 0, 0, 0); }
Date dateAtEndOfDay(Date date) { return withTime(date, 23, 59, 59); }

Date dateAtStartOfWeek(Date date) {
    const auto week = cc_calendar()->rangeOfUnit(CalendarUnit::weekOfMonth, date);
    return week ? week->start : date;
}

Date dateAtEndOfWeek(Date date) {
    constexpr auto kUnits = CalendarUnit::year | CalendarUnit::month | CalendarUnit::weekOfMonth |
                            CalendarUnit::weekday | CalendarUnit::yearForWeekOfYear | CalendarUnit::hour |
                            CalendarUnit::minute | CalendarUnit::second;
    DateComponents components = fieldsOf(date, kUnits);
    components.weekday = rangeInUnit(CalendarUnit::day, CalendarUnit::weekOfMonth, date).length;
    return rebuilt(components, date);
}

Date dateAtStartOfMonth(Date date) {
    DateComponents components = fieldsOf(date, kYearToSecondUnits);
    components.day = rangeInUnit(CalendarUnit::day, CalendarUnit::month, date).location;
    return rebuilt(components, date);
}

Date dateAtEndOfMonth(Date date) {
    DateComponents components = fieldsOf(date, kYearToSecondUnits);
    components.day = rangeInUnit(CalendarUnit::day, CalendarUnit::month, date).length;
    return rebuilt(components, date);
}

Date dateAtStartOfYear(Date date) {
    DateComponents components = fieldsOf(date, kYearToSecondUnits);
    components.month = rangeInUnit(CalendarUnit::month, CalendarUnit::year, date).location;
    components.day = 1;
    return rebuilt(components, date);
}

Date dateAtEndOfYear(Date date) {
    DateComponents components = fieldsOf(date, kYearToSecondUnits);
    components.month = rangeInUnit(CalendarUnit::month, CalendarUnit::year, date).length;
    // The last month is long enough for every day of another month.
    components.day = rangeInUnit(CalendarUnit::day, CalendarUnit::month, rebuilt(components, date)).length;
    return rebuilt(components, date);
}

Date dateWithoutSecons(Date date) {
    const double since1970 = date.secondsSince1970();
    return Date::since1970(since1970 - std::fmod(since1970, 60));
}

std::int64_t valueForUnit(Date date, CalendarUnit unit) {
    const DateComponents components = fieldsOf(date, kDateHelperUnits | unit);
    const auto* field = components.field(unit);
    return field == nullptr ? 0 : field->value_or(0);
}

std::int64_t nearestHour(Date) { return hour(Environment::current().now() + TimeInterval(1800)); }

std::int64_t hour(Date date) { return valueForUnit(date, CalendarUnit::hour); }
std::int64_t minute(Date date) { return valueForUnit(date, CalendarUnit::minute); }
std::int64_t seconds(Date date) { return valueForUnit(date, CalendarUnit::second); }
std::int64_t day(Date date) { return valueForUnit(date, CalendarUnit::day); }
std::int64_t month(Date date) { return valueForUnit(date, CalendarUnit::month); }
std::int64_t week(Date date) { return valueForUnit(date, CalendarUnit::week); }
std::int64_t weekday(Date date) { return valueForUnit(date, CalendarUnit::weekday); }
std::int64_t nthWeekday(Date date) { return valueForUnit(date, CalendarUnit::weekdayOrdinal); }
std::int64_t year(Date date) { return valueForUnit(date, CalendarUnit::year); }

}  // namespace dayward
