#include "platform/Calendar.h"

#include <algorithm>

#include "platform/CalendarArithmetic.h"

namespace dayward {

using namespace arithmetic;

namespace {

struct WeekOfYear {
    std::int64_t year = 0, week = 0;
};

WeekOfYear weekOfYear(const CivilDay& civil, std::int64_t day, int firstWeekday, int minimumDays) {
    for (const std::int64_t year : {civil.year + 1, civil.year}) {
        const std::int64_t start = firstWeekStart(dayNumberOf(year, 1, 1), firstWeekday, minimumDays);
        if (day >= start) return {year, weekNumber(day, start)};
    }
    const std::int64_t start = firstWeekStart(dayNumberOf(civil.year - 1, 1, 1), firstWeekday, minimumDays);
    return {civil.year - 1, weekNumber(day, start)};
}

/// The day that the week fields and the weekday name, where they are to decide it.
std::optional<std::int64_t> dayOfWeekFields(const DateComponents& given, std::int64_t year, std::int64_t month,
                                            const Calendar& calendar) {
    if (given.day || !given.weekday) return std::nullopt;
    const auto dayInWeek = [&](std::int64_t firstDay, std::int64_t week) {
        const std::int64_t start = firstWeekStart(firstDay, calendar.firstWeekday(), calendar.minimumDaysInFirstWeek());
        return start + (week - 1) * 7 + daysIntoWeek(*given.weekday, calendar.firstWeekday());
    };
    if (given.weekOfMonth) return dayInWeek(dayNumberRolling(year, month, 1), *given.weekOfMonth);
    if (given.yearForWeekOfYear && given.weekOfYear) {
        return dayInWeek(dayNumberOf(*given.yearForWeekOfYear, 1, 1), *given.weekOfYear);
    }
    if (given.weekdayOrdinal) {
        const std::int64_t first = dayNumberRolling(year, month, 1);
        const std::int64_t toWeekday = floorModulo(*given.weekday - (weekdayIndexOf(first) + 1), 7);
        return first + toWeekday + (*given.weekdayOrdinal - 1) * 7;
    }
    return std::nullopt;
}

bool areWithinLimits(const DateComponents& given) {
    const auto within = [](const std::optional<std::int64_t>& field, std::int64_t limit) {
        return !field || isWithin(*field, limit);
    };
    return within(given.year, kGreatestYear) && within(given.yearForWeekOfYear, kGreatestYear) &&
           within(given.month, kGreatestYear) && within(given.day, kGreatestDay) &&
           within(given.weekday, kGreatestDay) && within(given.weekOfMonth, kGreatestYear) &&
           within(given.weekOfYear, kGreatestYear) && within(given.weekdayOrdinal, kGreatestYear);
}

}  // namespace

Calendar::Calendar(TimeZone zone, int firstWeekday, int minimumDaysInFirstWeek)
    : zone_(std::move(zone)),
      firstWeekday_(std::clamp(firstWeekday, 1, 7)),
      minimumDaysInFirstWeek_(std::clamp(minimumDaysInFirstWeek, 1, 7)) {}

Calendar::Fields Calendar::fields(Date date) const {
    const std::int64_t instant = wholeSeconds(clampedSeconds(date.secondsSinceReference())) + kReferenceSeconds;
    const auto [day, secondOfDay] = localSecondOf(zone_, instant);
    const CivilDay civil = civilDayOf(day);
    const auto second = static_cast<std::uint32_t>(secondOfDay);
    const std::uint32_t minute = second / 60, hour = second / 3600;
    return {civil.year,
            civil.month,
            civil.day,
            static_cast<int>(hour),
            static_cast<int>(minute - hour * 60),
            static_cast<int>(second - minute * 60)};
}

Date Calendar::date(const Fields& fields) const {
    const std::int64_t year = std::clamp(fields.year, -kGreatestYear, kGreatestYear);
    const std::int64_t day = dayNumberRolling(year, fields.month, fields.day);
    const std::int64_t second = fields.hour * std::int64_t{3600} + fields.minute * std::int64_t{60} + fields.second;
    return dateOfLocal(zone_, day * 86400 + second);
}

DateComponents Calendar::components(CalendarUnits units, Date date) const {
    const LocalTime local = localTimeOf(zone_, date);
    const CivilDay civil = civilDayOf(local.day);
    const std::int64_t second = static_cast<std::int64_t>(local.seconds);
    DateComponents result;
    const auto set = [&](CalendarUnit unit, std::int64_t value) {
        if (units.contains(unit)) *result.field(unit) = value;
    };
    set(CalendarUnit::era, civil.year > 0 ? 1 : 0);
    set(CalendarUnit::year, civil.year);
    set(CalendarUnit::month, civil.month);
    set(CalendarUnit::day, civil.day);
    set(CalendarUnit::hour, second / 3600);
    set(CalendarUnit::minute, second / 60 % 60);
    set(CalendarUnit::second, second % 60);
    set(CalendarUnit::nanosecond, static_cast<std::int64_t>((local.seconds - static_cast<double>(second)) * 1e9));
    set(CalendarUnit::weekday, weekdayIndexOf(local.day) + 1);
    set(CalendarUnit::weekdayOrdinal, (civil.day - 1) / 7 + 1);
    set(CalendarUnit::quarter, (civil.month - 1) / 3 + 1);
    const std::int64_t monthStart = local.day - civil.day + 1;
    set(CalendarUnit::weekOfMonth,
        weekNumber(local.day, firstWeekStart(monthStart, firstWeekday_, minimumDaysInFirstWeek_)));
    const WeekOfYear week = weekOfYear(civil, local.day, firstWeekday_, minimumDaysInFirstWeek_);
    set(CalendarUnit::week, week.week);
    set(CalendarUnit::weekOfYear, week.week);
    set(CalendarUnit::yearForWeekOfYear, week.year);
    return result;
}

std::optional<Date> Calendar::dateFromComponents(const DateComponents& given) const {
    if (!areWithinLimits(given)) return std::nullopt;
    const std::int64_t year = given.year.value_or(1), month = given.month.value_or(1);
    const auto weekDay = dayOfWeekFields(given, year, month, *this);
    const std::int64_t day = weekDay ? *weekDay : dayNumberRolling(year, month, given.day.value_or(1));
    const auto seconds = [](const std::optional<std::int64_t>& field, double length) {
        return static_cast<double>(field.value_or(0)) * length;
    };
    const Date date = dateOf(zone_, {day, seconds(given.hour, 3600) + seconds(given.minute, 60) +
                                              seconds(given.second, 1) + seconds(given.nanosecond, 1e-9)});
    if (std::abs(date.secondsSinceReference()) > kGreatestResult) return std::nullopt;
    return date;
}

bool Calendar::isLeapYear(std::int64_t year) { return dayward::isLeapYear(year); }

int Calendar::daysInMonth(std::int64_t year, int month) { return daysInMonthOf(year, std::clamp(month, 1, 12)); }

int Calendar::weekdayOf(std::int64_t year, int month, int day) {
    const std::int64_t sameWeekdays = floorModulo(year, 400);
    return weekdayIndexOf(dayNumberRolling(sameWeekdays, month, day)) + 1;
}

}  // namespace dayward
