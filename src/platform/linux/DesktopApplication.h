// The application's life on a desktop, made of what happens to its window and to the machine.
//
// A window in sight is active, whoever has the keyboard: its countdowns go on beside another program.
// Hidden, minimised or closed it is in the background, and so it is before the machine sleeps. There is
// no state in between but at launch and while a tapped notification is handed over.
//
// The shell calls the functions of the first group on the main thread with the environment current;
// none is called from another one but windowDidShow() and windowDidHide(). Create it before the
// environment, from the same parts: it outlives what waits on the environment's queues.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "platform/ApplicationDelegate.h"
#include "platform/Mutex.h"

namespace dayward {

class Clock;
class LocalNotifications;
class NotificationCenter;
class Queues;

/// What the application asks of the desktop; called on the main thread.
class Desktop {
public:
    virtual ~Desktop() = default;
    /// Shows the window and brings it to the front; windowDidShow() follows, at once or later.
    virtual void raiseWindow() = 0;
    virtual void showBadgeNumber(std::int64_t number) = 0;
    virtual void withdrawNotification(const LocalNotification& notification) = 0;
};

class DesktopApplication final : public Application {
public:
    struct Parts {
        std::shared_ptr<Queues> queues;
        std::shared_ptr<Clock> clock;
        std::shared_ptr<NotificationCenter> notifications;
        /// Keeps the badge and what is scheduled; null: the desktop is asked.
        std::shared_ptr<LocalNotifications> localNotifications = {};
    };

    /// Time for background tasks from the moment at which the window goes out of sight.
    static constexpr TimeInterval kTimeWhenHidden{180};
    /// The same before the machine sleeps, which a login manager delays by no more.
    static constexpr TimeInterval kTimeBeforeSleep{5};
    static constexpr TimeInterval kTimeForFetch{30};
    /// Fetches don't come closer together, whatever is asked for.
    static constexpr TimeInterval kShortestFetchInterval{900};

    /// The desktop is not owned and outlives the environment.
    DesktopApplication(Parts parts, Desktop& desktop);

    /// Starts the delegate; the window may be shown from within.
    void launch(std::shared_ptr<ApplicationDelegate> delegate, const LaunchOptions& options);
    void windowDidShow();
    /// Hidden, minimised or closed.
    void windowDidHide();
    void systemWillSleep();
    void systemDidWake();
    // After the launch:

    /// The program was started a second time, or a notification or URL was opened from outside.
    void open(const LaunchOptions& options);
    /// A notification fired while the program runs.
    void notificationDidFire(const LocalNotification& notification);
    /// Gives the delegate time for a fetch, whose end is told on any thread; does nothing while in sight.
    void performFetch(ApplicationDelegate::FetchCompletion completion = [](BackgroundFetchResult) {});
    /// Runs the block on the main queue as soon as no background task that has time left is running: the
    /// moment to end the process, or to let the machine sleep.
    void whenBackgroundTasksEnd(std::function<void()> block);

    // Application
    [[nodiscard]] ApplicationState applicationState() const override;
    [[nodiscard]] double systemVersion() const override { return 9; }
    [[nodiscard]] TimeInterval backgroundTimeRemaining() const override;
    BackgroundTaskId beginBackgroundTaskWithExpirationHandler(std::function<void()> expired) override;
    void endBackgroundTask(BackgroundTaskId task) override;
    void setMinimumBackgroundFetchInterval(TimeInterval interval) override;
    void setApplicationIconBadgeNumber(std::int64_t number) override;
    void cancelLocalNotification(const LocalNotification& notification) override;

private:
    /// Brings the state to what window and machine say, one change after the other.
    void settle();
    void comeForward();
    void goBack();
    void setState(ApplicationState state);
    void receiveTapped(const LocalNotification& notification);
    void openURLs(const LaunchOptions& options);
    void post(const char* notification);
    /// Time in the background ends after `length`, or never where there is none.
    void setTime(std::optional<TimeInterval> length);
    void expireTasks(std::uint64_t period);
    void scheduleFetch(std::uint64_t stay);
    void tellIfTasksEnded();

    const Parts parts_;
    Desktop& desktop_;
    std::shared_ptr<ApplicationDelegate> delegate_;
    bool isLaunched_ = false;
    bool windowIsShown_ = false;
    bool isGoingToSleep_ = false;
    bool isSettling_ = false;
    std::uint64_t stay_ = 0;  ///< counts the stays in the background

    mutable Mutex mutex_;
    ApplicationState state_ DAYWARD_GUARDED_BY(mutex_) = ApplicationState::inactive;
    std::optional<Date> timeEnds_ DAYWARD_GUARDED_BY(mutex_);
    std::uint64_t period_ DAYWARD_GUARDED_BY(mutex_) = 0;  ///< counts the grants of time
    std::uint64_t lastTask_ DAYWARD_GUARDED_BY(mutex_) = 0;
    /// Those with time left, and what to call when there is none.
    std::map<BackgroundTaskId, std::function<void()>> tasks_ DAYWARD_GUARDED_BY(mutex_);
    std::vector<std::function<void()>> waiting_ DAYWARD_GUARDED_BY(mutex_);
    std::optional<TimeInterval> fetchInterval_ DAYWARD_GUARDED_BY(mutex_);
};

}  // namespace dayward
