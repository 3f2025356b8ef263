// What every program of this family does in its life: keeps the record of versions, updates old data
// before the window is shown, makes the seconds tick, rebuilds the notifications when it goes out of
// sight, and fetches in the background.
//
// Main thread, except where said. Made by std::make_shared; the application outlives it.
#pragma once

#include <memory>
#include <optional>

#include "Classes/App/AppServices.h"
#include "platform/ApplicationDelegate.h"
#include "platform/Mutex.h"

namespace dayward {

class Window;

class ProjectAppDelegate : public ApplicationDelegate, public std::enable_shared_from_this<ProjectAppDelegate> {
public:
    /// A background task keeps its time for no longer than this.
    static constexpr TimeInterval kLongestBackgroundTask{60};
    // A fetch wants this much time. More means that the program is not in the background.
    static constexpr TimeInterval kShortestFetchTime{5};
    static constexpr TimeInterval kLongestFetchTime{1000};

    explicit ProjectAppDelegate(AppServices services) : services_(std::move(services)) {}

    /// To be set before the launch, and to null before the window goes. Not owned.
    void setWindow(Window* window);
    /// Stops the process where there is none.
    [[nodiscard]] Window& window() const;

    // ApplicationDelegate
    bool didFinishLaunchingWithOptions(Application& application, const LaunchOptions& options) override;
    void applicationDidBecomeActive(Application&) override {}
    void applicationDidEnterBackground(Application& application) override;
    void applicationWillEnterForeground(Application& application) override;
    void didReceiveLocalNotification(Application& application, const LocalNotification& notification) override;
    bool openURL(Application& application, const std::string& url) override;
    void performFetchWithCompletionHandler(Application& application, FetchCompletion completionHandler) override;

    /// When old data is up to date, before the window is shown.
    virtual void configureApplication(Application& application, const LaunchOptions& withLaunchingOptions);
    /// Once a second; posts HHAppTimerKeys::everySecound while the application is active.
    virtual void appTimerAction(Application& application);
    /// Asks for time in the background. False where a task that still has time is running, or where the
    /// platform gives none; otherwise an older task is finished first.
    virtual bool startBackgroundTask(Application& application);
    /// False from the moment at which the time is up; long work asks it between its steps. Any thread.
    [[nodiscard]] virtual bool backgroundTaskIsActive() const;
    /// Ends the present task, if there is one. Any thread.
    virtual void finishBackgroundTask(Application& application);

    // The answers to ReviewModule.
    static bool reviewAvailable();
    /// The module is on, the release three days old, and there are more than two events.
    static bool canShowReviewRequest();

protected:
    [[nodiscard]] const AppServices& services() const { return services_; }

private:
    void startTimer(Application& application);
    void flush(Application& application);
    BackgroundFetchResult fetch();
    void backgroundTaskDidExpire(Application& application, TimeInterval limit);
    /// Since the present task was started.
    [[nodiscard]] std::optional<TimeInterval> backgroundTaskTime() const;

    const AppServices services_;
    Window* window_ = nullptr;

    mutable Mutex mutex_;
    std::optional<Date> backgroundTaskDate_ DAYWARD_GUARDED_BY(mutex_);
    BackgroundTaskId backgroundTaskId_ DAYWARD_GUARDED_BY(mutex_) = BackgroundTaskId::invalid;
    bool backgroundTaskActive_ DAYWARD_GUARDED_BY(mutex_) = false;
};

}  // namespace dayward
