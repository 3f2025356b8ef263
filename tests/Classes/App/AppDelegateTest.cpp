#include "Classes/App/AppDelegate.h"

#include "Classes/App/AppFixture.h"
#include "Classes/App/HHAppTimerKeys.h"
#include "Classes/App/ProjectAppInfo.h"
#include "Classes/Category/CategoryLocalStore.h"
#include "Classes/Category/EventCategory.h"
#include "Classes/Event/EventLocalStore.h"
#include "Classes/Event/HHEvent.h"
#include "Classes/Settings/AppSettings.h"
#include "Classes/Settings/InterfaceSettings.h"
#include "Submodules/CorpLibrary2/App/CCAppHistory.h"
#include "Submodules/CorpLibrary2/App/CCAppValues.h"
#include "Submodules/CorpLibrary2/App/LoggingAnalytics.h"
#include "Submodules/CorpLibrary2/App/ReviewModule.h"
#include "Submodules/CorpLibrary2/App/XXAppData.h"
#include "platform/FailedSave.h"
#include "platform/UserDefaults.h"
#include "platform/linux/AsioQueues.h"
#include "platform/linux/DesktopApplication.h"
#include "support/NotificationRecorder.h"

namespace dayward {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

class TracedAnalytics final : public AnalyticsReporter {
public:
    explicit TracedAnalytics(Trace& trace) : trace_(trace) {}
    void report(const std::string& category, const std::string& action, const Dictionary&) override {
        if (category == "app") trace_.push_back(action);
    }
    void startTagContainer(const std::string& identifier) override { trace_.push_back("tags " + identifier); }
    void startCrashReporting(CrashHandler onReport) override {
        trace_.emplace_back("crashes");
        onReport(Date::since1970(1000));
    }
    bool handleOpenURL(const std::string& url) override { return url.starts_with("tagmanager"); }

private:
    Trace& trace_;
};

class AppDelegateTest : public testing::Test {
protected:
    AppDelegateTest() { files->store("/home/mark", {}); }

    void launched() {
        app.application.launch();
        app.take();
    }
    void advance(double seconds) { app.environment.queues->advance(TimeInterval(seconds)); }
    /// What the queues still have to do.
    Trace rest() {
        app.environment.queues->runAll();
        return app.take();
    }
    void moveClock(double seconds) { app.environment.clock->advance(TimeInterval(seconds)); }
    bool startTask() { return app.delegate->startBackgroundTask(app.application); }

