#include "widget/WidgetContent.h"

#include <algorithm>
#include <cmath>
#include <tuple>

#include "Classes/Other/Date/EventDateText.h"
#include "alerts/WidgetEvent.h"
#include "platform/Calendar.h"
#include "platform/Environment.h"
#include "platform/Strings.h"

namespace dayward {
namespace {

using Events = std::vector<std::shared_ptr<WidgetEvent>>;
using Dates = WidgetEvent::DatesCalculation;

/// Moments are asked so much later than the whole second: an occurrence's own first moment is not within it yet.
constexpr TimeInterval kPastTheSecond{0.001};

struct Day {
    Date begin, end;
    [[nodiscard]] bool contains(Date date) const { return date >= begin && date < end; }
};

Day dayOf(Date now) {
    const auto calendar = Environment::current().calendar();
    const CalendarUnits units = CalendarUnits(CalendarUnit::year) | CalendarUnit::month | CalendarUnit::day;
    const Date begin = calendar->dateFromComponents(calendar->components(units, now)).value_or(now);
    return {begin, calendar->dateByAddingUnit(CalendarUnit::day, 1, begin).value_or(begin + TimeInterval(86400))};
}

struct Candidate {
    const std::shared_ptr<WidgetEvent>* event;
    Dates dates;
    bool isToday;
};

bool isToday(const Dates& dates, Date now, const Day& today) {
    const auto occurrence = dates.occurrence();
    return dates.isRunning(now) || (occurrence && today.contains(*occurrence));
}

std::vector<Candidate> chosenEvents(const Events& events, std::size_t count, Date now, const Day& today) {
    std::vector<Candidate> chosen;
    for (const auto& event : events) {
        if (chosen.size() == count) break;
        const Dates dates = event->datesAt(now);
        chosen.push_back({&event, dates, isToday(dates, now, today)});
    }
    return chosen;
}

std::vector<Candidate> todaysEvents(const Events& events, std::size_t count, Date now, const Day& today) {
    std::vector<Candidate> coming;
    for (const auto& event : events) {
        const Dates dates = event->datesAt(now);
        const bool isOfToday = isToday(dates, now, today);
        if (isOfToday || dates.next) coming.push_back({&event, dates, isOfToday});
    }
    const auto order = [](const Candidate& candidate) {
        const WidgetEvent& event = **candidate.event;
        return std::tuple(!candidate.isToday, *candidate.dates.occurrence(), event.name, event.key());
    };
    const auto end = coming.begin() + static_cast<std::ptrdiff_t>(std::min(count, coming.size()));
    std::ranges::partial_sort(coming, end, {}, order);
    coming.erase(end, coming.end());
    return coming;
}

WidgetRow rowOf(const Candidate& candidate, Date now) {
    const WidgetEvent& event = **candidate.event;
    WidgetRow row;
    row.event = *candidate.event;
    row.nextDate = candidate.dates.occurrence();
    row.isComing = candidate.dates.isRunning(now);
    row.isToday = candidate.isToday;
    row.title = event.titleToDate(row.nextDate);
    if (row.title.empty()) row.title = localized("No name");
    row.date = row.nextDate ? EventDateText::textFromDate(*row.nextDate, EventDateTextAll) : localized("No date!");
    row.countdown = row.isComing ? localized("Now") : event.countdownToDate(row.nextDate);
    return row;
}

/// The countdown as another moment would show it.
std::optional<std::string> countdownAt(Date moment, const WidgetEvent& event, Date occurrence) {
    auto& clock = dynamic_cast<FixedClock&>(Environment::current().clock());
    const Date now = clock.now();
    clock.set(moment);
    auto countdown = event.countdownToDate(occurrence);
    clock.set(now);
    return countdown;
}

/// The first whole second after now, and not after `end`, at which the countdown is another; `end` where it stays.
/// Up to there it only runs on, so that halving finds it.
Date countdownChange(const WidgetRow& row, Date now, Date end) {
    double same = std::floor(now.secondsSinceReference());
    double other = std::ceil(end.secondsSinceReference());
    const auto isSame = [&](double second) {
        return countdownAt(Date::sinceReference(second) + kPastTheSecond, *row.event, *row.nextDate) == row.countdown;
    };
    if (same + 1 < other && !isSame(same + 1)) return Date::sinceReference(same + 1);
    while (other - same > 1) {
        const double middle = std::floor((same + other) / 2);
        (isSame(middle) ? same : other) = middle;
    }
    return Date::sinceReference(other);
}

/// Up to where a countdown only runs on: where the clocks are set back it may grow again.
Date steadyUntil(Date now, Date midnight) {
    return std::min(midnight, Environment::current().timeZone().nextTransitionAfter(now).value_or(midnight));
}

/// When the row may be another, `latest` at the latest.
Date rowChange(const WidgetRow& row, const Dates& dates, Date now, Date latest) {
    if (!row.nextDate) return latest;
    Date end = latest;
    for (const Date edge : {*row.nextDate, *row.nextDate + dates.duration}) {
        if (edge > now) end = std::min(end, edge);
    }
    return row.isComing ? end : countdownChange(row, now, end);
}

}  // namespace

WidgetContent widgetContent(const Events& events, WidgetType type, std::size_t count) {
    const Date now = Environment::current().now();
    const Day today = dayOf(now);
    const auto candidates = type == WidgetType::selectedEvents ? chosenEvents(events, count, now, today)
                                                               : todaysEvents(events, count, now, today);
    WidgetContent content;
    if (events.empty()) return content;
    const Date latest = steadyUntil(now, today.end);
    Date change = latest;
    for (const Candidate& candidate : candidates) {
        content.rows.push_back(rowOf(candidate, now));
        change = std::min(change, rowChange(content.rows.back(), candidate.dates, now, latest));
    }
    content.changesAt = change + kPastTheSecond;
    return content;
}

}  // namespace dayward
