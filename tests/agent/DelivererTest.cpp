// What is shown, when, and that it is shown once.
#include "agent/Deliverer.h"

#include <algorithm>
#include <iterator>

#include "agent/AgentFixture.h"

namespace dayward {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

using DelivererTest = AgentTest;

TEST_F(DelivererTest, ShowsEachWhenItIsDueAndForgetsNothing) {
    add({in(10, "a"), in(10, "b"), in(25, "c")});
    EXPECT_THAT(wake(), IsEmpty());
    EXPECT_EQ(agent->nextMoment(), time.now() + TimeInterval(10));
    time.pass(10);
    EXPECT_THAT(wake(), ElementsAre("a", "b"));
    EXPECT_THAT(content().scheduled, SizeIs(1));
    time.pass(14);
    EXPECT_THAT(wake(), IsEmpty());
    time.pass(1);
    EXPECT_THAT(wake(), ElementsAre("c"));
    EXPECT_THAT(wake(), IsEmpty());
    const DeliveryRecord::Content kept = record.read().value();
    for (const Delivery& delivery : kept.recent) EXPECT_TRUE(delivery.isShown());
}

TEST_F(DelivererTest, ShowsNothingTwiceHoweverTheClockAndTheScheduleGo) {
    const std::vector<LocalNotification> alerts{in(10, "a"), in(20, "b")};
    add(alerts);
    time.pass(15);
    EXPECT_THAT(wake(), ElementsAre("a"));
    time.jump(-3600);
    add(alerts);
    start();
    EXPECT_THAT(wake(), IsEmpty());
    time.pass(3610);
    EXPECT_THAT(wake(), ElementsAre("b"));
    EXPECT_THAT(content().scheduled, IsEmpty());
}

TEST_F(DelivererTest, TellsSeveralLateOnesAsOneAndFewWithTheirTime) {
    add({in(10, "a"), in(20, "b"), in(30, "c"), in(4000, "now"), in(5000, "d"), in(5010, "e")});
    time.jump(4000);
    EXPECT_THAT(wake(), ElementsAre("[a b c]", "now"));
    time.jump(2000);
    EXPECT_THAT(wake(), ElementsAre("late d", "late e"));
}

TEST_F(DelivererTest, FollowsTheWallClockOfTheZoneThatTheDeviceIsIn) {
    LocalNotification nine = in(3600, "nine");
    nine.timeZone = "Europe/Moscow";
    add({nine});
    time.travel("Europe/Moscow");
    EXPECT_EQ(agent->nextMoment(), std::nullopt);
    EXPECT_THAT(wake(), IsEmpty());
    EXPECT_EQ(agent->nextMoment(), time.now() + TimeInterval(3600));
    time.travel("Europe/London");
    EXPECT_EQ(agent->nextMoment(), time.now() + TimeInterval(3600 + 2 * 3600));
    time.pass(3600);
    EXPECT_THAT(wake(), IsEmpty());
    time.travel("Europe/Moscow");
    EXPECT_THAT(wake(), ElementsAre("nine"));
    // The same time of the wall clock, scheduled anew where it is yet to come.
    nine.fireDate = *nine.fireDate + TimeInterval(2 * 3600);
    nine.timeZone = "Europe/London";
    add({nine});
    time.pass(4 * 3600);
    EXPECT_THAT(wake(), IsEmpty());
}

TEST_F(DelivererTest, AnHourThatTheClockShowsTwiceHasTwoAlerts) {
    const TimeZone berlin = *TimeZone::named("Europe/Berlin");
    LocalNotification first = in(0, "half past two"), second = first;
    first.timeZone = second.timeZone = berlin.name();
    first.fireDate = Date::since1970(1792888200);  // 2026-10-25 02:30 in summer time, the clock goes back at three
    second.fireDate = *first.fireDate + TimeInterval(3600);
    ASSERT_EQ(berlin.localOfInstant(*first.fireDate), berlin.localOfInstant(*second.fireDate));
    EXPECT_NE(deliveryKey(first), deliveryKey(second));
}

TEST_F(DelivererTest, WhatIsSilentSetsTheBadge) {
    LocalNotification silent = in(10, "");
    silent.alertBody.reset();
    silent.applicationIconBadgeNumber = 7;
    LocalNotification alert = in(20, "a");
    alert.applicationIconBadgeNumber = 8;
    add({silent, alert});
    wake();
    time.pass(10);
    EXPECT_THAT(wake(), IsEmpty());
    EXPECT_EQ(content().badgeNumber, 7);
    time.pass(10);
    EXPECT_THAT(wake(), ElementsAre("a"));
    ASSERT_TRUE(schedule.change([](auto& changed) { changed.badgeNumber = 0; }));
    wake();
    EXPECT_THAT(display.badges, ElementsAre(0, 7, 8, 0));
}

TEST_F(DelivererTest, TheApplicationInFrontShowsItByItself) {
    add({in(1, "a"), in(10, "c"), in(20, "d"), in(30, "e"), in(101, "b")});
    link.isInFront = true;
    time.pass(1);
    EXPECT_THAT(wake(), IsEmpty());
    EXPECT_THAT(link.delivered, ElementsAre("a"));
    time.jump(99);
    EXPECT_THAT(wake(), IsEmpty());
    EXPECT_THAT(link.delivered, ElementsAre("a", "[c d e]"));
    start();
    EXPECT_THAT(wake(), IsEmpty());
    EXPECT_THAT(link.delivered, SizeIs(2));
    link.isInFront = false;
    time.pass(1);
    EXPECT_THAT(wake(), ElementsAre("b"));
}

TEST_F(DelivererTest, WhatNothingCanShowWaitsInItsOrder) {
    display.isBroken = true;
    add({in(1, "a"), in(2, "b")});
    time.pass(1);
    EXPECT_THAT(wake(), IsEmpty());
    ASSERT_TRUE(agent->retryAfter());
    time.pass(1);
    EXPECT_THAT(wake(), IsEmpty());
    display.isBroken = false;
    display.listener->displayDidAppear();
    EXPECT_THAT(wake(), ElementsAre("a", "b"));
    EXPECT_EQ(agent->retryAfter(), std::nullopt);
}

TEST_F(DelivererTest, TriesAgainLaterAndLaterByItself) {
    display.isBroken = true;
    add({in(1, "a")});
    time.pass(1);
    double last = 0;
    for (int i = 0; i < 12; ++i) {
        EXPECT_THAT(wake(), IsEmpty());
        const double wait = agent->retryAfter().value().seconds();
        EXPECT_GE(wait, last);
        EXPECT_LE(wait, 600);
        last = wait;
        time.pass(wait);
    }
    display.isBroken = false;
    EXPECT_THAT(wake(), ElementsAre("late a"));
}

TEST_F(DelivererTest, WhatADeadAgentClaimedIsShownUnderTheSameKey) {
    display.isBroken = true;
    const LocalNotification alert = in(1, "a");
    add({alert});
    time.pass(1);
    wake();
    display.isBroken = false;
    start();
    EXPECT_THAT(wake(), ElementsAre("a"));
    EXPECT_THAT(display.keys, ElementsAre(deliveryKey(alert)));
    start();
    EXPECT_THAT(wake(), IsEmpty());
}

TEST_F(DelivererTest, TwoAgentsShareTheWork) {
    display.isBroken = true;
    add({in(1, "a"), in(2, "b")});
    time.pass(1);
    wake();
    display.isBroken = false;
    living.insert("other");
    const auto other = makeAgent("other");
    time.pass(1);
    other->wake();
    EXPECT_THAT(display.takeLines(), ElementsAre("b")) << "the first agent still lives and will show its own";
    ASSERT_TRUE(other->retryAfter()) << "nobody tells when it dies";
    living.erase("agent 1");
    time.pass(other->retryAfter()->seconds());
    other->wake();
    EXPECT_THAT(display.takeLines(), ElementsAre("a"));
    EXPECT_EQ(other->retryAfter(), std::nullopt);
}

TEST_F(DelivererTest, WhatIsCancelledGoesOutOfSightAndIsShownNoMore) {
    const LocalNotification first = in(1, "a"), second = in(2, "b");
    add({first, second});
    time.pass(1);
    wake();
    display.isBroken = true;
    time.pass(1);
    wake();
    ASSERT_TRUE(schedule.change([&](auto& changed) {
        changed.cancel(first);
        LocalNotification all;
        all.userInfo = second.userInfo;
        changed.cancel(all);
    }));
    display.isBroken = false;
    display.listener->displayDidAppear();
    EXPECT_THAT(wake(), IsEmpty());
    EXPECT_THAT(display.withdrawn, ElementsAre(deliveryKey(first), deliveryKey(second)));
    EXPECT_THAT(content().withdrawn, IsEmpty());
}

TEST_F(DelivererTest, AFullDiskDelaysAnAlertByAMinuteAndNoMore) {
    add({in(1, "a"), in(90, "b")});
    wake();
    files->fillDiskAt(1);
    time.pass(1);
    double waited = 0;
    std::vector<std::string> shown = wake();
    for (; shown.empty(); shown = wake()) {
        const double wait = agent->retryAfter().value().seconds();
        ASSERT_GT(wait, 0) << "it would spin";
        time.pass(wait);
        ASSERT_LT(waited += wait, 120);
    }
    EXPECT_THAT(shown, ElementsAre("a"));
    EXPECT_GE(waited, 50);
    time.pass(89 - waited);
    EXPECT_THAT(wake(), ElementsAre("b")) << "the disk is known to be full";
    time.pass(100);
    EXPECT_THAT(wake(), IsEmpty());
    files->heal();
    time.pass(5);
    EXPECT_THAT(wake(), IsEmpty());
    EXPECT_THAT(content().scheduled, IsEmpty());
    EXPECT_EQ(agent->retryAfter(), std::nullopt);
    start();
    EXPECT_THAT(wake(), IsEmpty());
}

TEST_F(DelivererTest, AFileThatCannotBeReadDelaysAnAlertByAMinuteAndNoMore) {
    const std::string scheduleFile = std::string(kDirectory) + "/" + NotificationSchedule::kFileName;
    for (const std::string& path : {scheduleFile, record.path()}) {
        add({in(1, "a"), in(100, "b")});
        wake();
        ASSERT_TRUE(files->removeFile(path));
        files->store(path + "/inside", Data{});
        time.pass(1);
        double waited = 0;
        std::vector<std::string> shown = wake();
        for (; shown.empty(); shown = wake()) {
            const double wait = agent->retryAfter().value().seconds();
            time.pass(wait);
            ASSERT_LT(waited += wait, 80) << path;
        }
        EXPECT_EQ(shown.size(), 1u);
        EXPECT_GE(waited, 50);
        start();
        EXPECT_THAT(wake(), IsEmpty()) << "it was kept";
        time.pass(99 - waited);
        EXPECT_THAT(wake(), ElementsAre("b")) << path;
        EXPECT_THAT(content().scheduled, IsEmpty());
        EXPECT_EQ(agent->retryAfter(), std::nullopt);
    }
}

TEST_F(DelivererTest, NothingIsLostOrShownTwiceWhereTheProcessDiesAtAnyOperation) {
    using Loss = FaultFileSystem::CrashLoss;
    for (const Loss loss : {Loss::nothing, Loss::allUnsynced, Loss::byChance}) {
        for (std::size_t operation = 1; operation < 60; ++operation) {
            const std::string name = std::to_string(static_cast<int>(loss)) + "." + std::to_string(operation) + ".";
            const std::vector<LocalNotification> alerts{in(1, name + "a"), in(1, name + "b"), in(2, name + "c")};
            display.keys.clear();
            add(alerts);
            files->crashAt(operation);
            time.pass(1);
            wake();
            files->restart(loss, static_cast<std::uint32_t>(operation));
            start();
            wake();
            EXPECT_THAT(display.keys, SizeIs(2)) << name;
            time.pass(1);
            EXPECT_THAT(wake(), ElementsAre(name + "c")) << name;
            EXPECT_THAT(content().scheduled, IsEmpty()) << name;
            EXPECT_FALSE(content().needsRebuild) << name;
            start();
            EXPECT_THAT(wake(), IsEmpty()) << name;
        }
    }
}

TEST_F(DelivererTest, NothingIsLostOrShownTwiceWhereAnyOperationFailsOnce) {
    for (std::size_t operation = 1; operation < 60; ++operation) {
        const std::string name = std::to_string(operation) + ".";
        add({in(1, name + "a"), in(2, name + "b")});
        files->failOperation(operation);
        time.pass(1);
        std::vector<std::string> shown = wake();
        files->heal();
        for (int tries = 0; agent->retryAfter() && tries < 3; ++tries) {
            time.pass(agent->retryAfter()->seconds());
            std::ranges::copy(wake(), std::back_inserter(shown));
        }
        time.pass(1);
        std::ranges::copy(wake(), std::back_inserter(shown));
        EXPECT_THAT(shown, ElementsAre(name + "a", name + "b")) << name;
        EXPECT_THAT(content().scheduled, IsEmpty()) << name;
    }
}

TEST_F(DelivererTest, ADamagedRecordIsKeptAsideAndStopsNothing) {
    add({in(1, "a"), in(2, "b")});
    time.pass(1);
    EXPECT_THAT(wake(), ElementsAre("a"));
    files->store(record.path(), Data{1, 2, 3});
    time.pass(1);
    EXPECT_THAT(wake(), ElementsAre("b"));
    EXPECT_TRUE(files->tree(kDirectory).contains("notifications.delivered.unreadable"));
}

TEST_F(DelivererTest, RemembersTheKeysOfThousands) {
    std::vector<LocalNotification> all;
    for (int i = 0; i < 1500; ++i) all.push_back(in(i, std::to_string(i)));
    std::size_t count = 0;
    for (std::size_t begin = 0; begin < all.size(); begin += 50) {
        add({all.begin() + static_cast<std::ptrdiff_t>(begin), all.begin() + static_cast<std::ptrdiff_t>(begin + 50)});
        time.pass(50);
        count += wake().size();
    }
    time.jump(-1500);
    add({all.begin(), all.begin() + 64});
    time.pass(1500);
    EXPECT_THAT(wake(), IsEmpty());
    EXPECT_EQ(count, all.size());
    EXPECT_THAT(record.read()->recent, SizeIs(DeliveryRecord::kMostShown));
}

}  // namespace
}  // namespace dayward
