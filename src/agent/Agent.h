// What the process does when it wakes: shows what is due, keeps the badge, fetches, and takes the user's answers.
//
// Whoever waits tells needWake() and calls wake() while wantsWake(), which the user's answers make true as well. The
// agent's thread only.
#pragma once

#include <deque>
#include <optional>
#include <string>

#include "agent/AgentRequests.h"
#include "agent/BackgroundFetch.h"
#include "agent/Deliverer.h"
#include "agent/NotificationDisplay.h"

namespace dayward {

class Agent final : public NotificationDisplayListener, public AgentRequests {
public:
    Agent(const Deliverer::Parts& parts, ScheduleRefresher& refresher);
    ~Agent() override;
    Agent(const Agent&) = delete;
    Agent& operator=(const Agent&) = delete;

    void wake();
    /// The clock, the schedule or the zone may be another.
    void needWake() { wantsWake_ = true; }
    [[nodiscard]] bool wantsWake() const { return wantsWake_; }
    /// When it is to be woken by the wall clock; one that has passed since the last wake is at once.
    [[nodiscard]] std::optional<Date> nextMoment() const;
    /// How long until something that failed is tried again.
    [[nodiscard]] std::optional<TimeInterval> retryAfter() const;
    /// Somebody has scheduled something once; nothing is fetched before that.
    [[nodiscard]] bool isNeeded() const;
    [[nodiscard]] bool isFetching() const { return fetch_.isRunning(); }

    // AgentRequests
    Result<> showNow(const LocalNotification& notification) override;
    /// At the next wake.
    void refresh() override;
    [[nodiscard]] std::size_t scheduledCount() const override {
        return schedule().scheduled.size() + schedule().snoozed.size();
    }
    /// As of the last wake.
    [[nodiscard]] const NotificationSchedule::Content& schedule() const { return deliverer_.schedule(); }

    void didOpen(const std::string& key) override;
    void didSnooze(const std::string& key, Snooze snooze) override;
    void displayDidAppear() override;

private:
    static constexpr std::size_t kMostUnscheduled = 16;

    [[nodiscard]] const LocalNotification* shown(const std::string& key) const;
    void showBadge();
    void didFetch(bool isRebuilt);

    const AgentTime& time_;
    NotificationDisplay& display_;
    ApplicationLink& link_;
    Deliverer deliverer_;
    BackgroundFetch fetch_;
    Date wokenAt_;                       ///< when the last wake began
    std::optional<std::int64_t> badge_;  ///< as it is shown
    std::deque<DueAlert> unscheduled_;   ///< shown at once, the latest last
    bool wantsWake_ = true;
};

}  // namespace dayward
