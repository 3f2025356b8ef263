// Shows each notification that is due, exactly once: claims it durably, shows it, marks it.
//
// A wake is one change under the schedule's lock: what is due leaves the schedule and enters the record of
// deliveries before anything is shown. Two agents of one home share the work by that lock. Where the disk takes
// nothing for a minute, what is due is shown all the same and remembered in memory until it can be written; what it
// could not read for a minute counts as damaged. Where nothing can show an alert, it stays claimed and is tried again.
// The agent's thread only.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "agent/AgentTime.h"
#include "agent/ApplicationLink.h"
#include "agent/Backoff.h"
#include "agent/DeliveryRecord.h"
#include "agent/NotificationDisplay.h"
#include "agent/Unwritten.h"
#include "platform/NotificationSchedule.h"

namespace dayward {

class Deliverer {
public:
    static constexpr TimeInterval kLateAfter{60};
    static constexpr std::size_t kFewestOfDigest = 3;  ///< so many late ones are shown as one
    static constexpr TimeInterval kWriteAgain{5};
    static constexpr int kTriesToWrite = 12;  ///< over a minute

    struct Parts {
        NotificationSchedule& schedule;
        DeliveryRecord& record;
        const AgentTime& time;
        NotificationDisplay& display;
        ApplicationLink& link;
        std::string claimant;                             ///< this process
        std::function<bool(const std::string&)> isAlive;  ///< whether a claimant still runs
    };

    explicit Deliverer(Parts parts);

    /// Shows what is due. Afterwards schedule() and record() are as the files are, with what could not be written.
    void deliver();
    [[nodiscard]] const NotificationSchedule::Content& schedule() const { return schedule_; }
    [[nodiscard]] const DeliveryRecord::Content& record() const { return record_; }

    /// These are written by the next deliver().
    void snooze(const LocalNotification& notification) { unwritten_.snoozed.push_back(notification); }
    void setFetched(Date date) { unwritten_.fetched = date; }
    void setRebuilt() { unwritten_.isRebuilt = true; }

    /// The display may work again.
    void displayDidAppear() { displayAgain_.hurry(); }
    /// How long until something is tried again; nothing where all is done.
    [[nodiscard]] std::optional<TimeInterval> retryAfter() const;

private:
    struct Claim;
    using Schedule = NotificationSchedule::Content;

    [[nodiscard]] bool isDue(const LocalNotification& notification) const;
    [[nodiscard]] std::vector<LocalNotification> dueOf(const Schedule& schedule) const;
    [[nodiscard]] bool isOrphan(const Delivery& delivery) const;
    bool read();
    void fail();
    [[nodiscard]] bool hasToWrite() const;
    void write();
    Claim claim(Schedule& schedule);
    void take(const Claim& claim, bool isWhole);
    void claimInMemory();
    void withdrawCancelled();
    [[nodiscard]] std::vector<std::string> keysOf(const LocalNotification& cancelled) const;
    [[nodiscard]] std::vector<DueAlert> pending() const;
    void show();
    Result<> showDigest(const std::vector<DueAlert>& alerts);
    Result<> showEach(const std::vector<DueAlert>& alerts);
    void noteShown(const std::vector<DueAlert>& alerts);
    void watchOthers();

    const Parts parts_;
    Schedule schedule_;
    DeliveryRecord::Content record_;
    Unwritten unwritten_;
    bool isRead_ = true;  ///< the files could be read
    Backoff writeAgain_, displayAgain_, lookAgain_;
};

}  // namespace dayward
