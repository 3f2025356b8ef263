// The units of the calendar, with the numbers that archives store.
#pragma once

#include <cstdint>

namespace dayward {

/// One unit. The numbers are part of the file format and never change.
enum class CalendarUnit : std::uint64_t {
    era = 2,
    year = 4,
    month = 8,
    day = 16,
    hour = 32,
    minute = 64,
    second = 128,
    week = 256,  ///< the older week unit, the one that intervals and archives use
    weekday = 512,
    weekdayOrdinal = 1024,
    quarter = 2048,
    weekOfMonth = 4096,
    weekOfYear = 8192,  ///< the newer week unit
    yearForWeekOfYear = 16384,
    nanosecond = 32768,
    timeZone = 2097152,
};

/// A set of units, as the bit mask that archives store.
class CalendarUnits {
public:
    constexpr CalendarUnits() = default;
    constexpr CalendarUnits(CalendarUnit unit) : mask_(static_cast<std::uint64_t>(unit)) {}  // NOLINT: a unit is a set of one
    static constexpr CalendarUnits fromMask(std::uint64_t mask) {
        CalendarUnits units;
        units.mask_ = mask;
        return units;
    }

    [[nodiscard]] constexpr std::uint64_t mask() const { return mask_; }
    [[nodiscard]] constexpr bool contains(CalendarUnit unit) const {
        return (mask_ & static_cast<std::uint64_t>(unit)) != 0;
    }
    [[nodiscard]] constexpr bool isEmpty() const { return mask_ == 0; }

    constexpr CalendarUnits operator|(CalendarUnits other) const { return fromMask(mask_ | other.mask_); }
    constexpr CalendarUnits& operator|=(CalendarUnits other) { mask_ |= other.mask_; return *this; }
    constexpr CalendarUnits without(CalendarUnits other) const { return fromMask(mask_ & ~other.mask_); }
    constexpr bool operator==(const CalendarUnits&) const = default;

private:
    std::uint64_t mask_ = 0;
};

constexpr CalendarUnits operator|(CalendarUnit a, CalendarUnit b) { return CalendarUnits(a) | CalendarUnits(b); }

/// year through weekdayOrdinal: what the date helpers request when they read fields.
inline constexpr CalendarUnits kDateHelperUnits = CalendarUnits::fromMask(2044);
/// year through second.
inline constexpr CalendarUnits kYearToSecondUnits = CalendarUnits::fromMask(252);

}  // namespace dayward
