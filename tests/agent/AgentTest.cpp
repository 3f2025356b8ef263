// The user's answers, and the fetch that fills the schedule.
#include "agent/AgentFixture.h"
#include "agent/IdleEnd.h"
#include "agent/SnoozeTime.h"

namespace dayward {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr double kHour = 3600, kDay = 86400;

TEST_F(AgentTest, OpensAndSnoozesWhatWasShownAlsoByTheProcessBefore) {
    const LocalNotification alert = in(1, "a");
    add({alert});
    time.pass(1);
    wake();
    start();
    wake();
    display.listener->didOpen("nobody");
    display.listener->didOpen(deliveryKey(alert));
    ASSERT_THAT(link.opened, SizeIs(1));
    EXPECT_TRUE(link.opened.front() == alert);
    display.listener->didSnooze(deliveryKey(alert), Snooze::tenMinutes);
    EXPECT_THAT(wake(), IsEmpty());
    EXPECT_THAT(content().snoozed, SizeIs(1));
    EXPECT_EQ(agent->nextMoment(), time.now() + TimeInterval(600));
    time.pass(600);
    EXPECT_THAT(wake(), ElementsAre("a"));
    EXPECT_THAT(content().snoozed, IsEmpty());
}

TEST_F(AgentTest, ASnoozeOutlivesAFullDiskAndTheEventsRefresh) {
    const LocalNotification alert = in(1, "a");
    add({alert});
    time.pass(1);
    wake();
    files->fillDiskAt(1);
    display.listener->didSnooze(deliveryKey(alert), Snooze::tenMinutes);
    EXPECT_THAT(wake(), IsEmpty());
    files->heal();
    time.pass(agent->retryAfter().value().seconds());
    wake();
    EXPECT_THAT(content().snoozed, SizeIs(1));
    ASSERT_TRUE(schedule.change([&](auto& changed) { changed.scheduled.clear(); }));
    time.pass(600);
    EXPECT_THAT(wake(), ElementsAre("a"));
}

TEST_F(AgentTest, TomorrowIsTheNextDayAtTheTimeOfDayAtWhichItWasDue) {
    time.travel("Europe/Berlin");
    LocalNotification alert = in(0, "a");
    // 2026-03-28 09:00 in winter time; the clock goes forward in the night.
    alert.fireDate = Date::since1970(1774684800);
    const TimeZone here = time.zone();
    for (const double after : {60.0, 10 * kHour}) {
        const auto later = snoozedNotification(alert, Snooze::tomorrow, *alert.fireDate + TimeInterval(after), here);
        EXPECT_EQ(*later.fireDate - *alert.fireDate, TimeInterval(23 * kHour));
        EXPECT_EQ(dueDate(later, *TimeZone::named("Europe/London")), *alert.fireDate + TimeInterval(24 * kHour));
    }
    const auto nextDay = snoozedNotification(alert, Snooze::tomorrow, *alert.fireDate + TimeInterval(20 * kHour), here);
    EXPECT_EQ(*nextDay.fireDate - *alert.fireDate, TimeInterval(47 * kHour));
    const auto hour = snoozedNotification(alert, Snooze::oneHour, *alert.fireDate + TimeInterval(60), here);
    EXPECT_EQ(*hour.fireDate - *alert.fireDate, TimeInterval(60 + kHour));
    EXPECT_EQ(hour.timeZone, std::nullopt);
}

TEST_F(AgentTest, ATestAlertIsShownAtOnceAndCanBeAnswered) {
    const LocalNotification alert = in(0, "test");
    ASSERT_TRUE(agent->showNow(alert));
    EXPECT_THAT(wake(), ElementsAre("test"));
    display.listener->didOpen(deliveryKey(alert));
    EXPECT_THAT(link.opened, SizeIs(1));
    display.listener->didSnooze(deliveryKey(alert), Snooze::oneHour);
    wake();
    EXPECT_THAT(content().snoozed, SizeIs(1));
}

TEST_F(AgentTest, FetchesOnceADayAndAfterALongSleepAndNeverForNobody) {
    wake();
    EXPECT_EQ(link.fetches, 0) << "nobody has scheduled anything";
    add({in(10 * kDay, "a")});
    wake();
    EXPECT_EQ(link.fetches, 1);
    for (int hour = 0; hour < 23; ++hour) {
        time.pass(kHour);
        wake();
    }
    EXPECT_EQ(link.fetches, 1);
    EXPECT_EQ(agent->nextMoment(), time.now() + TimeInterval(kHour));
    time.pass(kHour);
    wake();
    EXPECT_EQ(link.fetches, 2);
    time.jump(2 * kHour);
    wake();
    EXPECT_EQ(link.fetches, 2);
    time.jump(3 * kHour);
    wake();
    EXPECT_EQ(link.fetches, 3);
    start();
    wake();
    EXPECT_EQ(link.fetches, 3) << "a new process knows when it was done last";
    time.jump(-40 * kDay);
    start();
    wake();
    EXPECT_EQ(link.fetches, 4) << "the clock was set back";
    agent->refresh();
    wake();
    EXPECT_EQ(link.fetches, 5);
}

TEST_F(AgentTest, EndsWhereNobodyHasScheduledAnything) {
    const IdleEnd idle(time, [&] { return agent->isNeeded(); });
    wake();
    EXPECT_EQ(idle.timeout(), IdleEnd::kAfter);
    time.pass(59);
    EXPECT_FALSE(idle.isOver());
    time.pass(1);
    EXPECT_TRUE(idle.isOver());
    const LocalNotification alert = in(1, "a");
    add({alert});
    wake();
    time.pass(1);
    EXPECT_THAT(wake(), ElementsAre("a"));
    EXPECT_FALSE(idle.isOver()) << "the events may have more later";
    EXPECT_EQ(idle.timeout(), std::nullopt);
}

TEST_F(AgentTest, WithoutTheApplicationAProgramRefreshesAndIsTriedAgain) {
    link.isRunning = false;
    add({in(kDay, "a")});
    wake();
    ASSERT_EQ(refresher.starts, 1);
    EXPECT_TRUE(agent->isFetching());
    time.pass(kHour);
    wake();
    EXPECT_EQ(refresher.starts, 1) << "it still runs";
    refresher.finish(false);
    wake();
    EXPECT_EQ(refresher.starts, 1);
    time.pass(agent->retryAfter().value().seconds());
    wake();
    ASSERT_EQ(refresher.starts, 2);
    refresher.finish(true);
    wake();
    EXPECT_EQ(agent->retryAfter(), std::nullopt);
    EXPECT_EQ(record.read()->fetched, time.now());
}

TEST_F(AgentTest, WhatFallsDueWhileTheApplicationIsAskedIsNotSleptOver) {
    link.isRunning = false;
    add({in(1, "a"), in(kDay, "b")});
    const Date due = time.now() + TimeInterval(1);
    link.whileAsked = [&] { time.pass(2); };
    EXPECT_THAT(wake(), IsEmpty());
    EXPECT_EQ(agent->nextMoment(), due);
    link.whileAsked = nullptr;
    EXPECT_THAT(wake(), ElementsAre("a"));
    EXPECT_EQ(agent->nextMoment(), due + TimeInterval(kDay - 1));
}

TEST_F(AgentTest, ARefreshThatIsAskedForDuringAFetchComesAfterIt) {
    link.isRunning = false;
    add({in(kDay, "a")});
    wake();
    ASSERT_EQ(refresher.starts, 1);
    agent->refresh();
    wake();
    EXPECT_EQ(refresher.starts, 1);
    refresher.finish(true);
    wake();
    ASSERT_EQ(refresher.starts, 2);
    refresher.finish(false);
    time.pass(60);
    wake();
    ASSERT_EQ(refresher.starts, 3) << "one that was asked for is tried again";
    refresher.finish(true);
    wake();
    EXPECT_EQ(refresher.starts, 3);
}

TEST_F(AgentTest, AFetchThatIsNoLongerNeededIsNotTriedAgain) {
    link.isRunning = false;
    add({in(kDay, "a")});
    wake();
    refresher.finish(true);
    wake();
    time.pass(kDay);
    wake();
    ASSERT_EQ(refresher.starts, 2);
    refresher.finish(false);
    time.jump(-kHour);
    wake();
    time.pass(100);
    wake();
    EXPECT_EQ(refresher.starts, 2);
    EXPECT_EQ(agent->retryAfter(), std::nullopt);
}

TEST_F(AgentTest, ADeviceThatCouldNotBeReadForAMomentIsForgotten) {
    add({in(kDay, "a")});
    wake();
    files->failOperation(3);
    wake();
    ASSERT_TRUE(agent->retryAfter());
    time.pass(agent->retryAfter()->seconds());
    wake();
    EXPECT_EQ(agent->retryAfter(), std::nullopt);
}

TEST_F(AgentTest, RestsWhereNeitherTheDisplayNorTheDeviceWorks) {
    add({in(0, "a")});
    display.isBroken = true;
    wake();
    time.pass(agent->retryAfter().value().seconds());
    files->failOperation(1);
    EXPECT_THAT(wake(), IsEmpty());  // looks at what retryAfter() tells
    display.isBroken = false;
    time.pass(agent->retryAfter().value().seconds());
    EXPECT_THAT(wake(), ElementsAre("a"));
}

TEST_F(AgentTest, ABrokenScheduleIsRebuiltOnce) {
    link.isRunning = false;
    add({in(kDay, "a")});
    wake();
    refresher.finish(true);
    wake();
    for (const char* name : {NotificationSchedule::kFileName, NotificationSchedule::kCopyName}) {
        files->store(std::string(kDirectory) + "/" + name, Data{1, 2, 3});
    }
    wake();
    ASSERT_EQ(refresher.starts, 2);
    add({in(kDay, "b")});
    EXPECT_TRUE(content().needsRebuild);
    refresher.finish(true);
    wake();
    EXPECT_FALSE(content().needsRebuild);
    EXPECT_THAT(content().scheduled, SizeIs(1));
    wake();
    EXPECT_EQ(refresher.starts, 2);
}

TEST_F(AgentTest, WhatBreaksDuringAFetchIsRebuiltOnceThatIsDone) {
    const auto breakSchedule = [&] {
        files->store(std::string(kDirectory) + "/" + NotificationSchedule::kFileName, Data{1});
    };
    add({in(kDay, "a")});
    link.isRunning = false;
    wake();
    ASSERT_EQ(refresher.starts, 1);
    breakSchedule();
    wake();
    refresher.finish(true);
    wake();
    EXPECT_EQ(refresher.starts, 2) << "the first may have been done before";
    refresher.finish(true);
    wake();
    EXPECT_FALSE(content().needsRebuild);
    link.isRunning = link.isSlow = true;
    breakSchedule();
    wake();
    EXPECT_EQ(link.fetches, 1);
    EXPECT_TRUE(content().needsRebuild);
    link.finishFetch(true);
    wake();
    EXPECT_FALSE(content().needsRebuild);
}

TEST_F(AgentTest, AFetchOfTheApplicationIsDoneWhenItHasEnded) {
    link.isSlow = true;
    add({in(10 * kDay, "a")});
    wake();
    EXPECT_TRUE(agent->isFetching());
    EXPECT_EQ(record.read()->fetched, std::nullopt);
    time.pass(30);
    link.finishFetch(true);
    wake();
    EXPECT_EQ(record.read()->fetched, time.now());
    EXPECT_EQ(refresher.starts, 0);

    time.pass(kDay);
    wake();
    EXPECT_EQ(link.fetches, 2);
    link.finishFetch(false);
    ASSERT_EQ(refresher.starts, 1) << "what it could not do, the program does";
    refresher.finish(false);
    wake();
    EXPECT_EQ(link.fetches, 2);
    const TimeInterval first = agent->retryAfter().value();
    time.pass(first.seconds());
    wake();
    EXPECT_EQ(link.fetches, 3);
    link.finishFetch(false);
    refresher.finish(false);
    EXPECT_GT(agent->retryAfter().value(), first);
    time.pass(agent->retryAfter()->seconds());
    wake();
    link.finishFetch(true);
    wake();
    EXPECT_EQ(agent->retryAfter(), std::nullopt);
    EXPECT_EQ(record.read()->fetched, time.now());
}

}  // namespace
}  // namespace dayward
