#include "alerts/BadgeNumbers.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "Classes/Event/HHEvent.h"
#include "alerts/OccurrenceGaps.h"
#include "platform/Calendar.h"
#include "platform/Environment.h"

namespace dayward {

namespace {

constexpr TimeInterval kDay{86400};
constexpr TimeInterval kSecond{1};

/// The first occurrence after that moment. A running one has begun; what comes after it must be asked for.
std::optional<Date> firstOccurrence(const HHEvent& event, Date after) {
    const auto next = event.datesAt(after).next;
    return next && *next <= after ? eventMath(event).dateAfterDate(after) : next;
}

std::int64_t daysUntil(Date occurrence, Date now) {
    const double seconds = std::ceil((occurrence - now).seconds());
    return wholeSeconds((seconds - 1) / kDay.seconds()) + 1;
}

void addDaysBefore(std::vector<BadgeChange>& changes, const OccurrenceGaps::Gap& gap, Date until) {
    for (std::int64_t day = wholeSeconds((*gap.to - gap.from).seconds() / kDay.seconds()); day > 0; --day) {
        const Date date = *gap.to - kDay * static_cast<double>(day);
        if (date > until) return;
        if (date > gap.from) changes.push_back({date, day});
    }
}

/// The latest occurrence that is not after that moment, found by halving the time in which it must lie.
std::optional<Date> latestOccurrence(const XELEventMath& math, Date now) {
    const std::vector<Date> starts = math.getStartDates();
    if (starts.empty()) return std::nullopt;
    const auto upToNow = [&](Date after) {
        const auto next = math.dateAfterDate(after);
        return next && *next <= now ? next : std::nullopt;
    };
    std::optional<Date> latest = upToNow(std::ranges::min(starts) - kSecond);
    Date end = now;
    while (latest) {
        const auto next = upToNow(*latest);
        if (!next) break;
        const Date middle = *next + (end - *next) / 2;
        const auto later = upToNow(middle);
        if (!later) end = middle;
        latest = later ? later : next;
    }
    return latest;
}

/// The days of a calendar, counted on the wall clock from a moment.
class DaysFrom {
public:
    DaysFrom(Date begin, const Calendar& calendar) : begin_(begin), calendar_(calendar) {}

    [[nodiscard]] Date date(std::int64_t days) const {
        return calendar_.dateByAddingUnit(CalendarUnit::day, days, begin_)
            .value_or(begin_ + kDay * static_cast<double>(days));
    }
    [[nodiscard]] std::int64_t daysUntil(Date now) const {
        std::int64_t days = std::max<std::int64_t>(0, wholeSeconds((now - begin_).seconds() / kDay.seconds()) - 1);
        while (date(days + 1) <= now) ++days;
        return days;
    }

private:
    Date begin_;
    const Calendar& calendar_;
};

}  // namespace

std::int64_t daysBefore(const Events& events, Date now) {
    std::optional<Date> nearest;
    for (const auto& event : events) {
        const auto next = firstOccurrence(*event, now);
        if (next && (!nearest || *next < *nearest)) nearest = next;
    }
    return nearest ? daysUntil(*nearest, now) : 0;
}

std::vector<BadgeChange> changesOfDaysBefore(const Events& events, Date now, Date until) {
    OccurrenceGaps gaps(now, until, [](Date date) { return date + kDay; });
    for (const auto& event : events) {
        if (const auto next = firstOccurrence(*event, now)) gaps.add(*event, *next);
    }
    std::vector<BadgeChange> changes;
    while (const auto gap = gaps.nextGap()) {
        if (gap->from > now) changes.push_back({gap->from, gap->to ? daysUntil(*gap->to, gap->from) : 0});
        if (gap->to) addDaysBefore(changes, *gap, until);
    }
    return changes;
}

std::int64_t daysAfter(const HHEvent& event, Date now) {
    const auto latest = latestOccurrence(eventMath(event), now);
    return latest ? DaysFrom(*latest, *Environment::current().calendar()).daysUntil(now) : 0;
}

std::vector<BadgeChange> changesOfDaysAfter(const HHEvent& event, Date now, Date until) {
    const auto calendar = Environment::current().calendar();
    const XELEventMath math = eventMath(event);
    const auto latest = latestOccurrence(math, now);
    const auto begin = latest ? latest : math.dateAfterDate(now);
    if (!begin) return {};
    OccurrenceGaps gaps(*begin, until, [&](Date date) { return DaysFrom(date, *calendar).date(1); });
    if (const auto next = math.dateAfterDate(*begin)) gaps.add(event, *next);
    std::vector<BadgeChange> changes;
    while (const auto gap = gaps.nextGap()) {
        const DaysFrom days(gap->from, *calendar);
        const Date end = gap->to ? std::min(*gap->to, until + kSecond) : until + kSecond;
        for (std::int64_t day = days.daysUntil(std::max(gap->from, now)) + 1; days.date(day) < end; ++day) {
            if (days.date(day) <= until) changes.push_back({days.date(day), day});
        }
        if (gap->to && *gap->to <= until) changes.push_back({*gap->to, 0});
    }
    return changes;
}

}  // namespace dayward
