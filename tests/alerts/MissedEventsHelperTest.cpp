#include "alerts/MissedEventsHelper.h"

#include <gtest/gtest.h>

#include <cmath>

#include "alerts/EventNotification.h"
#include "platform/NotificationArchive.h"
#include "platform/UserDefaults.h"
#include "support/FakeLocalNotifications.h"
#include "support/NotificationRecorder.h"
#include "support/TestEnvironment.h"

namespace dayward {
namespace {

TEST(MissedEvents, KeepTheirOrderAcrossStartsAndAreClearedWhole) {
    TestEnvironment first;
    EXPECT_TRUE(MissedEventsHelper::missedEvents().empty());
    MissedEventsHelper::setMissedEvents({"b", "a"});
    EXPECT_TRUE(MissedEventsHelper::isMissed("a"));
    EXPECT_FALSE(MissedEventsHelper::isMissed("c"));

    TestEnvironment::Options options;
    options.home = first.home;
    TestEnvironment second(options);
    EXPECT_EQ(MissedEventsHelper::missedEvents(), (std::vector<std::string>{"b", "a"}));
    MissedEventsHelper::clear();
    EXPECT_FALSE(MissedEventsHelper::isMissed("a"));
    EXPECT_TRUE(second->standardDefaults().objectForKey(MissedEventsHelper::kMissedEventsKey).isNull());
}

TEST(MissedEvents, AnotherTypeInTheDefaultsReadsAsEmpty) {
    TestEnvironment environment;
    environment->standardDefaults().setObject("no list", MissedEventsHelper::kMissedEventsKey);
    EXPECT_TRUE(MissedEventsHelper::missedEvents().empty());
    environment->standardDefaults().setObject(Array{1, "kept", Data{1}}, MissedEventsHelper::kMissedEventsKey);
    MissedEventsHelper::reload();
    EXPECT_EQ(MissedEventsHelper::missedEvents(), std::vector<std::string>{"kept"});
}

/// A schedule whose notifications fire while the user is away.
class FiredUnseen : public ::testing::Test {
protected:
    using Identifiers = std::vector<std::string>;

    LocalNotification alert(const std::string& owner, const std::string& time) const {
        LocalNotification notification;
        notification.fireDate = environment.at(time);
        notification.timeZone = "UTC";
        notification.alertBody = owner + " is happening!";
        setEventIdentifier(notification, owner);
        return notification;
    }
    void goTo(const std::string& time) {
        environment.clock->set(environment.at(time));
        schedule->fireUntil(environment->now());
    }

