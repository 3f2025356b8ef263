// Plays the platform for a delegate: the orders of events of a program's life, with time, refusals and
// expiry as the test says. What the delegate asks for becomes lines of a trace.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/ApplicationDelegate.h"
#include "platform/Environment.h"
#include "platform/NotificationCenter.h"

namespace dayward {

using Trace = std::vector<std::string>;

class ScriptedApplication final : public Application {
public:
    ScriptedApplication(ApplicationDelegate& delegate, Trace& trace) : delegate_(delegate), trace_(trace) {}

    double version = 9;
    TimeInterval remaining{180};
    bool refusesTasks = false;
    ApplicationState state = ApplicationState::inactive;

    void launch(const LaunchOptions& options = {}) {
        EXPECT_TRUE(delegate_.didFinishLaunchingWithOptions(*this, options));
        post(kDidFinishLaunchingNotification);
        becomeActive();
    }
    void becomeActive() {
        state = ApplicationState::active;
        delegate_.applicationDidBecomeActive(*this);
        post(kDidBecomeActiveNotification);
    }
    void enterBackground() {
        state = ApplicationState::background;
        delegate_.applicationDidEnterBackground(*this);
        post(kDidEnterBackgroundNotification);
    }
    void enterForeground() {
        delegate_.applicationWillEnterForeground(*this);
        post(kWillEnterForegroundNotification);
        state = ApplicationState::inactive;
        becomeActive();
    }
    void receive(const LocalNotification& notification, ApplicationState in) {
        state = in;
        delegate_.didReceiveLocalNotification(*this, notification);
    }
    /// The result comes into the trace as "fetched RESULT".
    void fetch() {
        delegate_.performFetchWithCompletionHandler(*this, [this](BackgroundFetchResult result) {
            trace_.push_back("fetched " + std::to_string(static_cast<unsigned>(result)));
        });
    }
    /// Time is up for every task.
    void expire() {
        for (const auto& [task, expired] : std::map(tasks_)) expired();
    }

    // Application
    [[nodiscard]] ApplicationState applicationState() const override { return state; }
    [[nodiscard]] double systemVersion() const override { return version; }
    [[nodiscard]] TimeInterval backgroundTimeRemaining() const override { return remaining; }
    BackgroundTaskId beginBackgroundTaskWithExpirationHandler(std::function<void()> expired) override {
        if (refusesTasks) return BackgroundTaskId::invalid;
        trace_.push_back("begin " + std::to_string(++lastTask_));
        tasks_.emplace(lastTask_, std::move(expired));
        return static_cast<BackgroundTaskId>(lastTask_);
    }
    void endBackgroundTask(BackgroundTaskId task) override {
        trace_.push_back("end " + std::to_string(static_cast<std::uint64_t>(task)));
        EXPECT_EQ(tasks_.erase(static_cast<std::uint64_t>(task)), 1) << "not running";
    }
    void setMinimumBackgroundFetchInterval(TimeInterval interval) override {
        trace_.push_back("fetch every " + std::to_string(static_cast<int>(interval.seconds())));
    }
    void setApplicationIconBadgeNumber(std::int64_t number) override {
        trace_.push_back("badge " + std::to_string(number));
    }
    void cancelLocalNotification(const LocalNotification&) override { trace_.emplace_back("cancel"); }

private:
    static void post(const char* name) { Environment::current().notifications().post(name, nullptr); }

    ApplicationDelegate& delegate_;
    Trace& trace_;
    std::map<std::uint64_t, std::function<void()>> tasks_;
    std::uint64_t lastTask_ = 0;
};

}  // namespace dayward
