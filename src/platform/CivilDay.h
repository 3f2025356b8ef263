// Day numbers of the proleptic Gregorian calendar. Day 0 is 1970-01-01. Exact for years within
// ±10^14; any thread.
#pragma once

#include <array>
#include <cstdint>

namespace dayward {

struct CivilDay {
    std::int64_t year = 1970;
    int month = 1, day = 1;
};

constexpr std::int64_t floorDivide(std::int64_t a, std::int64_t b) {
    return a / b - ((a % b != 0) && ((a % b < 0) != (b < 0)));
}
constexpr std::int64_t floorModulo(std::int64_t a, std::int64_t b) { return a - floorDivide(a, b) * b; }

constexpr bool isLeapYear(std::int64_t year) { return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0); }

constexpr int daysInMonthOf(std::int64_t year, int month) {
    constexpr std::array<int, 12> kDays = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return month == 2 && isLeapYear(year) ? 29 : kDays[static_cast<std::size_t>(month - 1)];
}

/// The day number of a date; the month is 1 to 12, the day may lie outside of the month.
constexpr std::int64_t dayNumberOf(std::int64_t year, int month, std::int64_t day) {
    const std::int64_t shifted = year - (month <= 2 ? 1 : 0);  // years that begin in March end with the leap day
    const std::int64_t era = floorDivide(shifted, 400);
    const std::int64_t yearOfEra = shifted - era * 400;
    const std::int64_t dayOfYear = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5;
    return era * 146097 + yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear + day - 1 - 719468;
}

constexpr CivilDay civilDayOf(std::int64_t dayNumber) {
    const std::int64_t shifted = dayNumber + 719468;
    const std::int64_t era = floorDivide(shifted, 146097);
    const std::int64_t dayOfEra = shifted - era * 146097;
    const std::int64_t yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const std::int64_t dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const std::int64_t month = (5 * dayOfYear + 2) / 153;
    CivilDay civil;
    civil.day = static_cast<int>(dayOfYear - (153 * month + 2) / 5 + 1);
    civil.month = static_cast<int>(month < 10 ? month + 3 : month - 9);
    civil.year = yearOfEra + era * 400 + (civil.month <= 2 ? 1 : 0);
    return civil;
}

/// 0 (Sunday) to 6 (Saturday).
constexpr int weekdayIndexOf(std::int64_t dayNumber) { return static_cast<int>(floorModulo(dayNumber + 4, 7)); }

}  // namespace dayward
