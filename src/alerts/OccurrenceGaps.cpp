#include "alerts/OccurrenceGaps.h"

#include <algorithm>
#include <utility>

#include "Classes/Event/HHEvent.h"

namespace dayward {

namespace {

constexpr TimeInterval kHalfDay{43200};

}  // namespace

XELEventMath eventMath(const HHEvent& event) { return {event.rrule(), event.date(), event.times()}; }

OccurrenceGaps::OccurrenceGaps(Date from, Date until, DayAfter dayAfter)
    : at_(from), until_(until), dayAfter_(std::move(dayAfter)) {}

void OccurrenceGaps::add(const HHEvent& event, Date next) { keep({&event, next}, next); }

void OccurrenceGaps::keep(Source source, std::optional<Date> next) {
    if (!next) return;
    source.next = *next;
    sources_.push_back(std::move(source));
    std::ranges::push_heap(sources_, isLater);
}

OccurrenceGaps::Source OccurrenceGaps::takeFirst() {
    std::ranges::pop_heap(sources_, isLater);
    Source first = std::move(sources_.back());
    sources_.pop_back();
    return first;
}

std::optional<OccurrenceGaps::Gap> OccurrenceGaps::nextGap() {
    while (!isOver_ && at_ <= until_) {
        const Date end = dayAfter_(at_);
        const auto later = laterOccurrence(end);
        const Date from = std::exchange(at_, later.value_or(at_));
        if (later && *later <= end) continue;
        isOver_ = !later;
        return Gap{from, later};
    }
    return std::nullopt;
}

/// An occurrence up to the end of the day, preferably a late one; where there is none, the next one.
std::optional<Date> OccurrenceGaps::laterOccurrence(Date end) {
    while (runner_ || (!sources_.empty() && sources_.front().next <= at_)) {
        Source source = runner_ ? *std::exchange(runner_, std::nullopt) : takeFirst();
        const auto later = laterOccurrence(source, end);
        if (later && *later <= end) {
            runner_ = std::move(source);
            return later;
        }
        keep(std::move(source), later);
    }
    if (sources_.empty()) return std::nullopt;
    runner_ = takeFirst();
    return runner_->next;
}

std::optional<Date> OccurrenceGaps::laterOccurrence(Source& source, Date end) const {
    if (!source.math) source.math = eventMath(*source.event);
    const auto next = source.math->dateAfterDate(at_);
    if (!next || *next > end) return next;
    for (TimeInterval step = kHalfDay; at_ + step > *next; step = step / 2) {
        const auto later = source.math->dateAfterDate(at_ + step);
        if (later && *later <= end) return later;
    }
    return next;
}

}  // namespace dayward
