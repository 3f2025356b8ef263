#include "alerts/NearestNotifications.h"

#include <algorithm>
#include <iterator>
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

}  // namespace

std::vector<LocalNotification> nearestNotifications(const std::vector<std::shared_ptr<HHEvent>>& events,
                                                    std::vector<LocalNotification> others, std::size_t count) {
    std::vector<LocalNotification> nearest = std::move(others);
    sortAndCut(nearest, count);
    if (count == 0) return nearest;
    Candidates candidates(events);
    while (const HHEvent* event = candidates.next(nearest.size() < count ? nullptr : &nearest.back())) {
        std::ranges::move(notificationsOfEvent(*event), std::back_inserter(nearest));
        sortAndCut(nearest, count);
    }
    return nearest;
}

}  // namespace dayward
