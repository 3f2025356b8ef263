#include "platform/linux/DesktopApplication.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "platform/Clock.h"
#include "platform/DispatchQueue.h"
#include "platform/LocalNotifications.h"
#include "platform/NotificationCenter.h"

namespace dayward {

namespace {

constexpr TimeInterval kUnlimited{std::numeric_limits<double>::max()};

}  // namespace

DesktopApplication::DesktopApplication(Parts parts, Desktop& desktop) : parts_(std::move(parts)), desktop_(desktop) {}

void DesktopApplication::launch(std::shared_ptr<ApplicationDelegate> delegate, const LaunchOptions& options) {
    delegate_ = std::move(delegate);
    delegate_->didFinishLaunchingWithOptions(*this, options);
    post(kDidFinishLaunchingNotification);
    openURLs(options);
    isLaunched_ = true;
    settle();
}

void DesktopApplication::windowDidShow() {
    windowIsShown_ = true;
    settle();
}

void DesktopApplication::windowDidHide() {
    windowIsShown_ = false;
    settle();
}

void DesktopApplication::systemWillSleep() {
    isGoingToSleep_ = true;
    settle();
}

void DesktopApplication::systemDidWake() {
    isGoingToSleep_ = false;
    settle();
}

void DesktopApplication::open(const LaunchOptions& options) {
    desktop_.raiseWindow();
    openURLs(options);
    if (options.localNotification) receiveTapped(*options.localNotification);
}

void DesktopApplication::openURLs(const LaunchOptions& options) {
    for (const std::string& url : options.urls) delegate_->openURL(*this, url);
}

void DesktopApplication::receiveTapped(const LocalNotification& notification) {
    const bool wasSettling = std::exchange(isSettling_, true);
    const ApplicationState before = applicationState();
    setState(ApplicationState::inactive);
    delegate_->didReceiveLocalNotification(*this, notification);
    setState(before);
    isSettling_ = wasSettling;
    settle();  // the window may have been shown meanwhile
}

void DesktopApplication::notificationDidFire(const LocalNotification& notification) {
    delegate_->didReceiveLocalNotification(*this, notification);
}

void DesktopApplication::settle() {
    if (!isLaunched_ || isSettling_) return;
    isSettling_ = true;
    for (;;) {
        const bool isWanted = windowIsShown_ && !isGoingToSleep_;
        const ApplicationState state = applicationState();
        if (isWanted && state != ApplicationState::active) {
            comeForward();
        } else if (!isWanted && state == ApplicationState::active) {
            goBack();
        } else {
            break;
        }
    }
    isSettling_ = false;
}

void DesktopApplication::comeForward() {
    ++stay_;
    setTime(std::nullopt);
    if (applicationState() == ApplicationState::background) {
        delegate_->applicationWillEnterForeground(*this);
        post(kWillEnterForegroundNotification);
    }
    setState(ApplicationState::active);
    delegate_->applicationDidBecomeActive(*this);
    post(kDidBecomeActiveNotification);
}

void DesktopApplication::goBack() {
    ++stay_;
    setState(ApplicationState::background);
    setTime(isGoingToSleep_ ? kTimeBeforeSleep : kTimeWhenHidden);
    delegate_->applicationDidEnterBackground(*this);
    post(kDidEnterBackgroundNotification);
    scheduleFetch(stay_);
}

void DesktopApplication::post(const char* notification) { parts_.notifications->post(notification, nullptr); }

void DesktopApplication::setState(ApplicationState state) {
    const Lock lock(mutex_);
    state_ = state;
}

ApplicationState DesktopApplication::applicationState() const {
    const Lock lock(mutex_);
    return state_;
}

void DesktopApplication::setTime(std::optional<TimeInterval> length) {
    std::uint64_t period = 0;
    {
        const Lock lock(mutex_);
        period = ++period_;
        timeEnds_.reset();
        if (length) timeEnds_ = parts_.clock->now() + *length;
    }
    if (length) parts_.queues->main().after(*length, [this, period] { expireTasks(period); });
}

TimeInterval DesktopApplication::backgroundTimeRemaining() const {
    const Lock lock(mutex_);
    return timeEnds_ ? std::max(TimeInterval(0), *timeEnds_ - parts_.clock->now()) : kUnlimited;
}

void DesktopApplication::expireTasks(std::uint64_t period) {
    std::map<BackgroundTaskId, std::function<void()>> expired;
    {
        const Lock lock(mutex_);
        if (period != period_) return;
        expired.swap(tasks_);
    }
    for (const auto& [task, handler] : expired) {
        if (handler) handler();
    }
    tellIfTasksEnded();
}

BackgroundTaskId DesktopApplication::beginBackgroundTaskWithExpirationHandler(std::function<void()> expired) {
    if (backgroundTimeRemaining() <= TimeInterval(0)) return BackgroundTaskId::invalid;
    const Lock lock(mutex_);
    const auto task = static_cast<BackgroundTaskId>(++lastTask_);
    tasks_.emplace(task, std::move(expired));
    return task;
}

void DesktopApplication::endBackgroundTask(BackgroundTaskId task) {
    {
        const Lock lock(mutex_);
        if (tasks_.erase(task) == 0) return;
    }
    tellIfTasksEnded();
}

void DesktopApplication::whenBackgroundTasksEnd(std::function<void()> block) {
    {
        const Lock lock(mutex_);
        waiting_.push_back(std::move(block));
    }
    tellIfTasksEnded();
}

void DesktopApplication::tellIfTasksEnded() {
    std::vector<std::function<void()>> told;
    {
        const Lock lock(mutex_);
        if (tasks_.empty()) told.swap(waiting_);
    }
    for (auto& block : told) parts_.queues->main().async(std::move(block));
}

void DesktopApplication::setMinimumBackgroundFetchInterval(TimeInterval interval) {
    const Lock lock(mutex_);
    fetchInterval_ = std::max(interval, kShortestFetchInterval);
}

void DesktopApplication::scheduleFetch(std::uint64_t stay) {
    std::optional<TimeInterval> interval;
    {
        const Lock lock(mutex_);
        interval = fetchInterval_;
    }
    if (!interval) return;
    parts_.queues->main().after(*interval, [this, stay] {
        if (stay != stay_) return;
        performFetch();
        scheduleFetch(stay);
    });
}

void DesktopApplication::performFetch(ApplicationDelegate::FetchCompletion completion) {
    if (applicationState() != ApplicationState::background) return;
    setTime(kTimeForFetch);
    delegate_->performFetchWithCompletionHandler(*this, std::move(completion));
}

// The schedule is changed at once: the steps of a flush rely on their order.

void DesktopApplication::setApplicationIconBadgeNumber(std::int64_t number) {
    if (parts_.localNotifications) return parts_.localNotifications->setApplicationIconBadgeNumber(number);
    parts_.queues->main().async([this, number] { desktop_.showBadgeNumber(number); });
}

void DesktopApplication::cancelLocalNotification(const LocalNotification& notification) {
    if (parts_.localNotifications) return parts_.localNotifications->cancelLocalNotification(notification);
    parts_.queues->main().async([this, notification] { desktop_.withdrawNotification(notification); });
}

}  // namespace dayward
