// The delegate's time in the background: one task at a time, the flush and the fetch.
#include <algorithm>
#include <string>
#include <utility>

#include "Classes/App/ProjectAppDelegate.h"
#include "alerts/MissedEventsHelper.h"
#include "platform/DispatchQueue.h"
#include "platform/Environment.h"
#include "platform/Log.h"

namespace dayward {

namespace {

void logTask(BackgroundTaskId task, const std::string& what) {
    logDebug([&] { return "BackgroundTask(" + std::to_string(static_cast<std::uint64_t>(task)) + ") " + what; });
}

std::string presentTime() { return std::to_string(Environment::current().now().secondsSince1970()); }

std::string textOf(BackgroundFetchResult result) { return std::to_string(static_cast<unsigned>(result)); }

}  // namespace

std::optional<TimeInterval> ProjectAppDelegate::backgroundTaskTime() const {
    const Lock lock(mutex_);
    if (!backgroundTaskDate_) return std::nullopt;
    return Environment::current().now() - *backgroundTaskDate_;
}

bool ProjectAppDelegate::backgroundTaskIsActive() const {
    const Lock lock(mutex_);
    return backgroundTaskActive_;
}

bool ProjectAppDelegate::startBackgroundTask(Application& application) {
    const TimeInterval limit = std::min(application.backgroundTimeRemaining(), kLongestBackgroundTask);
    if (const auto time = backgroundTaskTime(); time && limit > *time) return false;
    finishBackgroundTask(application);
    const BackgroundTaskId task =
        application.beginBackgroundTaskWithExpirationHandler([weak = weak_from_this(), &application, limit] {
            if (const auto self = weak.lock()) self->backgroundTaskDidExpire(application, limit);
        });
    if (task == BackgroundTaskId::invalid) {
        logDebug([] { return "BackgroundTask = Invalid!"; });
        return false;
    }
    logTask(task, "Started " + presentTime());
    const Lock lock(mutex_);
    backgroundTaskId_ = task;
    backgroundTaskDate_ = Environment::current().now();
    backgroundTaskActive_ = true;
    return true;
}

void ProjectAppDelegate::finishBackgroundTask(Application& application) {
    BackgroundTaskId task = BackgroundTaskId::invalid;
    {
        const Lock lock(mutex_);
        backgroundTaskDate_.reset();
        backgroundTaskActive_ = false;
        task = std::exchange(backgroundTaskId_, BackgroundTaskId::invalid);
    }
    if (task == BackgroundTaskId::invalid) return;
    application.endBackgroundTask(task);
    logTask(task, "Finished " + presentTime());
}

// Before the limit is passed the task is left to whoever works in it, who sees that it is no longer active.
void ProjectAppDelegate::backgroundTaskDidExpire(Application& application, TimeInterval limit) {
    {
        const Lock lock(mutex_);
        logTask(backgroundTaskId_, "Timeout!");
        backgroundTaskActive_ = false;
    }
    if (const auto time = backgroundTaskTime(); time && *time > limit) finishBackgroundTask(application);
}

void ProjectAppDelegate::applicationDidEnterBackground(Application& application) {
    if (!startBackgroundTask(application)) return;
    Environment::current().queues().global().async(
        [self = shared_from_this(), &application] { self->flush(application); });
}

// What is missed is counted from the set of notifications that is made here, so it is kept only then.
void ProjectAppDelegate::flush(Application& application) {
    application.setApplicationIconBadgeNumber(0);
    MissedEventsHelper::clear();
    services_.notifications->syncRefresh();
    services_.missedEvents->saveState();
    logDebug([] { return "Flush task finished!"; });
    finishBackgroundTask(application);
}

void ProjectAppDelegate::performFetchWithCompletionHandler(Application& application,
                                                           FetchCompletion completionHandler) {
    const TimeInterval remaining = application.backgroundTimeRemaining();
    if (remaining < kShortestFetchTime || remaining > kLongestFetchTime) {
        logDebug([&] {
            return "BackgroundTask run with no support time: " + std::to_string(remaining.seconds()) + "!";
        });
        completionHandler(BackgroundFetchResult::noData);
        return;
    }
    if (!startBackgroundTask(application)) {
        completionHandler(BackgroundFetchResult::noData);
        return;
    }
    Environment::current().queues().global().async(
        [self = shared_from_this(), &application, complete = std::move(completionHandler)] {
            complete(self->fetch());
            self->finishBackgroundTask(application);
        });
}

BackgroundFetchResult ProjectAppDelegate::fetch() {
    auto result = BackgroundFetchResult::noData;
    if (backgroundTaskIsActive()) result = services_.cloud->performBackgroundSynch();
    if (!backgroundTaskIsActive()) {
        logDebug([&] { return "Fetch task finished: " + textOf(result) + "!"; });
        return BackgroundFetchResult::noData;
    }
    services_.missedEvents->find();
    services_.notifications->syncRefresh();
    services_.missedEvents->saveState();
    logDebug([&] { return "Fetch task finished with result: " + textOf(result) + "!"; });
    return result;
}

}  // namespace dayward
