// What the calendar's sources share: limits, the split of a local time into day and time of day,
// and the numbering of weeks. Any thread.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "platform/Calendar.h"
#include "platform/CivilDay.h"

namespace dayward::arithmetic {

inline constexpr double kSecondsPerDay = 86400;
/// Beyond this many seconds a date is taken for the limit itself, so that whole numbers never overflow.
inline constexpr double kGreatestSeconds = 1e18;
/// Results beyond this are no dates. Farther than the above, so that every date's fields lead back to a date.
inline constexpr double kGreatestResult = 2 * kGreatestSeconds;
/// Fields beyond this lead to no date.
inline constexpr std::int64_t kGreatestYear = 40'000'000'000;
inline constexpr std::int64_t kGreatestDay = kGreatestYear * 366;
/// The day number of 2001-01-01.
inline constexpr std::int64_t kReferenceDay = dayNumberOf(2001, 1, 1);

inline bool isWithin(std::int64_t value, std::int64_t limit) { return value >= -limit && value <= limit; }

inline double clampedSeconds(double seconds) {
    if (std::isnan(seconds)) return 0;
    return seconds > kGreatestSeconds ? kGreatestSeconds : seconds < -kGreatestSeconds ? -kGreatestSeconds : seconds;
}

/// A wall-clock time in whole seconds: the day number and the second of that day.
struct LocalSecond {
    std::int64_t day = 0;
    int second = 0;
};

/// Within ±10^18 s.
inline LocalSecond localSecondOf(const TimeZone& zone, std::int64_t instant) {
    const std::int64_t local = instant + zone.rules().offsetAt(instant);
    // The years that matter are positive then, and so the division is by an unsigned constant.
    constexpr std::int64_t kEra = kDaysOfEra * 86400 * 6;
    const auto shifted = static_cast<std::uint64_t>(local + kEra);
    if (shifted < static_cast<std::uint64_t>(2 * kEra)) [[likely]] {
        return {static_cast<std::int64_t>(shifted / 86400) - kEra / 86400, static_cast<int>(shifted % 86400)};
    }
    return {floorDivide(local, 86400), static_cast<int>(floorModulo(local, 86400))};
}

/// The instant of whole local seconds since 1970-01-01 00:00:00.
inline Date dateOfLocal(const TimeZone& zone, std::int64_t local) {
    return Date::sinceReference(static_cast<double>(local - zone.rules().offsetOfLocal(local) - kReferenceSeconds));
}

/// A wall-clock time: the day number and the seconds, with their fraction, since its midnight.
struct LocalTime {
    std::int64_t day = 0;
    double seconds = 0;
};

inline LocalTime localTimeOf(const TimeZone& zone, Date date) {
    const double local =
        clampedSeconds(zone.localOfInstant(Date::sinceReference(clampedSeconds(date.secondsSinceReference()))));
    const double day = std::floor(local / kSecondsPerDay);
    return {static_cast<std::int64_t>(day) + kReferenceDay, local - day * kSecondsPerDay};
}

inline Date dateOf(const TimeZone& zone, LocalTime time) {
    return zone.instantOfLocal(static_cast<double>(time.day - kReferenceDay) * kSecondsPerDay + time.seconds);
}

/// How many days after the first day of its week a weekday (1 to 7, or beyond) comes.
inline std::int64_t daysIntoWeek(std::int64_t weekday, int firstWeekday) {
    return floorModulo(weekday - firstWeekday, 7);
}

/// The first day of week 1 of a month or a year that begins with the given day.
inline std::int64_t firstWeekStart(std::int64_t firstDay, int firstWeekday, int minimumDays) {
    const std::int64_t into = daysIntoWeek(weekdayIndexOf(firstDay) + 1, firstWeekday);
    return firstDay - into + (7 - into < minimumDays ? 7 : 0);
}

/// The number of the day's week, counted from the one that begins with `start`.
inline std::int64_t weekNumber(std::int64_t day, std::int64_t start) { return floorDivide(day - start, 7) + 1; }

/// Of whole local days, whose months may be out of range.
inline std::int64_t dayNumberRolling(std::int64_t year, std::int64_t month, std::int64_t day) {
    if (month >= 1 && month <= 12) return dayNumberOf(year, static_cast<int>(month), day);
    return dayNumberOf(year + floorDivide(month - 1, 12), static_cast<int>(floorModulo(month - 1, 12)) + 1, day);
}

}  // namespace dayward::arithmetic