    std::shared_ptr<FaultFileSystem> files = std::make_shared<FaultFileSystem>();
    AppProcess app{files};
};

TEST_F(AppDelegateTest, ALaunchKeepsItsOrderAndShowsNothingBeforeTheDataIsUpToDate) {
    Analytics::setReporter(std::make_shared<TracedAnalytics>(app.trace));
    app.services->updatesAtOnce = false;
    app.application.launch({.localNotification = AppProcess::notification("tapped"), .urls = {}});
    EXPECT_THAT(app.take(), ElementsAre("launch", "tags dayward", "crashes", "background #FFFFFFFF", "lock", "update",
                                        "find", "cloud", "uncover"));
    EXPECT_EQ(app.window.rootViewController(), app.list);
    EXPECT_EQ(CCAppHistory::dateToLastEvent(CCAppHistoryKeys::crash, 0), Date::since1970(1000));
    advance(5);
    EXPECT_THAT(app.take(), IsEmpty());
    app.services->updated(true);
    EXPECT_THAT(app.take(), ElementsAre("fetch every 86400", "list", "present tapped", "show"));
}

TEST_F(AppDelegateTest, AWindowIsNeeded) {
    app.delegate->setWindow(nullptr);
    EXPECT_DEATH(app.application.launch(), "the application has no window");
}

TEST_F(AppDelegateTest, TheFetchIntervalIsTheDayFromTheReleaseThatKnowsIt) {
    for (const auto& [version, line] : {std::pair(8.3, "fetch every 86400"), std::pair(8.2, "fetch every 0")}) {
        app.application.version = version;
        app.delegate->configureApplication(app.application, {});
        EXPECT_THAT(app.take(), ElementsAre(line)) << version;
    }
}

TEST_F(AppDelegateTest, AnOlderReleasesVersionIsAdoptedOnTheFirstStartOnly) {
    const auto previous = [] { return CCAppValues::valueForKey(CCAppValueKeys::previousAppVersion); };
    XXAppData::setValue("2.1", "__lastAppVersion");
    XXAppData::values_writeToFile();
    (*app.environment).standardDefaults().setObject("1.9", "kXXVersionLastStart");
    Analytics::setReporter(std::make_shared<TracedAnalytics>(app.trace));
    app.application.launch();
    EXPECT_EQ(previous(), "2.1");
    EXPECT_THAT(app.take(), Contains("updateOldVersion"));

    CCAppValues::removeAllValues();
    XXAppData::removeAllValues();
    app.application.launch();  // the second start
    EXPECT_TRUE(previous().isNull());
    CCAppHistory::removeAllEvents();
    app.application.launch();
    EXPECT_EQ(previous(), "1.9");
    XXAppData::setValue("2.1", "__lastAppVersion");
    CCAppHistory::removeAllEvents();
    app.application.launch();
    EXPECT_EQ(previous(), "1.9") << "a known version stands";
}

TEST_F(AppDelegateTest, SecondsTickWhileActive) {
    launched();
    NotificationRecorder ticks(*app.environment, {HHAppTimerKeys::everySecound}, {}, app.delegate.get());
    advance(3);
    EXPECT_EQ(ticks.take().size(), 3);
    for (const auto state : {ApplicationState::inactive, ApplicationState::background}) {
        app.application.state = state;
        advance(3);
        EXPECT_THAT(ticks.take(), IsEmpty());
    }
    app.application.becomeActive();
    advance(1);
    EXPECT_EQ(ticks.take().size(), 1);
}

TEST_F(AppDelegateTest, EnteringTheBackgroundFlushesInOrder) {
    launched();
    app.services->isSecret = true;
    MissedEventsHelper::setMissedEvents({"a", "b"});
    app.application.enterBackground();
    EXPECT_THAT(app.take(), ElementsAre("begin 1", "cover #FFFFFFFF", "widget"));
    EXPECT_TRUE(app.delegate->backgroundTaskIsActive());
    EXPECT_THAT(rest(), ElementsAre("badge 0", "refresh, 0 missed", "save", "end 1"));
    EXPECT_FALSE(app.delegate->backgroundTaskIsActive());
    EXPECT_THAT(app.environment.log->debugLines(),
                AllOf(Contains(StartsWith("BackgroundTask(1) Started ")), Contains("Flush task finished!"),
                      Contains(StartsWith("BackgroundTask(1) Finished "))));
    app.application.enterForeground();
    EXPECT_THAT(app.take(), ElementsAre("find", "lock", "uncover"));
}

TEST_F(AppDelegateTest, WhatCouldNotBeSavedIsSavedWhenTheProgramIsLeft) {
    launched();
    rest();
    files->fillDiskAt(1);
    const auto event = std::make_shared<HHEvent>("late");
    EventLocalStore::shared().updateEvent(event);
    rest();
    files->heal();
    const std::string package = joinPath(EventLocalStore::shared().directory(), "late.evn");
    EXPECT_FALSE(files->exists(package));
    app.application.enterBackground();
    rest();
    EXPECT_TRUE(files->exists(package));
}

TEST_F(AppDelegateTest, ChoicesThatCouldNotBeSavedAreSavedWhenTheProgramIsLeftAndToldOnce) {
    launched();
    rest();
    NotificationRecorder told{*app.environment, {DidFailToSaveNotification}};
    files->fillDiskAt(1);
    AppSettings::setDefaultTime(30);
    InterfaceSettings::setTheme(InterfaceSettings::Theme::dark);
    auto category = std::make_shared<EventCategory>("late");
    CategoryLocalStore::shared().updateCategory(category, CategoryLocalStore::Initialize::no);
    advance(1);
    rest();
    EXPECT_EQ(told.take().size(), 3U);
    app.application.enterBackground();
    rest();
    EXPECT_THAT(told.take(), IsEmpty());
    files->heal();
    app.application.enterForeground();
    app.application.enterBackground();
    rest();
    const TestEnvironment another(AppProcess::options(files));
    EXPECT_EQ(AppSettings::defaultTime(), 30);
    EXPECT_EQ(InterfaceSettings::theme(), InterfaceSettings::Theme::dark);
    EXPECT_TRUE(CategoryLocalStore::shared().getCategory("late"));
}

TEST_F(AppDelegateTest, TwoQuickEntriesFlushOnceAndARefusalNever) {
    launched();
    app.application.enterBackground();
    app.application.enterForeground();
    app.take();
    app.application.enterBackground();
    EXPECT_THAT(app.take(), ElementsAre("widget"));
    EXPECT_THAT(rest(), ElementsAre("badge 0", "refresh, 0 missed", "save", "end 1"));
    app.application.refusesTasks = true;
    app.application.enterBackground();
    EXPECT_THAT(rest(), ElementsAre("widget"));
}

TEST_F(AppDelegateTest, ATaskStandsWhileItsLimitIsGreaterThanItsTime) {
    struct Case {
        double remaining, elapsed;
        bool startsAnother;
    };
    for (const auto& [remaining, elapsed, startsAnother] :
         {Case{180, 59.5, false}, Case{180, 60, true}, Case{20, 19.5, false}, Case{20, 20, true}}) {
        app.application.remaining = TimeInterval(remaining);
        ASSERT_TRUE(startTask());
        moveClock(elapsed);
        app.take();
        EXPECT_EQ(startTask(), startsAnother) << remaining << " " << elapsed;
        EXPECT_EQ(app.take().size(), startsAnother ? 2 : 0) << "the end and the begin";
        app.delegate->finishBackgroundTask(app.application);
        EXPECT_FALSE(app.delegate->backgroundTaskIsActive());
    }
}

TEST_F(AppDelegateTest, ExpiryFinishesATaskOnlyBeyondItsLimit) {
    app.application.remaining = TimeInterval(20);
    for (const auto& [elapsed, finishes] : {std::pair(19.5, false), std::pair(20.0, false), std::pair(20.5, true)}) {
        ASSERT_TRUE(startTask());
        moveClock(elapsed);
        app.take();
        app.application.expire();
        EXPECT_FALSE(app.delegate->backgroundTaskIsActive());
        EXPECT_EQ(app.take().size(), finishes ? 1 : 0) << elapsed;
        app.delegate->finishBackgroundTask(app.application);
    }
}

TEST_F(AppDelegateTest, AFetchCompletesBeforeItsTaskFinishes) {
    app.application.state = ApplicationState::background;
    app.application.fetch();
    EXPECT_THAT(rest(), ElementsAre("begin 1", "synch", "find", "refresh, 0 missed", "save", "widget", "fetched 0", "end 1"));
    app.services->duringSynch = [this] { app.application.expire(); };
    app.application.fetch();
    EXPECT_THAT(rest(), ElementsAre("begin 2", "synch", "fetched 1", "end 2"));
    app.application.fetch();
    app.application.expire();
    EXPECT_THAT(rest(), ElementsAre("begin 3", "fetched 1", "end 3"));
    app.application.fetch();
    app.take();
    app.application.fetch();
    EXPECT_THAT(app.take(), ElementsAre("fetched 1")) << "while another task has time";
}

TEST_F(AppDelegateTest, AFetchNeedsTimeAndARealBackground) {
    for (const auto& [remaining, runs] :
         {std::pair(4.99, false), std::pair(5.0, true), std::pair(1000.0, true), std::pair(1000.01, false)}) {
        app.application.remaining = TimeInterval(remaining);
        app.application.fetch();
        const Trace trace = rest();
        EXPECT_EQ(testing::Value(trace, Contains("synch")), runs) << remaining;
        EXPECT_THAT(trace, Contains(runs ? "fetched 0" : "fetched 1"));
    }
}

TEST_F(AppDelegateTest, NotificationsAreOpenedWhenTappedAndShownOtherwise) {
    launched();
    const auto notification = AppProcess::notification("a");
    app.application.receive(notification, ApplicationState::inactive);
    EXPECT_THAT(app.take(), ElementsAre("present a", "cancel"));
    for (const auto state : {ApplicationState::active, ApplicationState::background}) {
        app.application.receive(notification, state);
        EXPECT_THAT(app.take(), ElementsAre("notify a", "cancel"));
    }
}

TEST_F(AppDelegateTest, URLsGoToTheTagsFirst) {
    launched();
    Analytics::setReporter(std::make_shared<TracedAnalytics>(app.trace));
    EXPECT_TRUE(app.delegate->openURL(app.application, "tagmanager://preview"));
    EXPECT_THAT(app.take(), IsEmpty());
    EXPECT_TRUE(app.delegate->openURL(app.application, "dayward://import"));
    EXPECT_THAT(app.take(), ElementsAre("sibling dayward://import"));
}

TEST_F(AppDelegateTest, AReviewIsAskedForAfterThreeDaysWithMoreThanTwoEvents) {
    launched();  // seven default events
    EXPECT_FALSE(ReviewModule::reviewAvailable());
    moveClock(3 * 86400.0);
    EXPECT_FALSE(ReviewModule::canShowReviewRequest()) << "off";
    ReviewModule::setOn(true);
    EXPECT_TRUE(ReviewModule::canShowReviewRequest());
    moveClock(-1);
    EXPECT_FALSE(ReviewModule::canShowReviewRequest());
    moveClock(1);
    auto events = EventLocalStore::shared().allEvents();
    events.resize(5);
    EventLocalStore::shared().removeEvents(events);
    EXPECT_FALSE(ReviewModule::canShowReviewRequest());
}

TEST_F(AppDelegateTest, AnalyticsGoNowhereUnlessTheyAreLogged) {
    launched();
    const auto lines = [this] { return app.environment.log->debugLines(); };
    EXPECT_THAT(lines(), testing::Each(testing::Not(StartsWith("Analytics"))));
    Analytics::setReporter(std::make_shared<LoggingAnalytics>());
    app.application.launch();
    EXPECT_THAT(lines(), Contains("Analytics app launch version=1.0"));
    EXPECT_FALSE(ProjectAppInfo::sendShareImage());
}

class TracedDesktop final : public Desktop {
public:
    explicit TracedDesktop(Trace& trace) : trace_(trace) {}
    void raiseWindow() override {}
    void showBadgeNumber(std::int64_t number) override { trace_.push_back("badge " + std::to_string(number)); }
    void withdrawNotification(const LocalNotification&) override {}

private:
    Trace& trace_;
};

TEST(AppLifeOnADesktop, AHiddenProgramFlushesOnRealQueuesAndMayThenQuit) {
    const auto queues = std::make_shared<AsioQueues>(2);
    auto options = AppProcess::options(std::make_shared<FaultFileSystem>());
    options.queues = queues;
    const TestEnvironment environment(options);
    Trace trace;
    TracedDesktop desktop(trace);
    ScriptedPresenter presenter;
    TracedWindow window(presenter.navigation, trace);
    DesktopApplication application({queues, environment.clock, environment->notifications().shared_from_this()},
                                   desktop);
    const auto list = std::make_shared<TracedList>(trace);
    const auto delegate = std::make_shared<AppDelegate>(AppServices(), [&] { return list; });
    delegate->setWindow(&window);
    MissedEventsHelper::setMissedEvents({"a"});
    application.windowDidShow();
    application.launch(delegate, {});
    application.windowDidHide();
    application.whenBackgroundTasksEnd([&] { trace.emplace_back("quit"); });
    queues->waitUntilIdle();
    EXPECT_THAT(trace, ElementsAre("background #FFFFFFFF", "list", "show", "uncover", "badge 0", "quit"));
    EXPECT_THAT(MissedEventsHelper::missedEvents(), IsEmpty());
    EXPECT_FALSE(delegate->backgroundTaskIsActive());
}

}  // namespace
}  // namespace dayward
