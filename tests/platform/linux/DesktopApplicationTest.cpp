#include "platform/linux/DesktopApplication.h"

#include <gmock/gmock.h>

#include "platform/NotificationCenter.h"
#include "support/ScriptedApplication.h"
#include "support/FakeLocalNotifications.h"
#include "support/TestEnvironment.h"

namespace dayward {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The delegate and the desktop, both writing one trace; states are 0 active, 1 inactive, 2 background.
class Traced final : public ApplicationDelegate, public Desktop {
public:
    Trace trace;
    std::function<void()> onLaunch;
    std::function<void()> onRaise;

    bool didFinishLaunchingWithOptions(Application& application, const LaunchOptions&) override {
        add("launch", application);
        if (onLaunch) onLaunch();
        return true;
    }
    void applicationDidBecomeActive(Application& application) override { add("active", application); }
    void applicationDidEnterBackground(Application& application) override { add("background", application); }
    void applicationWillEnterForeground(Application& application) override { add("foreground", application); }
    void didReceiveLocalNotification(Application& application, const LocalNotification&) override {
        add("notification", application);
    }
    bool openURL(Application& application, const std::string& url) override {
        add(url, application);
        return true;
    }
    void performFetchWithCompletionHandler(Application& application, FetchCompletion) override {
        add("fetch", application);
    }
    void raiseWindow() override {
        trace.emplace_back("raise");
        if (onRaise) onRaise();
    }
    void showBadgeNumber(std::int64_t number) override { trace.push_back("badge " + std::to_string(number)); }
    void withdrawNotification(const LocalNotification&) override { trace.emplace_back("withdraw"); }

    void add(const std::string& what, const Application& application) {
        trace.push_back(what + " " + std::to_string(static_cast<int>(application.applicationState())));
    }
};

class DesktopApplicationTest : public testing::Test {
protected:
    void launchShown() {
        application.windowDidShow();
        application.launch(delegate, {});
        take();
    }
    Trace take() { return std::exchange(delegate->trace, {}); }
    void advance(double seconds) { environment.queues->advance(TimeInterval(seconds)); }
    double remaining() { return application.backgroundTimeRemaining().seconds(); }

