#include "Classes/App/EventFactory.h"

#include <gtest/gtest.h>

#include "Classes/Category/CategoryLocalStore.h"
#include "Classes/Category/ColorEventBackgroundPicture.h"
#include "Classes/Category/EventCategory.h"
#include "Classes/Category/RColorEventBackgroundTemplate.h"
#include "Classes/Event/EventJSON.h"
#include "Classes/Event/EventTestSupport.h"
#include "Classes/Settings/AppSettings.h"
#include "resources/HHResources.h"

namespace dayward {
namespace {

TestEnvironment::Options factoryOptions() {
    auto options = eventOptions();
    options.resources = DAYWARD_BUILT_RESOURCES;
    return options;
}

class EventFactoryTest : public testing::Test {
protected:
    TestEnvironment environment_{factoryOptions()};  // 2026-03-10T12:00:00, a Tuesday
};

TEST_F(EventFactoryTest, ANewEventTakesTheUsersDefaults) {
    AppSettings::setDefaultTime(540);
    AppSettings::setDefaultAlerts({XDIDateInterval(CalendarUnit::day, 1)});
    AppSettings::setDefaultSoundName("bell.mp3");
    AppSettings::setDefaultIntervalFormat({CalendarUnit::hour, TextStyle::symbol});
    const auto event = EventFactory::createEvent();
    EXPECT_EQ(event->times(), std::vector<std::int64_t>{540});
    EXPECT_EQ(event->alerts().list->size(), 1U);
    EXPECT_EQ(event->alerts().soundName, "bell.mp3");
    EXPECT_EQ(event->intervalFormat(), HHEventDateFormat(CalendarUnit::hour, TextStyle::symbol));
    EXPECT_EQ(event->categoryKey(), "default");
    EXPECT_FALSE(event->randomBackground());
}

TEST_F(EventFactoryTest, ARandomBackgroundIsPickedOnce) {
    auto category = std::make_shared<EventCategory>(*CategoryLocalStore::shared().defaultCategory());
    category->eventBackgroundTpl = std::make_shared<RColorEventBackgroundTemplate>();
    CategoryLocalStore::shared().updateCategory(category, CategoryLocalStore::Initialize::no);
    const auto event = EventFactory::createEvent();
    ASSERT_TRUE(std::dynamic_pointer_cast<ColorEventBackgroundPicture>(event->randomBackground()));
    EXPECT_EQ(event->displayBackground(), event->randomBackground());
}

TEST_F(EventFactoryTest, Examples) {
    struct Example {
        const char* name;
        const char* next;
        const char* rrule;
        std::optional<Color> textColor;
    };
    const Color darkRed{0.66, 0, 0, 1};
    const Example expected[] = {
        {"My Birthday", "2026-03-25T00:00:00", "FREQ=YEARLY;INTERVAL=1", {}},
        {"Christmas", "2026-12-25T00:00:00", "FREQ=YEARLY;INTERVAL=1", {}},
        {"Valentine's Day", "2027-02-14T00:00:00", "FREQ=YEARLY;INTERVAL=1", darkRed},
        {"Mother's Day", "2026-05-10T00:00:00", "FREQ=YEARLY;INTERVAL=1;BYDAY=2SU;BYMONTH=5", darkRed},
        {"Friday 13th", "2026-03-13T00:00:00", "FREQ=MONTHLY;INTERVAL=1;BYDAY=FR;BYMONTHDAY=13", {}},
        {"Payday", "2026-03-30T00:00:00", "FREQ=MONTHLY;INTERVAL=1;BYDAY=-1MO", {}},
        {"Last day of school", "2026-06-28T00:00:00", "FREQ=YEARLY;INTERVAL=1", Color{0, 0, 0.66, 1}},
    };
    const auto events = EventFactory::getDefaultEvents();
    ASSERT_EQ(events.size(), std::size(expected));
    for (std::size_t index = 0; index < events.size(); ++index) {
        const auto& event = *events[index];
        EXPECT_EQ(event.name(), expected[index].name);
        EXPECT_EQ(event.rrule(), expected[index].rrule) << expected[index].name;
        ASSERT_TRUE(event.nextDate()) << expected[index].name;
        EXPECT_EQ(environment_.text(*event.nextDate()), expected[index].next) << expected[index].name;
        EXPECT_EQ(event.appearance().textColor, expected[index].textColor) << expected[index].name;
        EXPECT_FALSE(event.icon()->getImage()->isEmpty()) << expected[index].name;
        EXPECT_FALSE(event.background()->getImage()->isEmpty()) << expected[index].name;
    }
}

TEST_F(EventFactoryTest, ExamplesKeepTheirDaysInAnyLocaleAndOverClockChanges) {
    auto options = factoryOptions();
    options.locale = "ar_EG";  // with digits of its own
    options.zone = "America/New_York";
    options.now = "2026-10-25T12:00:00";  // a week before the clocks go back
    const TestEnvironment abroad(options);
    const auto events = EventFactory::getDefaultEvents();
    EXPECT_EQ(abroad.text(events.at(0)->date()), "2026-11-09T00:00:00");
    EXPECT_EQ(abroad.text(events.at(1)->date()), "2016-12-25T00:00:00");
    EXPECT_EQ(abroad.text(events.at(6)->date()), "2016-06-28T00:00:00");
}

TEST_F(EventFactoryTest, TheHolidayCategoryIsMadeWithItsFont) {
    const auto fontOfHoliday = [] {
        std::vector<std::string> fonts;
        for (const auto& category : CategoryLocalStore::shared().getCategories()) {
            if (category->name == "Holiday") fonts.push_back(category->eventFont.value_or(""));
        }
        return fonts;
    };
    EventFactory::getDefaultEvents();
    EventFactory::getDefaultEvents();
    EXPECT_EQ(fontOfHoliday(), std::vector<std::string>{"ChalkboardSE-Bold"});
    EXPECT_EQ(CategoryLocalStore::shared().syncVersionForKey("Categories"), CCSyncItemVersion::zero());
}

}  // namespace
}  // namespace dayward
