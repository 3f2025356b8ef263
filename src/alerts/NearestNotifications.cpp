#include "alerts/NearestNotifications.h"

#include <algorithm>
#include <cmath>
#include <deque>
#include <utility>

#include "Classes/Event/HHEvent.h"
#include "alerts/EventNotifications.h"
#include "alerts/FirstFireDate.h"
#include "alerts/NotificationDifference.h"

namespace dayward {

namespace {

struct Candidate {
    const HHEvent* event;
    FirstFireDate::Answer begin;

    /// None of its notifications stands before it.
    [[nodiscard]] FirePlace place() const { return {begin.bound.secondsSinceReference(), &event->identifier()}; }
};

/// For a heap whose top is the candidate that begins first.
bool beginsLater(const Candidate& one, const Candidate& other) { return other.place() < one.place(); }

class Candidates {
public:
    explicit Candidates(const std::vector<std::shared_ptr<HHEvent>>& events) {
        candidates_.reserve(events.size());
        for (const auto& event : events) {
            if (const auto begin = firstFireDate_.of(*event)) candidates_.push_back({event.get(), *begin});
        }
        std::ranges::make_heap(candidates_, beginsLater);
    }

    /// The event that begins first, if one of its notifications may come before the last one; else null.
    const HHEvent* next(const FirePlace* last) {
        while (!candidates_.empty() && (last == nullptr || candidates_.front().place() < *last)) {
            std::ranges::pop_heap(candidates_, beginsLater);
            if (candidates_.back().begin.isSharp) {
                const HHEvent* event = candidates_.back().event;
                candidates_.pop_back();
                return event;
            }
            sharpenLast();
        }
        return nullptr;
    }

private:
    void sharpenLast() {
        Candidate& last = candidates_.back();
        const auto bound = firstFireDate_.sharpened(*last.event, last.begin);
        if (!bound) return candidates_.pop_back();
        last.begin.bound = *bound;
        last.begin.isSharp = true;
        std::ranges::push_heap(candidates_, beginsLater);
    }

    FirstFireDate firstFireDate_;
    std::vector<Candidate> candidates_;
};

/// The first ones of those added, in order; what is equal in it keeps its order. They are made when all are known.
class Nearest {
public:
    explicit Nearest(std::size_t count) : count_(count) { ordered_.reserve(count + 1); }

    /// Taken apart by take().
    void add(LocalNotification& made) { insert({firePlaceOf(made), &made}); }
    void add(EventNotifications& event, const EventNotifications::Firing& firing) {
        insert({{firing.fireDate.secondsSinceReference(), &event.event().identifier()}, nullptr, &event, firing});
    }
    /// Null while there is room for more.
    [[nodiscard]] const FirePlace* last() const {
        return ordered_.size() < count_ ? nullptr : &ordered_.back().place;
    }
    [[nodiscard]] std::vector<LocalNotification> take() const {
        std::vector<LocalNotification> result;
        result.reserve(ordered_.size());
        for (const Entry& one : ordered_) {
            result.push_back(one.made != nullptr ? std::move(*one.made) : one.event->notification(one.firing));
        }
        return result;
    }

private:
    /// A notification that is there, or one that an event can make.
    struct Entry {
        FirePlace place;
        LocalNotification* made = nullptr;
        EventNotifications* event = nullptr;
        EventNotifications::Firing firing = {};
    };

    void insert(const Entry& added) {
        const auto comesBefore = [](const Entry& one, const Entry& other) { return one.place < other.place; };
        const auto place = std::upper_bound(ordered_.begin(), ordered_.end(), added, comesBefore);
        if (place == ordered_.end() && ordered_.size() == count_) return;
        ordered_.insert(place, added);
        if (ordered_.size() > count_) ordered_.pop_back();
    }

    const std::size_t count_;
    std::vector<Entry> ordered_;
};

/// No more than there is room for can fire at the last moment or before it.
std::optional<Date> latestOf(const FirePlace* last) {
    if (last == nullptr || !std::isfinite(last->moment)) return std::nullopt;
    return Date::sinceReference(last->moment);
}

}  // namespace

std::vector<LocalNotification> nearestNotifications(const std::vector<std::shared_ptr<HHEvent>>& events,
                                                    std::vector<LocalNotification> others, std::size_t count) {
    if (count == 0) return {};
    Nearest nearest(count);
    for (LocalNotification& one : others) nearest.add(one);
    Candidates candidates(events);
    AlertTexts texts;
    std::deque<EventNotifications> opened;
    while (const HHEvent* event = candidates.next(nearest.last())) {
        EventNotifications& notifications = opened.emplace_back(*event, texts);
        for (const auto& firing : notifications.firings(latestOf(nearest.last()))) nearest.add(notifications, firing);
    }
    return nearest.take();
}

}  // namespace dayward