    TestEnvironment environment;
    std::shared_ptr<NotificationCenter> center = std::make_shared<NotificationCenter>();
    std::shared_ptr<Traced> delegate = std::make_shared<Traced>();
    DesktopApplication application{{environment.queues, environment.clock, center}, *delegate};
};

TEST_F(DesktopApplicationTest, EachChangeIsToldToTheDelegateAndThenPosted) {
    std::vector<NotificationCenter::Observation> observations;
    for (const char* name :
         {Application::kDidFinishLaunchingNotification, Application::kDidBecomeActiveNotification,
          Application::kDidEnterBackgroundNotification, Application::kWillEnterForegroundNotification}) {
        observations.push_back(center->addObserver(
            name, [this](const Notification& posted) { delegate->trace.push_back(posted.name.substr(11, 6)); }));
    }
    delegate->onLaunch = [this] { application.windowDidShow(); };
    application.launch(delegate, {.localNotification = {}, .urls = {"a://b"}});
    EXPECT_THAT(take(), ElementsAre("launch 1", "DidFin", "a://b 1", "active 0", "DidBec"));
    application.windowDidShow();
    EXPECT_THAT(take(), IsEmpty());
    application.windowDidHide();
    EXPECT_THAT(take(), ElementsAre("background 2", "DidEnt"));
    application.windowDidShow();
    EXPECT_THAT(take(), ElementsAre("foreground 2", "WillEn", "active 0", "DidBec"));
}

TEST_F(DesktopApplicationTest, TheScheduleKeepsTheBadgeWhereThereIsOne) {
    application.setApplicationIconBadgeNumber(3);
    environment.queues->runAll();
    EXPECT_THAT(take(), ElementsAre("badge 3"));
    const auto schedule = std::make_shared<FakeLocalNotifications>();
    LocalNotification alert;
    alert.fireDate = environment->now() + TimeInterval(60);
    schedule->scheduleLocalNotification(alert);
    DesktopApplication scheduling{{environment.queues, environment.clock, center, schedule}, *delegate};
    scheduling.setApplicationIconBadgeNumber(4);
    EXPECT_EQ(schedule->applicationIconBadgeNumber(), 4) << "at once: what follows in a flush may set another one";
    scheduling.cancelLocalNotification(alert);
    EXPECT_TRUE(schedule->scheduledLocalNotifications().empty());
    environment.queues->runAll();
    EXPECT_THAT(take(), IsEmpty());
}

TEST_F(DesktopApplicationTest, ASleepingMachineIsInTheBackgroundWhateverTheWindowDoes) {
    launchShown();
    EXPECT_GT(remaining(), 1e9);
    application.systemWillSleep();
    EXPECT_THAT(take(), ElementsAre("background 2"));
    EXPECT_EQ(remaining(), 5);
    application.windowDidHide();
    application.windowDidShow();
    EXPECT_THAT(take(), IsEmpty());
    application.systemDidWake();
    EXPECT_THAT(take(), ElementsAre("foreground 2", "active 0"));
}

TEST_F(DesktopApplicationTest, TasksEndOrExpireBeforeTheProcessMay) {
    launchShown();
    std::vector<std::string> said;
    const auto begin = [&](const char* name) {
        return application.beginBackgroundTaskWithExpirationHandler([&said, name] { said.emplace_back(name); });
    };
    application.windowDidHide();
    const auto first = begin("first");
    begin("second");
    application.whenBackgroundTasksEnd([&] { said.emplace_back("quit"); });
    advance(170);
    application.endBackgroundTask(first);
    EXPECT_EQ(remaining(), 10);
    EXPECT_THAT(said, IsEmpty());
    advance(10);
    EXPECT_THAT(said, ElementsAre("second", "quit"));
    EXPECT_EQ(begin("late"), BackgroundTaskId::invalid);

    application.windowDidShow();
    application.windowDidHide();
    begin("again");
    application.windowDidShow();
    advance(1000);
    EXPECT_THAT(said, ElementsAre("second", "quit")) << "in sight there is time";
}

TEST_F(DesktopApplicationTest, ASecondStartRaisesTheWindowAndHandsOverWhatItWasGiven) {
    launchShown();
    const LaunchOptions options{.localNotification = LocalNotification(), .urls = {"a://b"}};
    application.open(options);
    EXPECT_THAT(take(), ElementsAre("raise", "a://b 0", "notification 1"));
    application.notificationDidFire({});
    EXPECT_THAT(take(), ElementsAre("notification 0"));
    application.windowDidHide();
    take();
    delegate->onRaise = [this] { application.windowDidShow(); };
    application.open(options);
    EXPECT_THAT(take(), ElementsAre("raise", "foreground 2", "active 0", "a://b 0", "notification 1"));
    EXPECT_EQ(application.applicationState(), ApplicationState::active);
}

TEST_F(DesktopApplicationTest, FetchesComeAtTheirIntervalWhileHidden) {
    launchShown();
    application.setMinimumBackgroundFetchInterval(TimeInterval(0));
    application.windowDidHide();
    advance(899);
    EXPECT_THAT(take(), ElementsAre("background 2"));
    advance(1);
    EXPECT_THAT(take(), ElementsAre("fetch 2"));
    EXPECT_EQ(remaining(), 30);
    advance(900);
    application.windowDidShow();
    EXPECT_THAT(take(), ElementsAre("fetch 2", "foreground 2", "active 0"));
    application.performFetch();
    advance(2000);
    EXPECT_THAT(take(), IsEmpty());
}

TEST_F(DesktopApplicationTest, TheDesktopIsAskedOnTheMainQueue) {
    application.setApplicationIconBadgeNumber(3);
    application.cancelLocalNotification({});
    EXPECT_THAT(take(), IsEmpty());
    environment.queues->runAll();
    EXPECT_THAT(take(), ElementsAre("badge 3", "withdraw"));
}

}  // namespace
}  // namespace dayward