    std::shared_ptr<FakeLocalNotifications> schedule = std::make_shared<FakeLocalNotifications>();
    TestEnvironment environment{{.localNotifications = schedule}};  // 2026-03-10T12:00:00
    NotificationRecorder posted{*environment, {MissedEventsHelper::kDidUpdateNotification}};
};

TEST_F(FiredUnseen, NothingIsMissedWithoutAKeptState) {
    schedule->scheduleLocalNotification(alert("a", "2026-03-10T13:00:00"));
    goTo("2026-03-10T14:00:00");
    MissedEventsHelper::find();
    EXPECT_EQ(MissedEventsHelper::missedEvents(), Identifiers());
    EXPECT_TRUE(posted.take().empty());
}

TEST_F(FiredUnseen, EachEventIsFoundOnceInTheOrderOfItsAlerts) {
    LocalNotification silent;
    silent.fireDate = environment.at("2026-03-10T12:30:00");
    silent.applicationIconBadgeNumber = 3;
    schedule->change({}, {alert("b", "2026-03-10T13:00:00"), alert("a", "2026-03-10T13:30:00"),
                          alert("b", "2026-03-10T13:45:00"), alert("c", "2026-03-10T15:00:00"), silent});
    MissedEventsHelper::setMissedEvents({"old", "a"});
    MissedEventsHelper::saveState();
    goTo("2026-03-10T14:00:00");
    (void)posted.take();
    EXPECT_EQ(MissedEventsHelper::missedEventsIfFound(), (Identifiers{"old", "a", "b"}));
    EXPECT_EQ(MissedEventsHelper::missedEvents(), (Identifiers{"old", "a"})) << "asking stores nothing";
    MissedEventsHelper::find();
    EXPECT_EQ(MissedEventsHelper::missedEvents(), (Identifiers{"old", "a", "b"}));
    EXPECT_EQ(posted.take().size(), 1U);

    MissedEventsHelper::clear();
    MissedEventsHelper::find();
    EXPECT_EQ(MissedEventsHelper::missedEvents(), Identifiers()) << "what was seen does not come back";
    goTo("2026-03-10T15:00:00");
    MissedEventsHelper::find();
    EXPECT_EQ(MissedEventsHelper::missedEvents(), Identifiers{"c"});
}

TEST_F(FiredUnseen, ACancelledOneCountsOnlyWhenItsTimeHasCome) {
    const LocalNotification early = alert("early", "2026-03-10T13:00:00");
    const LocalNotification late = alert("late", "2026-03-10T16:00:00");
    schedule->change({}, {early, late});
    MissedEventsHelper::saveState();
    schedule->change({early, late}, {});
    MissedEventsHelper::find();
    EXPECT_EQ(MissedEventsHelper::missedEvents(), Identifiers());
    environment.clock->set(environment.at("2026-03-10T14:00:00"));
    MissedEventsHelper::find();
    EXPECT_EQ(MissedEventsHelper::missedEvents(), Identifiers{"early"});
}

TEST_F(FiredUnseen, ChangesOfTheScheduleAreKeptBesideWhatHasFired) {
    schedule->change({}, {alert("fired", "2026-03-10T13:00:00"), alert("moved", "2026-03-10T14:30:00")});
    MissedEventsHelper::saveState();
    goTo("2026-03-10T14:00:00");
    schedule->change({alert("moved", "2026-03-10T14:30:00")}, {alert("new", "2026-03-10T14:45:00")});
    MissedEventsHelper::saveChanges();
    goTo("2026-03-10T15:00:00");
    MissedEventsHelper::find();
    EXPECT_EQ(MissedEventsHelper::missedEvents(), (Identifiers{"fired", "new"}));
}

TEST_F(FiredUnseen, OneThatIsDueButStillScheduledHasNotFired) {
    schedule->scheduleLocalNotification(alert("a", "2026-03-10T13:00:00"));
    MissedEventsHelper::saveState();
    environment.clock->set(environment.at("2026-03-10T14:00:00"));
    MissedEventsHelper::find();
    EXPECT_EQ(MissedEventsHelper::missedEvents(), Identifiers());
    schedule->fireUntil(environment->now());
    MissedEventsHelper::find();
    EXPECT_EQ(MissedEventsHelper::missedEvents(), Identifiers{"a"});
}

TEST_F(FiredUnseen, FireDatesFollowTheWallClockOfTheZoneTheDeviceIsIn) {
    const LocalNotification nine = alert("a", "2026-03-10T13:00:00");
    schedule->scheduleLocalNotification(nine);
    MissedEventsHelper::saveState();
    environment->setTimeZone(*TimeZone::named("America/New_York"));
    schedule->cancelLocalNotification(nine);
    environment.clock->set(*nine.fireDate + TimeInterval(3600));
    MissedEventsHelper::find();
    EXPECT_EQ(MissedEventsHelper::missedEvents(), Identifiers()) << "there it is 10:00";
    environment.clock->set(*nine.fireDate + TimeInterval(4 * 3600));
    MissedEventsHelper::find();
    EXPECT_EQ(MissedEventsHelper::missedEvents(), Identifiers{"a"});
}

TEST_F(FiredUnseen, TheKeptStateLastsAndABrokenOneIsEmpty) {
    LocalNotification whole = alert("a", "2026-03-10T13:00:00");
    whole.alertAction = "Show";
    whole.soundName = "bell.ogg";
    whole.applicationIconBadgeNumber = 2;
    whole.userInfo.insert_or_assign("more", 5);
    LocalNotification bare;
    MissedEventsHelper::setLastNotifications({whole, bare});
    TestEnvironment second({.home = environment.home});
    EXPECT_EQ(MissedEventsHelper::lastNotifications(), (std::vector{whole, bare}));

    UserDefaults& defaults = second->standardDefaults();
    const Object strange[] = {Data{1, 2, 3}, "text", Array{1}};
    for (const Object& value : strange) {
        defaults.setObject(value, MissedEventsHelper::kLastNotificationsKey);
        EXPECT_TRUE(MissedEventsHelper::lastNotifications().empty());
        MissedEventsHelper::find();
    }
    defaults.archiveObject(Array{1, Dictionary{{"fireDate", "soon"}, {"userInfo", 7}}},
                           MissedEventsHelper::kLastNotificationsKey);
    EXPECT_EQ(MissedEventsHelper::lastNotifications(), std::vector{bare}) << "what cannot be read is left out";
    LocalNotification never = whole;
    for (const double moment : {HUGE_VAL, -HUGE_VAL, std::nan("")}) {
        never.fireDate = Date::sinceReference(moment);
        MissedEventsHelper::setLastNotifications({never, whole});
        EXPECT_EQ(MissedEventsHelper::lastNotifications(), std::vector{whole}) << moment;
    }
    MissedEventsHelper::setLastNotifications({});
    EXPECT_TRUE(defaults.objectForKey(MissedEventsHelper::kLastNotificationsKey).isNull());
}

TEST_F(FiredUnseen, AnotherProcessHasClearedTheList) {
    MissedEventsHelper::setMissedEvents({"a"});
    {
        TestEnvironment other({.home = environment.home});
        MissedEventsHelper::clear();
    }
    (void)posted.take();
    MissedEventsHelper::find();
    EXPECT_EQ(MissedEventsHelper::missedEvents(), Identifiers());
    EXPECT_EQ(posted.take().size(), 1U);
}

}  // namespace
}  // namespace dayward
