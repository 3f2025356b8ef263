#include <gmock/gmock.h>

#include <fstream>
#include <tuple>

#include "Classes/App/ArchiveRegistration.h"
#include "Classes/Category/CategoryLocalStore.h"
#include "Classes/Category/EventCategory.h"
#include "Classes/Event/EventLocalStore.h"
#include "Classes/Event/HHEvent.h"
#include "Classes/Interface/Info/DefaultValuesViewController.h"
#include "Classes/Interface/Info/EventsSortViewController.h"
#include "Classes/Interface/Info/InformationViewController.h"
#include "Classes/Interface/Info/SettingsViewController.h"
#include "Classes/Settings/AppSettings.h"
#include "Classes/Settings/InterfaceSettings.h"
#include "alerts/AppBadge.h"
#include "alerts/AppWidget.h"
#include "platform/FailedSave.h"
#include "platform/UserDefaults.h"
#include "support/FaultFileSystem.h"
#include "support/GalleryResources.h"
#include "support/NotificationRecorder.h"
#include "support/ScriptedPresenter.h"

namespace dayward {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using Theme = InterfaceSettings::Theme;

class SettingsScreensTest : public ::testing::Test {
protected:
    SettingsScreensTest() {
        AppSettings::setTableSortType(0);  // the first use seeds the settings
        std::ignore = posted.take();
    }
    void openSettings(SettingsViewController::Services services = {}) {
        shell.navigation.present(std::make_shared<SettingsViewController>(std::move(services)));
        shell.take();
    }

