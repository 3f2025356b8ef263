#include "alerts/NearestNotifications.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "Classes/Event/HHEvent.h"
#include "alerts/EventNotification.h"
#include "alerts/EventNotifications.h"
#include "alerts/FirstFireDate.h"
#include "alerts/NotificationDifference.h"

namespace dayward {

namespace {

struct Candidate {
    const HHEvent* event;
    FirstFireDate::Answer begin;
};

/// For a heap whose top is the candidate that begins first, in the order of firesBefore().
bool beginsLater(const Candidate& one, const Candidate& other) {
    return one.begin.bound != other.begin.bound ? one.begin.bound > other.begin.bound
                                                : one.event->identifier() > other.event->identifier();
}

/// Whether any of its notifications may come before that one.
bool mayComeBefore(const Candidate& candidate, const LocalNotification& notification) {
    if (!notification.fireDate || candidate.begin.bound != *notification.fireDate)
        return !notification.fireDate || candidate.begin.bound < *notification.fireDate;
    const auto owner = eventIdentifier(notification);
    return !owner || candidate.event->identifier() < *owner;
}

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
    const HHEvent* next(const LocalNotification* last) {
        while (!candidates_.empty() && (last == nullptr || mayComeBefore(candidates_.front(), *last))) {
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

/// The first ones of those added, in order; what is equal in it keeps its order. Only places are moved.
class Nearest {
public:
    explicit Nearest(std::size_t count) : count_(count) {}

    void add(LocalNotification notification) {
        const auto comesBefore = [](const auto& one, const auto& other) { return firesBefore(*one, *other); };
        auto added = std::make_unique<LocalNotification>(std::move(notification));
        const auto place = std::upper_bound(ordered_.begin(), ordered_.end(), added, comesBefore);
        if (place == ordered_.end() && ordered_.size() == count_) return;
        ordered_.insert(place, std::move(added));
        if (ordered_.size() > count_) ordered_.pop_back();
    }
    /// Null while there is room for more.
    [[nodiscard]] const LocalNotification* last() const {
        return ordered_.size() < count_ ? nullptr : ordered_.back().get();
    }
    std::vector<LocalNotification> take() {
        std::vector<LocalNotification> result;
        result.reserve(ordered_.size());
        for (const auto& one : ordered_) result.push_back(std::move(*one));
        return result;
    }

private:
    const std::size_t count_;
    std::vector<std::unique_ptr<LocalNotification>> ordered_;
};

}  // namespace

std::vector<LocalNotification> nearestNotifications(const std::vector<std::shared_ptr<HHEvent>>& events,
                                                    std::vector<LocalNotification> others, std::size_t count) {
    Nearest nearest(count);
    for (LocalNotification& one : others) nearest.add(std::move(one));
    if (count == 0) return {};
    Candidates candidates(events);
    while (const HHEvent* event = candidates.next(nearest.last())) {
        const LocalNotification* last = nearest.last();
        for (LocalNotification& one : notificationsOfEvent(*event, last != nullptr ? last->fireDate : std::nullopt)) {
            nearest.add(std::move(one));
        }
    }
    return nearest.take();
}

}  // namespace dayward
