#include <libical/ical.h>

#include <algorithm>
#include <array>
#include <optional>

#include "platform/Calendar.h"
#include "recurrence/DaysOnly.h"
#include "recurrence/RuleWalk.h"

namespace dayward {

namespace {

using Frequency = ParsedRule::Frequency;

/// Intervals after which the calendar repeats and which lead past the last year: with them libical
/// looks at periods of one kind only.
constexpr short kYearsAlike = 20000;
constexpr short kMonthsAlike = 28800;

/// A month, or a year where the month is the start's.
struct Period {
    int year;
    int month;
};

/// Asks libical about one period.
bool matches(const ParsedRule& rule, const IcalTime& start, const Period& period) {
    icalrecurrencetype days = daysOnly(rule);
    icaltimetype first = icaltime_null_time();
    first.year = period.year;
    first.month = period.month;
    if (rule.frequency() == Frequency::monthly) {
        days.interval = kMonthsAlike;
        first.day = 1;
        if (rule.days().empty() && rule.daysOfMonth().empty()) {
            days.by_month_day[0] = static_cast<short>(start.day);
            days.by_month_day[1] = ICAL_RECURRENCE_ARRAY_MAX;
        }
    } else {
        days.interval = kYearsAlike;
        first.day = std::min(start.day, Calendar::daysInMonth(period.year, period.month));
    }
    icaltime_set_timezone(&first, icaltimezone_get_utc_timezone());
    icalrecur_iterator* iterator = icalrecur_iterator_new(days, first);
    if (iterator == nullptr) return false;
    icalrecur_iterator_free(iterator);
    return true;
}

/// A number for the kind of period: its length, its first weekday, and for years the length of the
/// year before, which decides the number of the first week.
std::size_t kindOf(Frequency frequency, const Period& period) {
    if (frequency == Frequency::monthly) {
        const int length = Calendar::daysInMonth(period.year, period.month) - 28;
        return static_cast<std::size_t>(length * 7 + Calendar::weekdayOf(period.year, period.month, 1) - 1);
    }
    const int leap = (Calendar::isLeapYear(period.year) ? 1 : 0) + (Calendar::isLeapYear(period.year - 1) ? 2 : 0);
    return static_cast<std::size_t>(leap * 7 + Calendar::weekdayOf(period.year, 1, 1) - 1);
}

}  // namespace

bool hasMatchingPeriod(const ParsedRule& rule, const IcalTime& start) {
    const bool isMonthly = rule.frequency() == Frequency::monthly;
    const bool hasDayLists = !rule.days().empty() || !rule.daysOfMonth().empty() || !rule.daysOfYear().empty() ||
                             !rule.weeks().empty() || !rule.months().empty() || !rule.setPositions().empty();
    if (!hasDayLists) return true;
    std::array<std::optional<bool>, 28> known;
    const std::int64_t step = rule.interval() * (isMonthly ? 1LL : 12LL);
    for (std::int64_t months = start.year * 12LL + start.month - 1; months / 12 <= kLastRuleYear; months += step) {
        const Period period{static_cast<int>(months / 12), static_cast<int>(months % 12) + 1};
        const auto& listed = rule.months();
        if (isMonthly && !listed.empty() && std::ranges::find(listed, period.month) == listed.end()) continue;
        auto& verdict = known[kindOf(rule.frequency(), period)];
        if (!verdict) verdict = matches(rule, start, period);
        if (*verdict) return true;
    }
    return false;
}

}  // namespace dayward
