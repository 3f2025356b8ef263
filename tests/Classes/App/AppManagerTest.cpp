#include "Classes/App/AppManager.h"

#include "Classes/App/AppFixture.h"
#include "Classes/App/LaunchArguments.h"
#include "Classes/Event/EventLocalStore.h"
#include "Classes/Event/HHEvent.h"
#include "Submodules/CorpLibrary2/App/CCAppHistory.h"

namespace dayward {
namespace {

using testing::ElementsAre;

constexpr std::size_t kDefaultEvents = 7;

class AppManagerTest : public testing::Test {
protected:
    AppManagerTest() { files->store("/home/mark", {}); }

    static std::size_t starts() { return CCAppHistory::countEvent(CCAppHistoryKeys::start, {}, {}); }
    static std::size_t eventCount() { return EventLocalStore::shared().itemsCount(); }

    std::shared_ptr<FaultFileSystem> files = std::make_shared<FaultFileSystem>();
};

TEST_F(AppManagerTest, AProgramWithoutAWindowAddsTheDefaultEventsOnceAndRecordsTheInstall) {
    {
        const AppProcess first(files);
        ASSERT_TRUE(AppManager::performFirstLaunch());
        EXPECT_EQ(eventCount(), kDefaultEvents);
        EXPECT_TRUE(CCAppHistory::containsEvent(CCAppHistoryKeys::install));
        EXPECT_EQ(starts(), 1);
        EventLocalStore::shared().removeAllEvents();
        ASSERT_TRUE(EventLocalStore::shared().flush());
    }
    const AppProcess second(files);
    ASSERT_TRUE(AppManager::performFirstLaunch());
    EXPECT_EQ(eventCount(), 0);
    EXPECT_EQ(starts(), 1);
}

TEST_F(AppManagerTest, AFullDiskIsReportedAndTheNextLaunchTriesAgain) {
    {
        const AppProcess first(files);
        EventLocalStore::shared();
        files->fillDiskAt(1);
        const Result<> result = AppManager::performFirstLaunch();
        ASSERT_FALSE(result);
        files->heal();
    }
    const AppProcess second(files);
    EXPECT_EQ(eventCount(), 0);
    ASSERT_TRUE(AppManager::performFirstLaunch());
    EXPECT_EQ(eventCount(), kDefaultEvents);
}

TEST_F(AppManagerTest, TheDefaultEventsComeWithTheFirstListAndNeverTwice) {
    {
        AppProcess first(files);
        first.services->updatesAtOnce = false;
        first.application.launch();
        EXPECT_EQ(eventCount(), 0);
        first.services->updated(false);
        EXPECT_EQ(eventCount(), kDefaultEvents);
        EventLocalStore::shared().removeAllEvents();
        first.appearAgain();
        first.application.enterBackground();
        first.application.enterForeground();
        ASSERT_TRUE(AppManager::performFirstLaunch());
        EXPECT_EQ(eventCount(), 0);
    }
    AppProcess second(files);
    second.application.launch();
    EXPECT_EQ(eventCount(), 0);
    EXPECT_EQ(starts(), 2);
}

TEST_F(AppManagerTest, AFirstLaunchThatWasEndedBeforeItsEventsWereOnTheDiskIsMadeUpFor) {
    const auto names = [] {
        std::multiset<std::string> found;
        for (const auto& event : EventLocalStore::shared().allEvents()) found.insert(event->name().value_or("?"));
        return found;
    };
    std::multiset<std::string> wanted;
    for (const std::size_t steps : {0, 40, 100, 400}) {
        files = std::make_shared<FaultFileSystem>();
        files->store("/home/mark", {});
        {
            AppProcess ended(files);
            ended.services->updatesAtOnce = false;
            ended.application.launch();
            files->crashAt(steps + 1);
            ended.services->updated(false);
            wanted = names();
            ended.environment.queues->runAll();
            files->restart();
        }
        AppProcess next(files);
        next.application.launch();
        next.environment.queues->runAll();
        EXPECT_FALSE(CCApp::isFirstStart());
        EXPECT_EQ(names(), wanted) << steps;
        EventLocalStore::shared().removeAllEvents();
        next.environment.queues->runAll();
        AppProcess last(files);
        last.application.launch();
        EXPECT_EQ(eventCount(), 0) << "it is over";
    }
}

TEST_F(AppManagerTest, ALostHistoryBringsNoDefaultEventsToAHomeThatHoldsOthers) {
    {
        const AppProcess first(files);
        ASSERT_TRUE(AppManager::performFirstLaunch());
        auto events = EventLocalStore::shared().allEvents();
        events.resize(3);
        EventLocalStore::shared().removeEvents(events);
        ASSERT_TRUE(EventLocalStore::shared().flush());
    }
    const std::string history = "/home/data/Library/CCAppHistory.dat";
    files->store(history, {1, 2, 3});
    {
        AppProcess window(files);
        window.application.launch();
        EXPECT_TRUE(CCApp::isFirstStart());
        EXPECT_EQ(eventCount(), kDefaultEvents - 3);
    }
    files->store(history, {1, 2, 3});
    const AppProcess commandLine(files);
    ASSERT_TRUE(AppManager::performFirstLaunch());
    EXPECT_EQ(eventCount(), kDefaultEvents - 3);
    EXPECT_TRUE(CCAppHistory::containsEvent(CCAppHistoryKeys::install));
}

TEST_F(AppManagerTest, TwoProcessesThatAreBothTheFirstAddOneSetOfEvents) {
    AppProcess window(files);  // has read the home before the other one came
    CCAppHistory::containsEvent(CCAppHistoryKeys::install);
    {
        const AppProcess commandLine(files);
        ASSERT_TRUE(AppManager::performFirstLaunch());
    }
    window.application.launch();
    EXPECT_FALSE(CCApp::isFirstStart());
    EXPECT_EQ(eventCount(), kDefaultEvents);
}

TEST_F(AppManagerTest, TheSiblingEditionsEventsAreOfferedOnceAndDecliningBringsTheDefaultOnes) {
    AppProcess app(files);
    app.services->hasSibling = true;
    app.application.launch();
    EXPECT_EQ(app.presenter.alert.title, "Import events from free version?");
    app.appearAgain();
    EXPECT_EQ(eventCount(), 0) << "the question is still open";
    app.presenter.take();
    app.presenter.answer("No");
    EXPECT_EQ(eventCount(), kDefaultEvents);
    EventLocalStore::shared().removeAllEvents();
    app.appearAgain();
    EXPECT_EQ(eventCount(), 0);
    EXPECT_TRUE(app.presenter.take().empty());
}

TEST_F(AppManagerTest, AnAcceptedOfferAsksTheSiblingAndAddsNothing) {
    AppProcess app(files);
    app.services->hasSibling = true;
    app.application.launch();
    app.take();
    app.presenter.answer("Yes");
    EXPECT_THAT(app.take(), ElementsAre("import"));
    app.appearAgain();
    EXPECT_EQ(eventCount(), 0);
}

TEST_F(AppManagerTest, ASiblingThatComesLaterIsOfferedWhenTheProgramReturns) {
    AppProcess app(files);
    app.application.launch();
    app.application.enterBackground();
    app.services->hasSibling = true;
    app.application.enterForeground();
    EXPECT_EQ(app.presenter.alert.title, "Import events from free version?");
}

TEST_F(AppManagerTest, AnEventWaitsForTheListAndOnlyTheLastOneIsShownOnce) {
    AppProcess app(files);
    app.services->updatesAtOnce = false;
    app.application.launch();
    app.application.receive(AppProcess::notification("early"), ApplicationState::inactive);
    app.application.receive(AppProcess::notification("later"), ApplicationState::inactive);
    app.application.receive(LocalNotification(), ApplicationState::inactive);
    app.take();
    app.services->updated(true);
    EXPECT_THAT(app.take(), ElementsAre("fetch every 86400", "list", "present later", "show"));
    app.list->viewDidAppear();
    AppManager::presentEventAtIdentifier("now");
    EXPECT_THAT(app.take(), ElementsAre("list", "present now"));
    EXPECT_DEATH((*app.environment).notifications().post(EventListDidAppearNotification, nullptr),
                 "does not say which");
}

TEST_F(AppManagerTest, ANewEventWaitsForTheListAndForNothingHalfDone) {
    AppProcess app(files);
    app.services->updatesAtOnce = false;
    app.application.launch();
    AppManager::presentNewEvent();
    app.take();
    app.services->updated(true);
    EXPECT_THAT(app.take(), testing::IsSupersetOf({"list", "new event"}));
    AppManager::presentNewEvent();
    EXPECT_THAT(app.take(), ElementsAre("new event"));
    EXPECT_TRUE(launchOptionsFromArguments({"--new-event"})->newEvent);
}

TEST(LaunchArguments, NameAnEventOrURLs) {
    const auto options = launchOptionsFromArguments({"dayward://import?v=2", "--event", "birthday"});
    ASSERT_TRUE(options);
    EXPECT_THAT(options->urls, ElementsAre("dayward://import?v=2"));
    EXPECT_EQ(eventIdentifier(options->localNotification.value()), "birthday");
    EXPECT_FALSE(launchOptionsFromArguments({})->localNotification);
    for (const Trace& wrong : {Trace{"--event"}, Trace{"birthday"}, Trace{"--urls=a://b"}}) {
        EXPECT_FALSE(launchOptionsFromArguments(wrong)) << wrong.front();
    }
}

}  // namespace
}  // namespace dayward
