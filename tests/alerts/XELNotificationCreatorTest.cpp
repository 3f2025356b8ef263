#include "alerts/XELNotificationCreator.h"

#include "AlertsFixture.h"

namespace dayward {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class CreatorTest : public AlertsFixture {
protected:
    using Creator = std::unique_ptr<XELNotificationCreator>;

    Creator creator(const std::string& day, std::vector<std::int64_t> times, std::vector<XDIDateInterval> alerts,
                    std::optional<std::string> rule = std::nullopt) const {
        auto result = std::make_unique<XELNotificationCreator>();
        result->startDateDay = at(day);
        result->startDateTimes = std::move(times);
        result->alerts = std::move(alerts);
        result->rrule = std::move(rule);
        return result;
    }
    [[nodiscard]] std::vector<std::string> dates(const Creator& creator) const {
        std::vector<std::string> result;
        for (const LocalNotification& one : creator->getNotifications())
            result.push_back(environment.text(*one.fireDate));
        return result;
    }
};

// The clock shows 2026-03-10 12:00 in UTC.

TEST_F(CreatorTest, AlertsHaveEqualPartsOfTheBudgetAndTimesEqualPartsOfThose) {
    const auto two = creator("2026-01-01", {540}, {onEvent, before(CalendarUnit::hour, 1)}, "FREQ=DAILY;INTERVAL=1");
    two->maxNotificationsCount = 30;
    EXPECT_THAT(two->getNotifications(), SizeIs(30));
    const auto three = creator("2026-01-01", {540, 720, 1080}, {onEvent, before(CalendarUnit::hour, 1)},
                         "FREQ=DAILY;INTERVAL=1");
    three->maxNotificationsCount = 30;
    const auto all = dates(three);
    ASSERT_THAT(all, SizeIs(30));
    EXPECT_EQ(all.front(), "2026-03-10T18:00:00");  // noon itself is over
    EXPECT_EQ(all[15], "2026-03-10T17:00:00");      // alert by alert
    three->maxNotificationsCount = 7;                // 4 for each alert, 2 for each time of day
    EXPECT_THAT(three->getNotifications(), SizeIs(12));
}

TEST_F(CreatorTest, AnAlertWhoseTimeHasPassedIsNotMade) {
    const auto tonight = creator("2026-03-11", {0}, {before(CalendarUnit::day, 1), before(CalendarUnit::hour, 1)});
    EXPECT_THAT(dates(tonight), ElementsAre("2026-03-10T23:00:00"));
    const auto over = creator("2026-03-09", {0}, {onEvent});
    EXPECT_THAT(dates(over), IsEmpty());
    EXPECT_EQ(over->resultEndDate(), at("2027-03-10T12:00:00"));
    const auto afterwards = creator("2026-03-10", {540}, {after(CalendarUnit::hour, 4), after(CalendarUnit::hour, 3)});
    EXPECT_THAT(dates(afterwards), ElementsAre("2026-03-10T13:00:00"));
}

TEST_F(CreatorTest, AFarOccurrenceCountsOnlyWhereThereIsNoNearerOne) {
    const auto far = creator("2028-05-01", {600}, {before(CalendarUnit::day, 1)});
    EXPECT_THAT(dates(far), ElementsAre("2028-04-30T10:00:00"));
    EXPECT_EQ(far->resultEndDate(), at("2028-05-01T10:00:00"));
    const auto yearly = creator("2020-03-10", {780}, {onEvent}, "FREQ=YEARLY;INTERVAL=1");
    EXPECT_THAT(dates(yearly), ElementsAre("2026-03-10T13:00:00"));
}

TEST_F(CreatorTest, TheResultReachesToTheEarliestOfTheAlertsLastDates) {
    const auto monthly =
        creator("2026-01-15", {0}, {onEvent, before(CalendarUnit::month, 1)}, "FREQ=MONTHLY;INTERVAL=1");
    monthly->maxNotificationsCount = 4;
    EXPECT_THAT(dates(monthly), ElementsAre("2026-03-15T00:00:00", "2026-04-15T00:00:00",  // on the event
                                            "2026-03-15T00:00:00", "2026-04-15T00:00:00"));
    EXPECT_EQ(monthly->resultStartDate(), at("2026-03-10T12:00:00"));
    EXPECT_EQ(monthly->resultEndDate(), at("2026-04-15T00:00:00"));
    EXPECT_EQ(environment.text(*monthly->resultRefreshDate()), "2026-03-28T06:00:00");
    monthly->alerts = {};
    EXPECT_THAT(monthly->getNotifications(), IsEmpty());
    EXPECT_EQ(monthly->resultEndDate(), at("2027-03-10T12:00:00"));
}

TEST_F(CreatorTest, AMonthBeforeALongMonthIsTheLastDayOfTheShortOne) {
    environment.clock->set(at("2027-02-20"));
    const auto daily = creator("2027-03-28", {0}, {before(CalendarUnit::month, 1)},
                         "FREQ=DAILY;INTERVAL=1;UNTIL=20270401T000000Z");
    EXPECT_THAT(dates(daily), ElementsAre("2027-02-28T00:00:00", "2027-02-28T00:00:00", "2027-02-28T00:00:00",
                                          "2027-02-28T00:00:00", "2027-03-01T00:00:00"));
}

TEST_F(CreatorTest, AlertsBeyondTheCalendarGiveNothing) {
    const auto event = creator("2026-04-01", {0}, {before(CalendarUnit::year, 1e18), after(CalendarUnit::year, 1e18),
                                             before(CalendarUnit::second, -1e300)},
                         "FREQ=DAILY;INTERVAL=1");
    EXPECT_THAT(dates(event), IsEmpty());
}

TEST_F(CreatorTest, ASoundIsStoredByItsFile) {
    XELNotificationCreator some;
    const auto stored = [&](const std::optional<std::string>& name) {
        some.setSoundName(name);
        return some.soundName();
    };
    EXPECT_EQ(stored("Sounds/Long/bell.mp3"), "bell.mp3");
    EXPECT_EQ(stored("bell.mp3"), "bell.mp3");
    EXPECT_EQ(stored("Default"), "UILocalNotificationDefaultSoundName");
    EXPECT_EQ(stored("UILocalNotificationDefaultSoundName"), "UILocalNotificationDefaultSoundName");
    EXPECT_EQ(stored(std::nullopt), std::nullopt);
}

}  // namespace
}  // namespace dayward
