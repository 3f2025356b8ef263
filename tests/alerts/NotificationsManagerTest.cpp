#include "alerts/NotificationsManager.h"

#include <atomic>
#include <limits>

#include "AlertsFixture.h"
#include "alerts/AppBadge.h"
#include "alerts/EventNotifications.h"
#include "alerts/MissedEventsHelper.h"
#include "alerts/NotificationDifference.h"
#include "alerts/NotificationPresenter.h"
#include "platform/Audio.h"
#include "support/TestPaths.h"

namespace dayward {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

constexpr TimeInterval kDelay = NotificationsManager::kDelay;

class NotificationsManagerTest : public AlertsFixture {
protected:
    void addDays(int count, std::vector<XDIDateInterval> alerts = {onEvent}) {
        std::vector<std::shared_ptr<HHEvent>> events;
        for (int day = 1; day <= count; ++day) {
            const std::string name = (day < 10 ? "00" : day < 100 ? "0" : "") + std::to_string(day);
            events.push_back(eventOn(name, at("2026-03-10") + TimeInterval(86400.0 * day), alerts));
        }
        store().updateEvents(events);
    }
    void waitForBatch() const { environment.queues->advance(kDelay); }
};

// The clock shows 2026-03-10 12:00 in UTC.

TEST_F(NotificationsManagerTest, OfAHundredEventsTheNearest64AreScheduled) {
    addDays(100);
    NotificationsManager::syncRefresh();
    const auto all = scheduled();
    ASSERT_THAT(all, SizeIs(64));
    EXPECT_EQ(all.front(), "2026-03-11T00:00:00 Event 001 is happening!");
    EXPECT_EQ(all.back(), "2026-05-13T00:00:00 Event 064 is happening!");
    EXPECT_EQ(lines(NotificationsManager::wantedNotifications()), all);
}

TEST_F(NotificationsManagerTest, AnEventOfEveryMinuteLeavesTheRestToTheOthers) {
    addDays(100);
    store().updateEvent(eventOn("minutely", at("2026-03-10"), {onEvent}, {0}, "FREQ=MINUTELY;INTERVAL=1"));
    NotificationsManager::syncRefresh();
    EXPECT_EQ(countOf("minutely"), 30u);
    EXPECT_THAT(scheduled(), SizeIs(64));
    EXPECT_EQ(scheduled().front(), "2026-03-10T12:01:00 Event minutely is happening!");
}

TEST_F(NotificationsManagerTest, WhatIsTheSameIsLeftAlone) {
    addDays(5, {onEvent, before(CalendarUnit::hour, 1)});
    NotificationsManager::refresh();
    EXPECT_THAT(scheduled(), IsEmpty());
    environment.queues->runAll();
    EXPECT_THAT(scheduled(), SizeIs(10));
    const int changes = device->changes();
    NotificationsManager::syncRefresh();
    NotificationsManager::updateForEvent(store().eventByIdentifier("003"));
    waitForBatch();
    EXPECT_EQ(device->changes(), changes);
}

TEST_F(NotificationsManagerTest, ChangesInTheStoreAreFollowedTogether) {
    NotificationsManager::followStore();
    NotificationsManager::followStore();
    addDays(3);
    store().updateEvent(eventOn("002", at("2026-04-01"), {before(CalendarUnit::day, 1)}));
    EXPECT_THAT(scheduled(), IsEmpty());
    waitForBatch();
    EXPECT_THAT(scheduled(), ElementsAre("2026-03-11T00:00:00 Event 001 is happening!",
                                         "2026-03-13T00:00:00 Event 003 is happening!",
                                         "2026-03-31T00:00:00 Event 002 - is coming in 1 Day!"));
    EXPECT_EQ(device->changes(), 1);
    store().removeEvent(store().eventByIdentifier("001"));
    NotificationsManager::flush();
    EXPECT_THAT(scheduled(), SizeIs(2));
    EXPECT_EQ(countOf("001"), 0u);
    waitForBatch();
    EXPECT_EQ(device->changes(), 2);
}

TEST_F(NotificationsManagerTest, AnEventThatIsGoneBeforeTheBatchGivesNone) {
    const auto event = eventOn("gone", at("2026-04-01"), {onEvent});
    store().updateEvent(event);
    NotificationsManager::syncRefresh();
    NotificationsManager::updateForEvent(event);
    store().removeEvent(event);
    waitForBatch();
    EXPECT_THAT(scheduled(), IsEmpty());
}

TEST_F(NotificationsManagerTest, OfOneEventTheLastTargetCounts) {
    const auto event = eventOn("a", at("2026-04-01"), {onEvent});
    const auto other = eventOn("b", at("2026-04-01"), {onEvent, before(CalendarUnit::day, 1)});
    store().updateEvents({event, other});
    NotificationsManager::removeForEvent(event);
    NotificationsManager::updateForEvent(event);
    NotificationsManager::updateForEvent(other);
    NotificationsManager::flush();
    EXPECT_THAT(scheduled(),
                ElementsAre("2026-03-31T00:00:00 Event b - is coming in 1 Day!",
                            "2026-04-01T00:00:00 Event a is happening!", "2026-04-01T00:00:00 Event b is happening!"));
    NotificationsManager::updateForEvent(event);
    NotificationsManager::removeForEvent(event);
    NotificationsManager::flush();
    EXPECT_EQ(countOf("a"), 0u);
    EXPECT_EQ(countOf("b"), 2u);
    EXPECT_EQ(device->changes(), 2);
}

TEST_F(NotificationsManagerTest, ABatchKeepsTheNearest64) {
    NotificationsManager::followStore();
    addDays(64);
    waitForBatch();
    store().updateEvent(eventOn("near", at("2026-03-10"), {onEvent}, {780, 840}));
    store().updateEvent(eventOn("far", at("2026-09-01"), {onEvent}));
    waitForBatch();
    EXPECT_THAT(scheduled(), SizeIs(64));
    EXPECT_EQ(countOf("near"), 2u);
    EXPECT_EQ(countOf("far"), 0u);
    EXPECT_EQ(countOf("063"), 0u);
    EXPECT_EQ(countOf("062"), 1u);
    store().removeEvent(store().eventByIdentifier("near"));
    waitForBatch();
    EXPECT_THAT(scheduled(), SizeIs(62));  // a batch looks at no other event
    NotificationsManager::syncRefresh();
    EXPECT_THAT(scheduled(), SizeIs(64));
}

TEST_F(NotificationsManagerTest, AnotherSoundReplacesTheNotification) {
    auto event = std::make_shared<HHEvent>(*eventOn("a", at("2026-04-01"), {onEvent}));
    store().updateEvent(event);
    NotificationsManager::syncRefresh();
    event = std::make_shared<HHEvent>(*event);
    event->alerts().soundName = "Sounds/bell.mp3";
    store().updateEvent(event);
    NotificationsManager::syncRefresh();
    const auto all = device->scheduledLocalNotifications();
    ASSERT_THAT(all, SizeIs(1));
    EXPECT_EQ(all[0].soundName, "bell.mp3");
    EXPECT_EQ(all[0].timeZone, "UTC");
    EXPECT_EQ(all[0].alertAction, "Show");
}

TEST_F(NotificationsManagerTest, WhatIsDueStaysUntilTheDeviceHasShownIt) {
    addDays(70);
    NotificationsManager::syncRefresh();
    environment.clock->set(at("2026-03-12T08:00:00"));  // the device has slept over two of them
    NotificationsManager::syncRefresh();
    const auto all = scheduled();
    ASSERT_THAT(all, SizeIs(64));
    EXPECT_EQ(all[0], "2026-03-11T00:00:00 Event 001 is happening!");
    NotificationsManager::updateForEvent(store().eventByIdentifier("002"));
    waitForBatch();
    EXPECT_EQ(scheduled(), all);
    store().removeEvent(store().eventByIdentifier("001"));
    NotificationsManager::syncRefresh();
    EXPECT_EQ(countOf("001"), 0u);
    device->fireUntil(environment->now());
    NotificationsManager::syncRefresh();
    EXPECT_EQ(scheduled().front(), "2026-03-13T00:00:00 Event 003 is happening!");
    EXPECT_THAT(scheduled(), SizeIs(64));
}

TEST_F(NotificationsManagerTest, WhatFallsDueAtThisMomentStaysToo) {
    addDays(2);
    NotificationsManager::syncRefresh();
    environment.clock->set(at("2026-03-11T00:00:00"));
    NotificationsManager::syncRefresh();
    EXPECT_EQ(countOf("001"), 1u);
    NotificationsManager::updateForEvent(store().eventByIdentifier("001"));
    NotificationsManager::flush();
    EXPECT_EQ(countOf("001"), 1u);
}

/// Goes on by a second behind so many readings.
class SteppingClock final : public Clock {
public:
    explicit SteppingClock(Date now) : now_(now) {}
    [[nodiscard]] Date now() const override { return readings_-- > 0 ? now_ : now_ + TimeInterval(1); }
    void stepAfter(int readings) { readings_ = readings; }
    [[nodiscard]] bool hasStepped() const { return readings_ < 0; }

private:
    const Date now_;
    mutable std::atomic<int> readings_ = std::numeric_limits<int>::max();
};

TEST_F(NotificationsManagerTest, WhatFallsDueWhileTheListIsMadeIsNotTakenAway) {
    for (const bool inBatch : {false, true}) {
        const auto clock = std::make_shared<SteppingClock>(at("2026-03-10T23:59:59.5"));
        TestEnvironment::Options options;
        options.clock = clock;
        options.localNotifications = device;
        TestEnvironment other(options);
        const auto event = eventOn("a", at("2026-03-11"), {onEvent});
        EventLocalStore::shared().updateEvent(event);
        for (int readings = 0; readings < 40; ++readings) {
            NotificationsManager::syncRefresh();
            ASSERT_EQ(countOf("a"), 1u);
            clock->stepAfter(readings);
            if (inBatch) {
                NotificationsManager::updateForEvent(event);
                NotificationsManager::flush();
            } else {
                NotificationsManager::syncRefresh();
            }
            EXPECT_EQ(countOf("a"), 1u) << "the second began after " << readings << " readings";
            if (!clock->hasStepped()) break;
            clock->stepAfter(std::numeric_limits<int>::max());
        }
        EXPECT_FALSE(clock->hasStepped());
    }
}

TEST_F(NotificationsManagerTest, WhatTheUserPutOffHasAPlaceOfItsOwn) {
    addDays(70);
    LocalNotification snoozed;
    snoozed.fireDate = at("2026-03-10T12:10:00");
    device->snooze(snoozed);
    NotificationsManager::syncRefresh();
    EXPECT_THAT(scheduled(), SizeIs(63));
    NotificationsManager::updateForEvent(store().eventByIdentifier("064"));
    waitForBatch();
    EXPECT_THAT(scheduled(), SizeIs(63));
    EXPECT_EQ(device->changes(), 1);
}

TEST_F(NotificationsManagerTest, WhatTheUserPutOffGoesWithItsEventAndComesBackWithIt) {
    NotificationsManager::followStore();
    addDays(2);
    const auto event = store().eventByIdentifier("001");
    for (const char* time : {"2026-03-10T12:10:00", "2026-03-10T13:00:00"}) {
        LocalNotification snoozed;
        snoozed.fireDate = at(time);
        setEventIdentifier(snoozed, "001");
        device->snooze(snoozed);
    }
    LocalNotification others;
    others.fireDate = at("2026-03-10T12:20:00");
    setEventIdentifier(others, "002");
    device->snooze(others);
    event->setDate(at("2026-05-01"));
    store().updateEvent(event);
    waitForBatch();
    EXPECT_THAT(device->snoozedLocalNotifications(), SizeIs(3)) << "another date changes nothing of it";
    store().removeEvent(event);
    waitForBatch();
    EXPECT_THAT(device->snoozedLocalNotifications(), ElementsAre(others));
    environment.clock->set(at("2026-03-10T12:15:00"));
    store().updateEvent(event);
    waitForBatch();
    EXPECT_THAT(lines(device->snoozedLocalNotifications()), ElementsAre("2026-03-10T12:20:00 ", "2026-03-10T13:00:00 "))
        << "what would have fired meanwhile does not come";
    store().removeEvent(event);
    store().updateEvent(event);
    waitForBatch();
    EXPECT_THAT(device->snoozedLocalNotifications(), SizeIs(2));
}

TEST_F(NotificationsManagerTest, ARefreshCountsWhenTheDeviceHasTakenIt) {
    addDays(1);
    device->setBroken(true);
    EXPECT_FALSE(NotificationsManager::syncRefresh());
    EXPECT_EQ(NotificationsManager::refreshCount(), 0u);
    device->setBroken(false);
    EXPECT_TRUE(NotificationsManager::syncRefresh());
    EXPECT_TRUE(NotificationsManager::syncRefresh());
    EXPECT_EQ(NotificationsManager::refreshCount(), 2u);
}

TEST_F(NotificationsManagerTest, TheBadgesNotificationsShareTheLimitAndItsNumberIsSet) {
    addDays(100);
    AppBadge::setType(BadgeType::daysBeforeEvent);
    AppBadge::setEventKey("003");
    NotificationsManager::syncRefresh();
    EXPECT_THAT(scheduled(), SizeIs(64));
    EXPECT_THAT(scheduled(), Contains("2026-03-11T00:00:00 "));
    EXPECT_EQ(device->applicationIconBadgeNumber(), 3);
    const int changes = device->changes();
    NotificationsManager::syncRefresh();
    EXPECT_EQ(device->changes(), changes);
    store().removeEvent(store().eventByIdentifier("003"));
    NotificationsManager::syncRefresh();
    EXPECT_THAT(scheduled(), Not(Contains("2026-03-11T00:00:00 ")));
    EXPECT_EQ(device->applicationIconBadgeNumber(), 3);
}

TEST_F(NotificationsManagerTest, TheCountOfMissedEventsIsShownAtOnce) {
    NotificationsManager::followStore();
    AppBadge::setType(BadgeType::missedEvents);
    MissedEventsHelper::setMissedEvents({"a", "b"});
    EXPECT_EQ(device->applicationIconBadgeNumber(), 2);
    AppBadge::setType(BadgeType::daysBeforeNextEvent);
    MissedEventsHelper::clear();
    EXPECT_EQ(device->applicationIconBadgeNumber(), 2);
    AppBadge::setType(BadgeType::missedEvents);
    MissedEventsHelper::setMissedEvents({"a"});
    MissedEventsHelper::clear();
    EXPECT_EQ(device->applicationIconBadgeNumber(), 0);
}

TEST_F(NotificationsManagerTest, PermissionIsAskedOnceAndNotBeforeTheFirstEvent) {
    NotificationsManager::syncRefresh();
    EXPECT_THAT(device->registered(), IsEmpty());
    NotificationsManager::followStore();
    addDays(2);
    NotificationsManager::syncRefresh();
    EXPECT_THAT(device->registered(), ElementsAre(static_cast<UserNotificationTypes>(7)));
}

TEST(NotificationsWithoutADevice, AreStillToldButNotScheduled) {
    TestEnvironment environment;
    NotificationsManager::followStore();
    EventLocalStore::shared().updateEvent(eventOn("a", environment.at("2026-04-01"), {onEvent}));
    NotificationsManager::flush();
    NotificationsManager::syncRefresh();
    EXPECT_THAT(NotificationsManager::wantedNotifications(), SizeIs(1));
}

TEST(NotificationText, SaysWhenInTheUsersLanguage) {
    const auto text = [](const XDIDateInterval& alert) { return AlertTexts().text("Tea", alert); };
    {
        TestEnvironment environment;
        EXPECT_EQ(text(onEvent), "Tea is happening!");
        EXPECT_EQ(text(before(CalendarUnit::minute, 0)), "Tea is happening!");
        EXPECT_EQ(text(after(CalendarUnit::day, 1)), "Tea since last 1 Day!");
        EXPECT_EQ(text(before(CalendarUnit::month, 2)), "Tea - is coming in 2 Months!");
        XDIDateInterval mixed(CalendarUnit::day, 1);
        mixed.hour = 12;
        EXPECT_EQ(text(mixed), "Tea - is coming in 1 Day 12 Hours!");
    }
    TestEnvironment::Options options;
    options.locale = "ru_RU";
    TestEnvironment environment(options);
    EXPECT_EQ(text(onEvent), "Сейчас: Tea!");
    EXPECT_EQ(text(before(CalendarUnit::minute, 1)), "До события «Tea»: 1 Минута!");
    EXPECT_EQ(text(after(CalendarUnit::hour, 5)), "После события «Tea»: 5 Часов!");
}

TEST_F(NotificationsManagerTest, AnEventWithoutNameOrWithEqualAlertsIsToldOnce) {
    const auto event = eventOn("a", at("2027-03-28"), {before(CalendarUnit::month, 1), before(CalendarUnit::month, 1)},
                               {0}, "FREQ=DAILY;INTERVAL=1;UNTIL=20270401T000000Z");
    event->setName(std::nullopt);
    EXPECT_THAT(lines(notificationsOfEvent(*event)), ElementsAre("2027-02-28T00:00:00 ??? - is coming in 1 Month!",
                                                                 "2027-03-01T00:00:00 ??? - is coming in 1 Month!"));
}

TEST(NotificationKey, TellsOwnerMomentAndBodyApart) {
    LocalNotification one;
    one.fireDate = Date::sinceReference(0.1);
    one.alertBody = "Tea";
    LocalNotification other = one;
    other.soundName = "bell.mp3";
    EXPECT_EQ(notificationKey(one), notificationKey(other));
    const auto differs = [&](auto change) {
        LocalNotification changed = one;
        change(changed);
        return notificationKey(changed) != notificationKey(one);
    };
    EXPECT_TRUE(differs([](LocalNotification& n) { n.alertBody = "Te"; }));
    EXPECT_TRUE(differs([](LocalNotification& n) { n.fireDate = Date::sinceReference(0.1 + 1e-16); }));
    EXPECT_TRUE(differs([](LocalNotification& n) { setEventIdentifier(n, "a"); }));
    LocalNotification silent;
    silent.applicationIconBadgeNumber = 1;
    LocalNotification next = silent;
    next.applicationIconBadgeNumber = 2;
    EXPECT_NE(notificationKey(silent), notificationKey(next));
}

class HeardSounds final : public AudioDevice {
public:
    std::unique_ptr<AudioPlayer> play(const std::string& path) override {
        played.push_back(path.substr(path.rfind('/') + 1));
        return std::make_unique<Player>(playing);
    }
    std::vector<std::string> played;
    int playing = 0;

private:
    struct Player final : AudioPlayer {
        explicit Player(int& count) : playing(count) { ++playing; }
        ~Player() override { --playing; }
        int& playing;
    };
};

class SeenAlerts final : public NotificationPresenter {
public:
    void showNotificationAlert(const std::string& message, const std::optional<std::string>& event) override {
        shown.push_back(message + " " + event.value_or("-"));
    }
    std::vector<std::string> shown;
};

TEST(ShownNotification, IsSeenAndHeardOnTheMainQueue) {
    TestEnvironment::Options options;
    const auto sounds = std::make_shared<HeardSounds>();
    options.audio = sounds;
    options.resources = testData() + "/resources";
    TestEnvironment environment(options);
    auto presenter = std::make_shared<SeenAlerts>();
    NotificationsManager::setPresenter(presenter);
    LocalNotification notification;
    notification.alertBody = "Tea is happening!";
    setEventIdentifier(notification, "a");
    NotificationsManager::showNotification(notification);
    EXPECT_THAT(presenter->shown, IsEmpty());
    environment.queues->runAll();
    EXPECT_THAT(presenter->shown, ElementsAre("Tea is happening! a"));
    EXPECT_THAT(sounds->played, IsEmpty());
    notification.soundName = "Soft_Bell.wav";
    NotificationsManager::showNotification(notification);
    environment.queues->runAll();
    EXPECT_THAT(sounds->played, ElementsAre("Soft_Bell.wav"));
    notification.soundName.reset();
    NotificationsManager::showNotification(notification);
    environment.queues->runAll();
    EXPECT_EQ(sounds->playing, 1) << "one without a sound ends no other's";
    notification.soundName = "Soft_Bell.wav";
    NotificationsManager::showNotification(notification);
    presenter.reset();
    environment.queues->runAll();  // the window has gone meanwhile
    EXPECT_THAT(sounds->played, SizeIs(1));
}

}  // namespace
}  // namespace dayward
