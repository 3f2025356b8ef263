#include "platform/Calendar.h"
#include "platform/CalendarArithmetic.h"

namespace dayward {

using namespace arithmetic;

namespace {

bool isWeek(CalendarUnit unit) {
    return unit == CalendarUnit::week || unit == CalendarUnit::weekOfMonth || unit == CalendarUnit::weekOfYear;
}

bool isMonthOrYear(CalendarUnit unit) { return unit == CalendarUnit::month || unit == CalendarUnit::year; }

/// Days first to last (both inclusive) of a month, a quarter or a year around a day.
struct Days {
    std::int64_t first = 0, last = 0;
};

Days daysOf(CalendarUnit larger, const CivilDay& civil) {
    int first = civil.month, last = civil.month;
    if (larger == CalendarUnit::quarter) {
        first = (civil.month - 1) / 3 * 3 + 1;
        last = first + 2;
    } else if (larger == CalendarUnit::year) {
        first = 1;
        last = 12;
    }
    return {dayNumberOf(civil.year, first, 1), dayNumberOf(civil.year, last, daysInMonthOf(civil.year, last))};
}

std::optional<Calendar::Range> daysInUnit(CalendarUnit larger, std::int64_t day, int firstWeekday) {
    const CivilDay civil = civilDayOf(day);
    if (isMonthOrYear(larger) || larger == CalendarUnit::quarter) {
        const Days days = daysOf(larger, civil);
        return Calendar::Range{1, days.last - days.first + 1};
    }
    if (!isWeek(larger)) return std::nullopt;
    // The days of this month that lie in the week.
    const Days month = daysOf(CalendarUnit::month, civil);
    const std::int64_t weekStart = day - daysIntoWeek(weekdayIndexOf(day) + 1, firstWeekday);
    const std::int64_t first = std::max(weekStart, month.first), last = std::min(weekStart + 6, month.last);
    return Calendar::Range{first - month.first + 1, last - first + 1};
}

std::optional<Calendar::Range> monthsInUnit(CalendarUnit larger, const CivilDay& civil) {
    if (larger == CalendarUnit::year) return Calendar::Range{1, 12};
    if (larger == CalendarUnit::quarter) return Calendar::Range{(civil.month - 1) / 3 * 3 + 1, 3};
    return std::nullopt;
}

Calendar::Range weeksInDays(const Days& days, int firstWeekday, int minimumDays) {
    const std::int64_t start = firstWeekStart(days.first, firstWeekday, minimumDays);
    const std::int64_t first = weekNumber(days.first, start);
    return {first, weekNumber(days.last, start) - first + 1};
}

/// First local day of the unit and of the next one.
std::optional<Days> boundsOf(CalendarUnit unit, std::int64_t day, int firstWeekday) {
    if (unit == CalendarUnit::day || unit == CalendarUnit::weekday) return Days{day, day + 1};
    if (isWeek(unit)) {
        const std::int64_t start = day - daysIntoWeek(weekdayIndexOf(day) + 1, firstWeekday);
        return Days{start, start + 7};
    }
    if (!isMonthOrYear(unit) && unit != CalendarUnit::quarter) return std::nullopt;
    const Days days = daysOf(unit, civilDayOf(day));
    return Days{days.first, days.last + 1};
}

double lengthOfElapsed(CalendarUnit unit) {
    switch (unit) {
        case CalendarUnit::hour: return 3600;
        case CalendarUnit::minute: return 60;
        case CalendarUnit::second: return 1;
        default: return 0;
    }
}

}  // namespace

std::optional<Calendar::Range> Calendar::rangeOfUnit(CalendarUnit smaller, CalendarUnit larger, Date date) const {
    const std::int64_t day = localTimeOf(zone_, date).day;
    const CivilDay civil = civilDayOf(day);
    const bool holdsDays = isMonthOrYear(larger) || larger == CalendarUnit::quarter || isWeek(larger);
    const bool holdsHours = holdsDays || larger == CalendarUnit::day || larger == CalendarUnit::weekday;
    const bool holdsMinutes = holdsHours || larger == CalendarUnit::hour;
    switch (smaller) {
        case CalendarUnit::day: return daysInUnit(larger, day, firstWeekday_);
        case CalendarUnit::month: return monthsInUnit(larger, civil);
        case CalendarUnit::quarter: return larger == CalendarUnit::year ? std::optional(Range{1, 4}) : std::nullopt;
        case CalendarUnit::weekday: return holdsDays ? std::optional(Range{1, 7}) : std::nullopt;
        case CalendarUnit::hour: return holdsHours ? std::optional(Range{0, 24}) : std::nullopt;
        case CalendarUnit::minute: return holdsMinutes ? std::optional(Range{0, 60}) : std::nullopt;
        case CalendarUnit::second:
            return holdsMinutes || larger == CalendarUnit::minute ? std::optional(Range{0, 60}) : std::nullopt;
        case CalendarUnit::week:
        case CalendarUnit::weekOfMonth:
        case CalendarUnit::weekOfYear:
            if (!isMonthOrYear(larger)) return std::nullopt;
            return weeksInDays(daysOf(larger, civil), firstWeekday_, minimumDaysInFirstWeek_);
        case CalendarUnit::weekdayOrdinal: {
            if (!isMonthOrYear(larger)) return std::nullopt;
            const Days days = daysOf(larger, civil);
            const std::int64_t firstSame = days.first + floorModulo(day - days.first, 7);
            return Range{1, (days.last - firstSame) / 7 + 1};
        }
        default: return std::nullopt;
    }
}

std::optional<Calendar::Span> Calendar::rangeOfUnit(CalendarUnit unit, Date date) const {
    const LocalTime local = localTimeOf(zone_, date);
    if (const auto bounds = boundsOf(unit, local.day, firstWeekday_)) {
        const Date start = dateOf(zone_, {bounds->first, 0});
        return Span{start, dateOf(zone_, {bounds->last, 0}) - start};
    }
    const double length = lengthOfElapsed(unit);
    if (length == 0) return std::nullopt;
    // Back by what the clock shows past the unit's start, so that both passes of an hour have their own.
    const double past = local.seconds - std::floor(local.seconds / length) * length;
    return Span{Date::sinceReference(clampedSeconds(date.secondsSinceReference()) - past), TimeInterval(length)};
}

}  // namespace dayward
