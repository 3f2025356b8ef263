#include "recurrence/DayFilter.h"

#include <algorithm>

#include "platform/CivilDay.h"

namespace dayward {

namespace {

/// Negative and numbered days never equal a date's own fields: libical reads them so.
std::uint32_t bitsOf(const ParsedRule::Values& values) {
    if (values.empty()) return ~0U;
    std::uint32_t bits = 0;
    for (const int value : values) {
        if (value > 0 && value < 32) bits |= 1U << value;
    }
    return bits;
}

bool has(std::uint32_t bits, int value) { return (bits >> value & 1) != 0; }

}  // namespace

DayFilter::DayFilter(const ParsedRule& rule)
    : months_(bitsOf(rule.months())),
      daysOfMonth_(bitsOf(rule.daysOfMonth())),
      weekdays_(bitsOf(rule.days())),
      limitsDaysOfYear_(!rule.daysOfYear().empty()) {
    for (const int day : rule.daysOfYear()) {
        if (day > 0) daysOfYear_.set(static_cast<std::size_t>(day));
    }
}

bool DayFilter::allows(std::int64_t day) const {
    if (!has(weekdays_, weekdayIndexOf(day) + 1)) return false;
    const CivilDay date = civilDayOf(day);
    if (!has(months_, date.month) || !has(daysOfMonth_, date.day)) return false;
    return !limitsDaysOfYear_ || daysOfYear_[static_cast<std::size_t>(day - dayNumberOf(date.year, 1, 1) + 1)];
}

std::optional<std::int64_t> DayFilter::nextAfter(std::int64_t day, std::int64_t last) const {
    // The calendar repeats after an era, its weekdays included.
    last = std::min(last, day + kDaysOfEra);
    while (++day <= last) {
        if (allows(day)) return day;
    }
    return std::nullopt;
}

}  // namespace dayward
