#include "alerts/AppBadge.h"

#include <gmock/gmock.h>

#include "Classes/Event/HHEvent.h"
#include "Classes/Settings/AppSettings.h"
#include "Submodules/CorpLibrary2/Foundation/CCKeyStorage.h"
#include "alerts/MissedEventsHelper.h"
#include "platform/FileSystem.h"
#include "platform/Strings.h"
#include "platform/UserDefaults.h"
#include "support/TestEnvironment.h"

namespace dayward {
namespace {

using ::testing::IsEmpty;

/// A home whose settings hold that older switch.
void writeOlderSwitch(Environment& environment, bool on) {
    CCKeyStorage storage(
        KeyStorageFile{joinPath(environment.paths().applicationSupport, AppSettings::kFileName)});
    storage.setValue(on, AppSettings::Keys::appBadgeShow);
    ASSERT_TRUE(storage.write());
}

TEST(AppBadgeChoice, AnOlderSwitchDecidesWhileNothingIsStored) {
    const struct {
        std::optional<bool> older;
        BadgeType type;
    } cases[] = {{std::nullopt, BadgeType::missedEvents}, {true, BadgeType::missedEvents}, {false, BadgeType::none}};
    for (const auto& each : cases) {
        TestEnvironment environment;
        if (each.older) writeOlderSwitch(*environment, *each.older);
        EXPECT_EQ(AppBadge::type(), each.type);
        AppBadge::setType(BadgeType::daysAfterEvent);
        EXPECT_EQ(AppBadge::type(), BadgeType::daysAfterEvent);
    }
}

TEST(AppBadgeChoice, AStrangeNumberIsNone) {
    TestEnvironment environment;
    UserDefaults& defaults = environment->standardDefaults();
    for (const std::int64_t stored : {5, 7, -1}) {
        defaults.setObject(stored, AppBadge::kTypeKey);
        EXPECT_EQ(AppBadge::type(), BadgeType::none) << stored;
    }
    defaults.setObject("text", AppBadge::kTypeKey);
    EXPECT_EQ(AppBadge::type(), BadgeType::missedEvents) << "as if nothing were stored";
    defaults.setObject(3, AppBadge::kEventKeyKey);
    EXPECT_EQ(AppBadge::eventKey(), std::nullopt);
}

TEST(AppBadgeChoice, LastsAndIsTakenBack) {
    TestEnvironment first;
    AppBadge::setType(BadgeType::daysBeforeEvent);
    AppBadge::setEventKey("a");
    TestEnvironment second({.home = first.home});
    EXPECT_EQ(AppBadge::type(), BadgeType::daysBeforeEvent);
    EXPECT_EQ(AppBadge::eventKey(), "a");
    AppBadge::setEventKey(std::nullopt);
    EXPECT_TRUE(second->standardDefaults().objectForKey(AppBadge::kEventKeyKey).isNull());
}

TEST(AppBadgeChoice, NamesAreInTheUsersLanguage) {
    TestEnvironment environment({.locale = "ru_RU"});
    const Strings& texts = environment->strings();
    for (const char* word : {"None", "Missed events", "Days before next event", "Days before the event"}) {
        EXPECT_TRUE(texts.contains(word)) << word;
    }
    EXPECT_EQ(AppBadge::displayName(BadgeType::daysAfterEvent), "Дней после события");
}

class AppBadgeNumber : public ::testing::Test {
protected:
    AppBadgeNumber() {
        coming->setDate(environment.at("2026-03-11"));
        coming->setTimes({720});
        past->setDate(environment.at("2026-03-07"));
    }
    std::vector<std::string> silent() {
        std::vector<std::string> lines;
        for (const LocalNotification& one : AppBadge::silentNotifications(events, environment->now())) {
            EXPECT_FALSE(one.timeZone || one.alertBody || one.alertAction || one.soundName || !one.userInfo.empty());
            lines.push_back(environment.text(*one.fireDate) + " " + std::to_string(*one.applicationIconBadgeNumber));
        }
        return lines;
    }
    [[nodiscard]] std::optional<std::int64_t> number() const {
        return AppBadge::currentNumber(events, environment->now());
    }

    TestEnvironment environment;
    std::shared_ptr<HHEvent> coming = std::make_shared<HHEvent>("coming");
    std::shared_ptr<HHEvent> past = std::make_shared<HHEvent>("past");
    AppBadge::Events events{past, coming};
};

TEST_F(AppBadgeNumber, OfEachType) {
    MissedEventsHelper::setMissedEvents({"gone", "coming"});
    AppBadge::setType(BadgeType::none);
    EXPECT_EQ(number(), 0);
    EXPECT_THAT(silent(), IsEmpty());
    AppBadge::setType(BadgeType::missedEvents);
    EXPECT_EQ(number(), 2) << "a removed event counts";
    EXPECT_THAT(silent(), IsEmpty());
    AppBadge::setType(BadgeType::daysBeforeNextEvent);
    EXPECT_EQ(number(), 1);
    EXPECT_THAT(silent(), ::testing::ElementsAre("2026-03-11T12:00:00 0"));
    AppBadge::setType(BadgeType::daysBeforeEvent);
    AppBadge::setEventKey("past");
    EXPECT_EQ(number(), 0) << "it is over";
    EXPECT_THAT(silent(), IsEmpty());
    AppBadge::setEventKey("coming");
    EXPECT_EQ(number(), 1);
    EXPECT_THAT(silent(), ::testing::ElementsAre("2026-03-11T12:00:00 0"));
    AppBadge::setType(BadgeType::daysAfterEvent);
    AppBadge::setEventKey("past");
    EXPECT_EQ(number(), 3);
    EXPECT_EQ(silent().front(), "2026-03-11T00:00:00 4");
}

TEST_F(AppBadgeNumber, StaysWhereTheChosenEventIsGone) {
    for (const BadgeType type : {BadgeType::daysBeforeEvent, BadgeType::daysAfterEvent}) {
        AppBadge::setType(type);
        for (const std::optional<std::string>& key : {std::optional<std::string>(), std::optional<std::string>("gone")}) {
            AppBadge::setEventKey(key);
            EXPECT_EQ(number(), std::nullopt);
            EXPECT_THAT(silent(), IsEmpty());
        }
    }
}

}  // namespace
}  // namespace dayward
