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

/// Within these many eras of 400 years around year 0 the 32-bit arithmetic below holds; dates further away
/// are brought into the first one, for the calendar repeats after each era.
inline constexpr std::int64_t kNearEras = 1000;
inline constexpr std::int64_t kYearsOfEra = 400, kDaysOfEra = 146097;
/// From 0000-03-01 to 1970-01-01. Years that begin in March end with the leap day.
inline constexpr std::int64_t kDaysSinceMarch = 719468;

// Both ways as in C. Neri, L. Schneider, "Euclidean affine functions and their application to calendar
// algorithms" (2022): the divisions are by constants, and become multiplications.

/// The day number of a date; the month is 1 to 12, the day may lie outside of the month.
constexpr std::int64_t dayNumberOf(std::int64_t year, int month, std::int64_t day) {
    std::int64_t daysAway = -kNearEras * kDaysOfEra - kDaysSinceMarch;
    std::uint64_t shifted = static_cast<std::uint64_t>(year + kNearEras * kYearsOfEra);
    if (shifted - 1 >= static_cast<std::uint64_t>(2 * kNearEras * kYearsOfEra)) [[unlikely]] {
        const std::int64_t era = floorDivide(year, kYearsOfEra) - 1;
        daysAway = era * kDaysOfEra - kDaysSinceMarch;
        shifted = static_cast<std::uint64_t>(year - era * kYearsOfEra);
    }
    const bool isBeforeMarch = month <= 2;
    const auto marchYear = static_cast<std::uint32_t>(shifted) - (isBeforeMarch ? 1U : 0U);
    const auto marchMonth = static_cast<std::uint32_t>(month + (isBeforeMarch ? 12 : 0));
    const std::uint32_t century = marchYear / 100;
    const std::uint32_t days = 1461 * marchYear / 4 - century + century / 4 + (979 * marchMonth - 2919) / 32;
    return daysAway + days + day - 1;
}

constexpr CivilDay civilDayOf(std::int64_t dayNumber) {
    std::int64_t yearsAway = -kNearEras * kYearsOfEra;
    auto shifted = static_cast<std::uint64_t>(dayNumber + kDaysSinceMarch + kNearEras * kDaysOfEra);
    if (shifted >= static_cast<std::uint64_t>(2 * kNearEras * kDaysOfEra)) [[unlikely]] {
        const std::int64_t era = floorDivide(dayNumber + kDaysSinceMarch, kDaysOfEra);
        yearsAway = era * kYearsOfEra;
        shifted = static_cast<std::uint64_t>(dayNumber + kDaysSinceMarch - era * kDaysOfEra);
    }
    const std::uint32_t quarterDays = 4 * static_cast<std::uint32_t>(shifted) + 3;
    const std::uint32_t century = quarterDays / 146097;
    const std::uint64_t yearAndRest = std::uint64_t{2939745} * (quarterDays % 146097 | 3);
    const std::uint32_t yearOfCentury = static_cast<std::uint32_t>(yearAndRest >> 32);
    const std::uint32_t dayOfYear = static_cast<std::uint32_t>(yearAndRest) / 2939745 / 4;
    const std::uint32_t monthAndRest = 2141 * dayOfYear + 197913;
    const bool isAfterDecember = dayOfYear >= 306;
    return {yearsAway + 100 * century + yearOfCentury + (isAfterDecember ? 1 : 0),
            static_cast<int>(monthAndRest >> 16) - (isAfterDecember ? 12 : 0),
            static_cast<int>((monthAndRest & 0xFFFF) / 2141) + 1};
}

/// 0 (Sunday) to 6 (Saturday).
constexpr int weekdayIndexOf(std::int64_t dayNumber) { return static_cast<int>(floorModulo(dayNumber + 4, 7)); }

}  // namespace dayward
