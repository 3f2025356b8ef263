// Keeps the device's schedule of notifications equal to what the events want: within its limit the nearest
// ones, changed only where something differs.
//
// Class operations act on the current environment; any thread. One change of the schedule is carried out
// after the other. Nothing is scheduled where the environment has no device for it.
//
// What is due but has not been shown yet is the device's affair: it is neither cancelled nor scheduled again
// while its event is there, and takes its place within the limit. What the user put off goes with its event, and comes
// back where the event does while the process lives; other changes of the event leave it.
#pragma once

#include <atomic>
#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "Submodules/CorpLibrary2/Foundation/CCDelayedOperation.h"
#include "alerts/NotificationTargets.h"
#include "platform/LocalNotification.h"
#include "platform/Mutex.h"
#include "platform/NotificationCenter.h"
#include "platform/Result.h"

namespace dayward {

class Environment;
class LocalNotifications;
class NotificationPresenter;

class NotificationsManager {
public:
    /// Changes that follow each other within it are carried out as one.
    static constexpr TimeInterval kDelay{0.1};

    /// From now on each event that the store reports as updated or removed is handed to updateForEvent() or
    /// removeForEvent(), and the badge follows the count of missed events where it shows that. For the start of a
    /// program; a second call changes nothing.
    static void followStore();

    /// Asks for the permission to notify, once a process, as soon as there is an event.
    static void registerIfNeeds();
    /// Soon builds the event's notifications anew; the others stay.
    static void updateForEvent(const std::shared_ptr<HHEvent>& event);
    /// Soon takes the event's notifications away.
    static void removeForEvent(const std::shared_ptr<HHEvent>& event);
    /// Carries out the updates and removals that wait, and returns when that is done. For the end of a command. An
    /// error where the schedule could not be written, now or since the last time.
    static Result<> flush();

    /// Builds everything anew on the global queue, and sets the badge's number.
    static void refresh();
    /// The same on the calling thread; returns when it is done. An error where the schedule could not be written.
    static Result<> syncRefresh();
    /// How many refreshes have left the schedule as the events want it, since the program began.
    [[nodiscard]] static std::uint64_t refreshCount();
    /// What a refresh would schedule: the first notifications of all events and of the badge, by fire date.
    [[nodiscard]] static std::vector<LocalNotification> wantedNotifications();

    /// Shows one that fired while the program is in sight, with its sound; on the main queue.
    static void showNotification(const LocalNotification& notification);
    /// Where showNotification() shows; nothing is shown where there is none, or no longer. Main thread.
    static void setPresenter(const std::shared_ptr<NotificationPresenter>& presenter);

    /// Opens the event store. Use the class operations.
    explicit NotificationsManager(Environment& environment);
    ~NotificationsManager();

private:
    static NotificationsManager& shared();
    void follow();
    void take(const Notification& update);
    void showMissedCount();
    void add(NotificationTarget target);
    void registerOnce();
    void performBatch();
    void moveSnoozed(LocalNotifications& device, const std::set<std::string>& owners) DAYWARD_REQUIRES(changeMutex_);
    Result<> performRefresh();
    void show(const LocalNotification& notification);

    Environment& environment_;
    Mutex mutex_;
    bool isRegistered_ DAYWARD_GUARDED_BY(mutex_) = false;
    std::vector<NotificationTarget> targets_ DAYWARD_GUARDED_BY(mutex_);
    std::weak_ptr<NotificationPresenter> presenter_ DAYWARD_GUARDED_BY(mutex_);
    std::vector<NotificationCenter::Observation> observations_ DAYWARD_GUARDED_BY(mutex_);
    Mutex changeMutex_;  ///< from reading the events to the change of the schedule
    /// What went with events that were removed, by their identifiers.
    std::map<std::string, std::vector<LocalNotification>> snoozedOfRemoved_ DAYWARD_GUARDED_BY(changeMutex_);
    Result<> batched_ DAYWARD_GUARDED_BY(changeMutex_);  ///< since the last flush()
    std::atomic<std::uint64_t> refreshCount_ = 0;
    CCDelayedOperation batch_;
};

}  // namespace dayward
