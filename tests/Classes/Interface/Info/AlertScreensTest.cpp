#include <gmock/gmock.h>

#include "Classes/Event/EventLocalStore.h"
#include "Classes/Event/HHEvent.h"
#include "Classes/Interface/Info/AlertHealthViewController.h"
#include "Classes/Interface/Info/BadgeViewController.h"
#include "Classes/Interface/Info/SettingsViewController.h"
#include "alerts/AppBadge.h"
#include "alerts/MissedEventsHelper.h"
#include "support/FakeLocalNotifications.h"
#include "support/FakeNotificationDevice.h"
#include "support/GalleryResources.h"
#include "support/ScriptedPresenter.h"
#include "support/TestEnvironment.h"

namespace dayward {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;

class AlertScreens : public ::testing::Test {
protected:
    static TestEnvironment::Options options(const GalleryResources& resources,
                                            const std::shared_ptr<LocalNotifications>& schedule) {
        auto options = resources.options();
        options.localNotifications = schedule;
        return options;
    }
    void add(const std::string& key, const std::optional<std::string>& name, const std::string& day) {
        auto event = std::make_shared<HHEvent>(key);
        event->setName(name);
        event->setDate(environment.at(day));
        EventLocalStore::shared().updateEvents({event});
    }
    void schedule(const std::string& body, const std::string& time) {
        LocalNotification alert;
        alert.fireDate = environment.at(time);
        if (!body.empty()) alert.alertBody = body;
        notifications->scheduleLocalNotification(alert);
    }
    void openAlerts(std::shared_ptr<NotificationDevice> shownBy) {
        shell.navigation.present(std::make_shared<AlertHealthViewController>(std::move(shownBy)));
        EXPECT_THAT(shell.rows(), ElementsAre("Just a moment"));
        environment.queues->runAll();
    }
    [[nodiscard]] std::string footer(std::size_t section) const { return shell.top().sections().at(section).footer; }

    GalleryResources resources;
    std::shared_ptr<FakeLocalNotifications> notifications = std::make_shared<FakeLocalNotifications>();
    TestEnvironment environment{options(resources, notifications)};
    std::shared_ptr<FakeNotificationDevice> device = std::make_shared<FakeNotificationDevice>();
    ScriptedPresenter shell;
    int refreshes = 0;
};

TEST_F(AlertScreens, TheBadgeIsChosenByTypeAndEvent) {
    add("b", "Beach", "2026-03-12");
    add("a", "Ascent", "2026-03-20");
    add("n", std::nullopt, "2026-03-30");
    SettingsViewController::Services services;
    services.refreshNotifications = [this] { ++refreshes; };
    shell.navigation.present(std::make_shared<SettingsViewController>(services));
    EXPECT_THAT(shell.rows(), Contains("Badge: Missed events"));
    shell.tap("badge");
    EXPECT_EQ(shell.top().title(), "Badge");
    EXPECT_EQ(shell.top().sections()[0].header, "Badge Type");
    EXPECT_EQ(shell.top().sections()[1].header, "Selected event for badge");
    EXPECT_THAT(shell.rows(),
                ElementsAre("None", "Missed events *", "Days before next event", "Days before the event",
                            "Days after the event", "--", "Ascent", "Beach", "No name"));
    EXPECT_EQ(footer(0), "No number is shown now.");
    shell.tap("type3");
    EXPECT_EQ(footer(0), "Choose an event below.");
    shell.tap("event:a");
    EXPECT_EQ(refreshes, 2);
    EXPECT_EQ(footer(0), "The number is 10 now.");
    EXPECT_EQ(AppBadge::type(), BadgeType::daysBeforeEvent);
    EXPECT_EQ(AppBadge::eventKey(), "a");
    EXPECT_THAT(shell.rows(), Contains("Days before the event *"));
    EXPECT_THAT(shell.rows(), Contains("Ascent *"));
    EventLocalStore::shared().removeEvents({EventLocalStore::shared().eventByIdentifier("a")});
    EXPECT_EQ(footer(0), "Choose an event below.") << "it is gone";
    shell.tap("type1");
    MissedEventsHelper::setMissedEvents({"b"});
    EXPECT_EQ(footer(0), "The number is 1 now.");
    shell.tap("type2");
    shell.back();
    EXPECT_THAT(shell.rows(), Contains("Badge: Days before next event"));
}

TEST_F(AlertScreens, TellsThatAlertsWillComeAndWhich) {
    schedule("", "2026-03-10T13:00:00");
    schedule("A is happening!", "2026-03-10T14:00:00");
    for (const char* time : {"2026-03-11T09:00:00", "2026-03-12T09:00:00", "2026-03-13T09:00:00"}) schedule("B", time);
    LocalNotification snoozed;
    snoozed.fireDate = environment.at("2026-03-11T08:00:00");
    snoozed.alertBody = "Later";
    notifications->snooze(snoozed);
    openAlerts(device);
    EXPECT_THAT(shell.rows(),
                ElementsAre("Alerts will come, also while Dayward is closed.", "--", "Helper answers: Yes",
                            "Shown by: Desk", "Buttons on alerts: Yes", "--",
                            "A is happening!: Tuesday, March 10 at 2:00 PM", "Later: Wednesday, March 11 at 8:00 AM",
                            "B: Wednesday, March 11 at 9:00 AM", "--", "Send a test alert"));
    EXPECT_EQ(footer(2), "Scheduled: 5") << "what only sets the badge is no alert";
    shell.take();
    shell.tap("test");
    EXPECT_FALSE(shell.row("test").enabled) << "one at a time";
    environment.queues->runAll();
    ASSERT_EQ(device->shown.size(), 1U);
    EXPECT_TRUE(device->shown.front().alertBody && device->shown.front().soundName);
    EXPECT_THAT(shell.take(), ElementsAre("notice Sent"));
    EXPECT_TRUE(shell.row("test").enabled);
}

TEST_F(AlertScreens, SaysWhatIsInTheWay) {
    device->answer = {.keeperAnswers = false, .service = "Desk", .hasActions = false, .isQuiet = true};
    openAlerts(device);
    EXPECT_THAT(shell.rows(),
                ElementsAre("Alerts will not come.",
                            "The helper that gives alerts while Dayward is closed does not answer.",
                            "Do not disturb is on: the desktop keeps alerts back.", "--", "Helper answers: No",
                            "Shown by: Desk", "Buttons on alerts: No", "Do not disturb: Yes", "--",
                            "No alert is scheduled.", "--", "Send a test alert"));
    device->answer = {.keeperAnswers = true, .service = {}, .hasActions = false, .isQuiet = {}};
    shell.take();
    shell.tap("test");
    environment.queues->runAll();
    EXPECT_THAT(shell.take(), ElementsAre("alert The test alert could not be shown."));
    EXPECT_EQ(shell.alert.message, "nothing shows notifications");
    shell.back();
    openAlerts(nullptr);
    EXPECT_THAT(shell.rows(), Contains("Your desktop has no service that shows notifications."));
    EXPECT_FALSE(shell.row("test").enabled);
}

TEST_F(AlertScreens, AScreenThatWasLeftTakesNoAnswer) {
    openAlerts(device);
    shell.tap("test");
    shell.back();
    shell.take();
    environment.queues->runAll();
    EXPECT_THAT(shell.take(), ElementsAre());
}

}  // namespace
}  // namespace dayward