    GalleryResources resources;
    TestEnvironment environment{resources.options()};
    NotificationRecorder posted{
        *environment, {AppSettings::kTableSortDidUpdateNotification, InterfaceSettings::kDidUpdateNotification}};
    ScriptedPresenter shell;
};

TEST_F(SettingsScreensTest, ChangesTheDefaultsAtOnce) {
    shell.navigation.present(std::make_shared<DefaultValuesViewController>());
    EXPECT_THAT(shell.rows(), ElementsAre("Time: 12:00 AM", "Units: Days", "Alerts: None", "Sound: Default"));
    shell.tap("time");
    shell.pick("time", environment.at("2026-03-10T08:15:00"));
    shell.press(BarButton::Role::cancel);
    EXPECT_EQ(AppSettings::defaultTime(), 0);
    shell.tap("time");
    shell.pick("time", environment.at("2026-03-10T08:15:00"));
    shell.press(BarButton::Role::done);
    EXPECT_EQ(AppSettings::defaultTime(), 495);
    shell.tap("units");
    shell.tap("unit32");
    shell.back();
    shell.tap("alerts");
    shell.tap("addBefore");
    shell.press(BarButton::Role::done);
    shell.back();
    shell.tap("sound");
    shell.tap("choices:");
    shell.back();
    EXPECT_THAT(shell.rows(), ElementsAre("Time: 8:15 AM", "Units: Days, Hours", "Alerts: 1 Hour", "Sound: No Sound"));
    EXPECT_EQ(AppSettings::defaultSoundName(), "");
}

TEST_F(SettingsScreensTest, ListsTheSettings) {
    openSettings();
    EXPECT_THAT(shell.rows(), ElementsAre("Default Values", "Categories", "Sort: by Date", "Icons in rows *", "--",
                                          "Alerts", "Badge: Missed events", "Widget: Today's events", "--", "Touch ID: Keep safe at launch", "Cloud", "--",
                                          "Theme: As the system", "Language: As the system", "--", "About"));
    for (const char* id : {"lock", "cloud"}) EXPECT_FALSE(shell.row(id).enabled) << id;
    shell.toggle("lock", true);
    shell.tap("cloud");
    EXPECT_FALSE(AppSettings::TouchIDOn());
    EXPECT_THAT(shell.take(), ElementsAre());
    shell.toggle("icons", false);
    EXPECT_FALSE(AppSettings::tableCellIconShow());
    shell.press(BarButton::Role::done);
    EXPECT_THAT(shell.take(), ElementsAre("dismiss Settings"));
}

TEST_F(SettingsScreensTest, OpensWhatOtherPartsBring) {
    openSettings(
        {.cloud = {[] { return "Folder"; }, [] { return std::make_shared<InformationViewController>(); }},
         .canLock = true});
    EXPECT_THAT(shell.rows(), Contains("Cloud: Folder"));
    shell.toggle("lock", true);
    EXPECT_TRUE(AppSettings::TouchIDOn());
    shell.tap("cloud");
    EXPECT_THAT(shell.take(), ElementsAre("push About"));
}

TEST_F(SettingsScreensTest, SortsByTheTappedOrder) {
    openSettings();
    shell.tap("sort");
    EXPECT_THAT(shell.rows(), ElementsAre("by Date *", "by Name", "Customizable"));
    shell.tap("choice0");
    EXPECT_THAT(posted.take(), ElementsAre()) << "it is on already";
    shell.tap("choice2");
    EXPECT_THAT(shell.rows(), ElementsAre("by Date", "by Name", "Customizable *"));
    EXPECT_EQ(AppSettings::tableSortType(), 2);
    EXPECT_THAT(posted.take(), ElementsAre(AppSettings::kTableSortDidUpdateNotification));
    shell.back();
    EXPECT_THAT(shell.rows(), Contains("Sort: Customizable"));
}

TEST_F(SettingsScreensTest, ChoosesThemeAndLanguage) {
    openSettings();
    shell.tap("theme");
    shell.tap("choice2");
    shell.back();
    shell.tap("language");
    EXPECT_THAT(shell.rows(), ElementsAre("As the system *", "English", "Русский"));
    shell.tap("choice2");
    EXPECT_EQ(InterfaceSettings::language(), "ru");
    shell.tap("choice0");
    EXPECT_EQ(InterfaceSettings::language(), std::nullopt);
    EXPECT_EQ(InterfaceSettings::theme(), Theme::dark);
    EXPECT_EQ(posted.take().size(), 3U);

    auto& defaults = environment->standardDefaults();
    const Object strange[] = {3, -1, "dark"};
    for (const Object& value : strange) {
        defaults.setObject(value, InterfaceSettings::kThemeKey);
        EXPECT_EQ(InterfaceSettings::theme(), Theme::system);
    }
    const std::pair<const char*, const char*> locales[] = {
        {"de_DE", "en_DE"}, {"en_US", "en_US"}, {"zh_Hant_TW", "en_TW"}, {"es_419", "en_419"}, {"ru", "en"}, {"C", "en_US"}};
    for (const auto& [system, expected] : locales) {
        EXPECT_EQ(InterfaceSettings::localeInLanguage(Locale(system), "en").identifier(), expected);
    }
    EXPECT_EQ(InterfaceSettings::localeInLanguage(Locale("de_DE"), "en").firstWeekday(), 2);
    defaults.setObject("xx", InterfaceSettings::kLanguageKey);
    EXPECT_EQ(InterfaceSettings::language(), std::nullopt);
}

TEST_F(SettingsScreensTest, ShowsTheLicencesBlockByBlock) {
    shell.navigation.present(std::make_shared<InformationViewController>());
    shell.tap("licences");
    EXPECT_THAT(shell.rows(), ElementsAre()) << "without the file there is nothing to show";
    shell.back();
    std::ofstream(resources.directory + "/licences.txt") << "Icons\n  by A\n  cup     MIT\n\n\nSounds\n  by B\n";
    shell.tap("licences");
    EXPECT_THAT(shell.rows(), ElementsAre("by A", "cup – MIT", "--", "by B"));
    EXPECT_EQ(shell.top().sections()[1].header, "Sounds");
}

TEST_F(SettingsScreensTest, TheWidgetsTypeIsStoredAtOnceAndItsEventsWhenTheScreenGoes) {
    EventLocalStore::shared().removeAllEvents();
    for (const char* name : {"Beach", "Autumn"}) {
        const auto event = std::make_shared<HHEvent>(name);
        event->setName(name);
        EventLocalStore::shared().updateEvent(event);
    }
    AppWidget::setEventsKeys({"gone"});
    openSettings();
    shell.tap("widget");
    EXPECT_THAT(shell.rows(), ElementsAre("Today's events *", "Selected events", "--", "Autumn", "Beach"));
    shell.tap("type1");
    EXPECT_EQ(AppWidget::type(), WidgetType::selectedEvents);
    shell.toggle("event:Beach", true);
    shell.toggle("event:Autumn", true);
    shell.toggle("event:Autumn", false);
    EXPECT_EQ(AppWidget::eventsKeys(), std::vector<std::string>{"gone"});
    shell.back();
    EXPECT_EQ(AppWidget::eventsKeys(), (std::vector<std::string>{"gone", "Beach"})) << "gone may come back";
    EXPECT_EQ(shell.row("widget").detail, "Selected events");
}

TEST(UnsavedChoices, AreTold) {
    const auto files = std::make_shared<FaultFileSystem>();
    const TestEnvironment environment({.files = files, .archiveClasses = allArchiveClasses()});
    AppSettings::setTableSortType(0);
    NotificationRecorder told{*environment, {DidFailToSaveNotification}};
    const std::vector<std::pair<const char*, std::function<void()>>> choices{
        {"a default value", [] { AppSettings::setDefaultTime(30), std::ignore = AppSettings::synchronize(); }},
        {"the lock", [] { AppSettings::setTouchIDOn(true); }},
        {"the theme", [] { InterfaceSettings::setTheme(Theme::dark); }},
        {"the badge", [] { AppBadge::setType(BadgeType::daysBeforeNextEvent); }},
        {"the widget", [] { AppWidget::setType(WidgetType::selectedEvents); }},
        {"a category",
         [] {
             CategoryLocalStore::shared().updateCategory(std::make_shared<EventCategory>("new"),
                                                         CategoryLocalStore::Initialize::no);
         }},
    };
    for (const auto& [what, choose] : choices) {
        ASSERT_TRUE(AppSettings::synchronize());
        EXPECT_TRUE(told.take().empty()) << what;
        files->fillDiskAt(1);
        choose();
        EXPECT_FALSE(told.take().empty()) << what;
        files->heal();
    }
}

}  // namespace
}  // namespace dayward
