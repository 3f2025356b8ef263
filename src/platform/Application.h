// What a program with a window may ask of the platform about its life: the state, time in the
// background, the badge. The platform's own side of it, which calls the delegate, is DesktopApplication.
//
// Any thread may call. It outlives the environment's queues.
#pragma once

#include <cstdint>
#include <functional>

#include "platform/Date.h"
#include "platform/LocalNotification.h"

namespace dayward {

enum class ApplicationState {
    active = 0,      ///< in sight
    inactive = 1,    ///< on the way between the others: launching, or a notification was tapped
    background = 2,  ///< out of sight; time is limited
};

/// What a background fetch found.
enum class BackgroundFetchResult : unsigned { newData = 0, noData = 1, failed = 2 };

/// Names a background task while it runs; no two of a process are the same.
enum class BackgroundTaskId : std::uint64_t { invalid = 0 };

class Application {
public:
    // Posted on the main thread without object and user info, each after the delegate was told.
    static constexpr const char* kDidFinishLaunchingNotification = "ApplicationDidFinishLaunchingNotification";
    static constexpr const char* kDidBecomeActiveNotification = "ApplicationDidBecomeActiveNotification";
    static constexpr const char* kDidEnterBackgroundNotification = "ApplicationDidEnterBackgroundNotification";
    static constexpr const char* kWillEnterForegroundNotification = "ApplicationWillEnterForegroundNotification";

    /// As often as the platform likes.
    static constexpr TimeInterval kBackgroundFetchIntervalMinimum{0};

    virtual ~Application() = default;

    [[nodiscard]] virtual ApplicationState applicationState() const = 0;
    /// The level of this interface, as major and minor number ("9.1" is 9.1).
    [[nodiscard]] virtual double systemVersion() const = 0;
    /// Until background tasks expire; an astronomical length while in sight.
    [[nodiscard]] virtual TimeInterval backgroundTimeRemaining() const = 0;
    /// Asks for time to finish something. `expired` is called on the main thread when the time runs out
    /// before endBackgroundTask(). `invalid` where there is no time; then `expired` is never called.
    virtual BackgroundTaskId beginBackgroundTaskWithExpirationHandler(std::function<void()> expired) = 0;
    /// An id that is not running is ignored.
    virtual void endBackgroundTask(BackgroundTaskId task) = 0;
    /// Fetches in the background are wanted, and not more often than this.
    virtual void setMinimumBackgroundFetchInterval(TimeInterval interval) = 0;
    /// 0 takes the badge away.
    virtual void setApplicationIconBadgeNumber(std::int64_t number) = 0;
    /// It no longer fires, and goes out of sight if it has fired.
    virtual void cancelLocalNotification(const LocalNotification& notification) = 0;
};

}  // namespace dayward
