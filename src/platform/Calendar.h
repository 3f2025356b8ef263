// The Gregorian calendar in one time zone: fields of an instant, instants of fields, distances and
// additions in calendar units.
//
// An immutable value, cheap to copy, safe to share between threads; nothing is built per question.
// A local time that occurs twice means its first pass; a skipped one moves forward by the length of
// the gap. Years before 1 are counted astronomically (0, -1, …); the Gregorian rule holds for all.
// Dates beyond ±10^18 s count as that limit, NaN as 0.
#pragma once

#include <cstdint>
#include <optional>

#include "platform/CalendarUnit.h"
#include "platform/Date.h"
#include "platform/DateComponents.h"
#include "platform/TimeZone.h"

namespace dayward {

class Calendar {
public:
    struct Range {
        std::int64_t location = 0;  ///< first value
        std::int64_t length = 0;    ///< number of values
        bool operator==(const Range&) const = default;
    };
    struct Span {
        Date start;
        TimeInterval length;
        bool operator==(const Span&) const = default;
    };
    /// Broken-down local time; all fields in range.
    struct Fields {
        std::int64_t year = 2001;
        int month = 1, day = 1, hour = 0, minute = 0, second = 0;
        bool operator==(const Fields&) const = default;
    };

    /// firstWeekday 1 (Sunday) to 7; minimumDaysInFirstWeek 1 to 7 decides which week of a month
    /// or a year is its first.
    explicit Calendar(TimeZone zone, int firstWeekday = 1, int minimumDaysInFirstWeek = 1);

    [[nodiscard]] const TimeZone& timeZone() const { return zone_; }
    [[nodiscard]] int firstWeekday() const { return firstWeekday_; }
    [[nodiscard]] int minimumDaysInFirstWeek() const { return minimumDaysInFirstWeek_; }

    /// The fast pair: local fields of an instant (fractions of a second dropped downwards), and the
    /// instant of fields, which may be out of range and then roll over.
    [[nodiscard]] Fields fields(Date date) const;
    [[nodiscard]] Date date(const Fields& fields) const;

    /// The requested fields of an instant; fields that are not asked for stay undefined.
    [[nodiscard]] DateComponents components(CalendarUnits units, Date date) const;

    /// The distance from one instant to another in the requested units: as many whole units as fit,
    /// biggest first, each measured on the wall clock from where the bigger ones led, all of one
    /// sign. Every requested unit of year, quarter, month, week, weekOfMonth or weekOfYear, day, hour,
    /// minute, second, nanosecond is set in the result. Adding the result to the first instant gives
    /// the second, where a unit as small as their difference was asked for.
    [[nodiscard]] DateComponents components(CalendarUnits units, Date from, Date to) const;

    /// The instant of the given fields. Undefined year is 1, month 1, day 1, hour, minute, second 0.
    /// Out-of-range fields roll over. Where week fields are given (weekOfMonth, or
    /// yearForWeekOfYear with weekOfYear) together with a weekday and no day, they decide the day;
    /// so does weekdayOrdinal with a weekday. The era is not read. Nothing for fields beyond ±4·10^10
    /// years; the fields of any date lead back to a date.
    [[nodiscard]] std::optional<Date> dateFromComponents(const DateComponents& components) const;

    /// Adds each set field, years first and seconds last. Years and months keep the day, or take
    /// the last day of a shorter month; days and weeks keep the wall clock; hours and below are
    /// lengths of time. A weekday counts as a day, its ordinal as a week. Without years to weeks the
    /// instant stays exact, also in the second pass of a repeated hour.
    [[nodiscard]] std::optional<Date> dateByAddingComponents(const DateComponents& components, Date date) const;
    [[nodiscard]] std::optional<Date> dateByAddingUnit(CalendarUnit unit, std::int64_t value, Date date) const;

    /// The values of the smaller unit inside the bigger one around the date: days in a month,
    /// months in a year, days in a week of the month. Nothing where the pair has no meaning.
    [[nodiscard]] std::optional<Range> rangeOfUnit(CalendarUnit smaller, CalendarUnit larger, Date date) const;
    /// Start and length of the unit around the date (day, month, year, week, hour, minute, second).
    [[nodiscard]] std::optional<Span> rangeOfUnit(CalendarUnit unit, Date date) const;

    static bool isLeapYear(std::int64_t year);
    static int daysInMonth(std::int64_t year, int month);
    /// 1 (Sunday) to 7 (Saturday).
    static int weekdayOf(std::int64_t year, int month, int day);

private:
    TimeZone zone_;
    int firstWeekday_;
    int minimumDaysInFirstWeek_;
};

}  // namespace dayward
