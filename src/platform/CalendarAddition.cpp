#include <algorithm>

#include "platform/Calendar.h"
#include "platform/CalendarAddition.h"

namespace dayward {

using namespace arithmetic;

namespace {

/// The same day so many months later, or the last day of a shorter month.
std::int64_t addMonths(std::int64_t day, std::int64_t months) {
    const CivilDay civil = civilDayOf(day);
    const std::int64_t total = civil.month - 1 + months;
    const std::int64_t year = civil.year + floorDivide(total, 12);
    const int month = static_cast<int>(floorModulo(total, 12)) + 1;
    return dayNumberOf(year, month, std::min(civil.day, daysInMonthOf(year, month)));
}

bool isWithinLimits(const CalendarAmounts& amounts) {
    constexpr double kGreatestLength = 4 * kGreatestSeconds;
    return isWithin(amounts.years, 2 * kGreatestYear) && isWithin(amounts.months, 24 * kGreatestYear) &&
           isWithin(amounts.days, 2 * kGreatestDay) && std::abs(amounts.seconds) <= kGreatestLength;
}

/// a + b * factor, where huge numbers stay huge instead of wrapping around.
std::int64_t plus(std::int64_t a, const std::optional<std::int64_t>& b, std::int64_t factor) {
    constexpr std::int64_t kHuge = std::int64_t{1} << 60;
    if (!b) return a;
    if (!isWithin(*b, kHuge / factor)) return kHuge;
    return std::clamp(a + *b * factor, -kHuge, kHuge);
}

CalendarAmounts amountsOf(const DateComponents& components) {
    CalendarAmounts amounts;
    amounts.years = plus(plus(0, components.year, 1), components.yearForWeekOfYear, 1);
    amounts.months = plus(plus(0, components.month, 1), components.quarter, 3);
    for (const auto* weeks :
         {&components.week, &components.weekOfMonth, &components.weekOfYear, &components.weekdayOrdinal}) {
        amounts.days = plus(amounts.days, *weeks, 7);
    }
    amounts.days = plus(plus(amounts.days, components.day, 1), components.weekday, 1);
    const auto seconds = [](const std::optional<std::int64_t>& field, double length) {
        return static_cast<double>(field.value_or(0)) * length;
    };
    amounts.seconds = seconds(components.hour, 3600) + seconds(components.minute, 60) + seconds(components.second, 1) +
                      seconds(components.nanosecond, 1e-9);
    return amounts;
}

}  // namespace

Date addAmounts(const TimeZone& zone, const CalendarAmounts& amounts, Date date) {
    // Without a calendar unit the instant stays as it is, also in the second pass of a repeated hour.
    if (amounts.years != 0 || amounts.months != 0 || amounts.days != 0) {
        LocalTime local = localTimeOf(zone, date);
        if (amounts.years != 0) local.day = addMonths(local.day, amounts.years * 12);
        if (amounts.months != 0) local.day = addMonths(local.day, amounts.months);
        local.day += amounts.days;
        date = dateOf(zone, local);
    }
    return date + TimeInterval(amounts.seconds);
}

std::optional<Date> Calendar::dateByAddingComponents(const DateComponents& components, Date date) const {
    const CalendarAmounts amounts = amountsOf(components);
    if (!isWithinLimits(amounts)) return std::nullopt;
    const Date result = addAmounts(zone_, amounts, Date::sinceReference(clampedSeconds(date.secondsSinceReference())));
    if (std::abs(result.secondsSinceReference()) > kGreatestResult) return std::nullopt;
    return result;
}

std::optional<Date> Calendar::dateByAddingUnit(CalendarUnit unit, std::int64_t value, Date date) const {
    DateComponents components;
    auto* field = components.field(unit);
    if (field == nullptr || unit == CalendarUnit::era) return std::nullopt;
    *field = value;
    return dateByAddingComponents(components, date);
}

}  // namespace dayward
