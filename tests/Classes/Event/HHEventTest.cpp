#include "Classes/Event/HHEvent.h"

#include <gtest/gtest.h>

#include <thread>

#include "Classes/Category/CategoryLocalStore.h"
#include "Classes/Category/ColorEventBackgroundPicture.h"
#include "Classes/Category/ColorEventBackgroundTemplate.h"
#include "Classes/Category/EventCategory.h"
#include "Classes/Category/NamedEventBackgroundPicture.h"
#include "Classes/Category/NamedEventIconPicture.h"
#include "Classes/Category/RColorEventBackgroundTemplate.h"
#include "Classes/Event/EventDisplay.h"
#include "Classes/Event/EventTestSupport.h"

namespace dayward {
namespace {

class HHEventTest : public testing::Test {
protected:
    HHEvent event(const char* day, std::vector<std::int64_t> times, std::optional<std::string> rrule = {},
                  double hours = 0) {
        HHEvent made("id");
        made.setDate(environment_.at(day));
        made.setTimes(std::move(times));
        made.setRrule(std::move(rrule));
        if (hours > 0) made.setDuration(XDIDateInterval(CalendarUnit::hour, hours));
        return made;
    }
    std::string text(std::optional<Date> date) { return date ? environment_.text(*date) : "-"; }

    TestEnvironment environment_{eventOptions()};  // 2026-03-10T12:00:00
};

constexpr const char* kDaily = "FREQ=DAILY;INTERVAL=1";
constexpr const char* kYearly = "FREQ=YEARLY;INTERVAL=1";

TEST_F(HHEventTest, ANewEventHasTheDefaults) {
    const HHEvent made;
    EXPECT_EQ(made.identifier().size(), 36U);
    EXPECT_NE(made.identifier(), HHEvent().identifier());
    EXPECT_EQ(made.date(), environment_->now());
    EXPECT_EQ(made.times(), std::vector<std::int64_t>{0});
    EXPECT_FALSE(made.icon() || made.background() || made.randomBackground() || made.name() || made.categoryKey() ||
                 made.rrule() || made.duration() || made.showAge() || made.note() || made.version());
    EXPECT_TRUE(made.sourceInfo().isNull());
    EXPECT_EQ(made.intervalFormat(), HHEventDateFormat());
    EXPECT_EQ(made.alerts(), HHEventAlerts());
    EXPECT_EQ(made.appearance(), HHEventAppearance());
    EXPECT_EQ(made.description(), "HHEvent: null");
}

TEST_F(HHEventTest, EqualityIsByIdentifierAlone) {
    HHEvent made("a");
    HHEvent copy(made);
    copy.setName("other");
    EXPECT_TRUE(made.isEqual(copy));
    EXPECT_EQ(copy.description(), "HHEvent: other");
    copy.setIdentifier("b");
    EXPECT_FALSE(made.isEqual(copy));
    EXPECT_FALSE(made.isEqual(HHEventAlerts()));
}

TEST_F(HHEventTest, NextDateAndProgress) {
    struct Case {
        const char* name;
        HHEvent made;
        const char* next;
        bool isComing;
    };
    const Case cases[] = {
        {"past one-off", event("2026-03-01", {0}), "2026-03-01T00:00:00", false},
        {"past one-off still running", event("2026-03-10", {660}, {}, 2), "2026-03-10T11:00:00", true},
        {"running, begins now", event("2026-03-10", {720}, {}, 2), "2026-03-10T12:00:00", false},
        {"running, ends now", event("2026-03-10", {600}, {}, 2), "2026-03-10T10:00:00", false},
        {"future one-off", event("2026-03-20", {60}), "2026-03-20T01:00:00", false},
        {"two times a day", event("2026-01-01", {540, 1080}, kDaily), "2026-03-10T18:00:00", false},
        {"times in any order", event("2026-01-01", {1080, 540}, kDaily), "2026-03-10T18:00:00", false},
        {"daily, running", event("2026-01-01", {660}, kDaily, 2), "2026-03-10T11:00:00", true},
        {"no times", event("2026-03-20", {}, kDaily, 2), "-", false},
        {"ended series", event("2026-01-01", {60}, "FREQ=DAILY;INTERVAL=1;UNTIL=20260105T235959Z"),
         "2026-01-05T01:00:00", false},
    };
    for (const auto& [name, made, next, isComing] : cases) {
        EXPECT_EQ(text(made.nextDate()), next) << name;
        EXPECT_EQ(made.isComing(), isComing) << name;
    }
}

TEST_F(HHEventTest, ARunningOccurrenceStaysNextUntilItEnds) {
    const auto daily = event("2026-01-01", {660}, kDaily, 2);
    const auto once = event("2026-03-10", {660}, {}, 2);
    ASSERT_EQ(text(daily.nextDate()), "2026-03-10T11:00:00");
    ASSERT_TRUE(once.datesCalculation()->next);
    environment_.clock->set(environment_.at("2026-03-10T12:59:59"));
    EXPECT_TRUE(daily.isComing() && once.isComing());
    environment_.clock->set(environment_.at("2026-03-10T13:00:01"));
    EXPECT_EQ(text(daily.nextDate()), "2026-03-11T11:00:00");
    EXPECT_FALSE(daily.isComing() || once.isComing());
    EXPECT_FALSE(once.datesCalculation()->next);
    EXPECT_EQ(text(once.nextDate()), "2026-03-10T11:00:00");
}

TEST_F(HHEventTest, TheCalculationIsKeptUntilADateFieldChanges) {
    auto made = event("2026-01-01", {540}, kDaily, 2);
    const auto kept = made.datesCalculation();
    made.setNote("n");
    made.setShowAge(true);
    made.alerts().soundName = "s";
    EXPECT_EQ(made.datesCalculation(), kept);
    EXPECT_EQ(kept->duration, TimeInterval(7200));
    EXPECT_NE(HHEvent(made).datesCalculation(), kept);

    const std::vector<std::function<void()>> changes = {
        [&] { made.setDate(made.date()); }, [&] { made.setTimes({600}); }, [&] { made.setRrule(kYearly); },
        [&] { made.setDuration({}); },      [&] { made = HHEvent(made); }, [&] { made.moduleEventDateRefresh(); }};
    for (const auto& change : changes) {
        const auto before = made.datesCalculation();
        change();
        EXPECT_NE(made.datesCalculation(), before);
    }
}

TEST_F(HHEventTest, ThreadsMayAskOneEvent) {
    const auto made = event("2026-01-01", {540, 1080}, kDaily);
    std::vector<std::thread> threads;
    for (int index = 0; index < 4; ++index) {
        threads.emplace_back([&] {
            const EnvironmentScope scope(&*environment_);
            for (int question = 0; question < 50; ++question) {
                EXPECT_EQ(text(made.nextDate()), "2026-03-10T18:00:00");
                if (question % 10 == 0) const_cast<HHEvent&>(made).moduleEventDateRefresh();
            }
        });
    }
    for (auto& thread : threads) thread.join();
}

TEST_F(HHEventTest, TitleShowsTheAgeOfAPlainYearlyEventOnly) {
    struct Case {
        std::optional<std::string> name, rrule;
        bool showAge;
        const char* title;
    };
    for (const auto& [name, rrule, showAge, title] : {
             Case{"Dreskax", kYearly, true, "Dreskax (31)"},
             {"Dreskax", kYearly, false, "Dreskax"},
             {"Dreskax", "FREQ=YEARLY;INTERVAL=2", true, "Dreskax"},
             {"Dreskax", "FREQ=YEARLY;INTERVAL=1;BYMONTH=3", true, "Dreskax"},
             {"Dreskax", std::nullopt, true, "Dreskax"},
             {std::nullopt, kYearly, true, ""},
             {"", kYearly, true, " (31)"},
         }) {
        auto made = event("1995-07-01", {0}, rrule);
        made.setName(name);
        made.setShowAge(showAge);
        EXPECT_EQ(made.titleToDate(environment_.at("2026-07-01")), title);
    }
}

class EventDisplayTest : public HHEventTest {
protected:
    std::shared_ptr<EventCategory> stored(const std::string& key) {
        auto category = std::make_shared<EventCategory>(key);
        category->eventIcon = std::make_shared<NamedEventIconPicture>("category.png");
        category->eventBackgroundTpl = std::make_shared<ColorEventBackgroundTemplate>(blue_);
        category->eventFont = "Papyrus";
        category->eventTextColor = blue_;
        CategoryLocalStore::shared().updateCategory(category, CategoryLocalStore::Initialize::yes);
        return category;
    }
    static std::string nameOf(const std::shared_ptr<EventIconPicture>& icon) {
        return std::dynamic_pointer_cast<NamedEventIconPicture>(icon)->named();
    }
    static Color colorOf(const std::shared_ptr<EventBackgroundPicture>& background) {
        return std::dynamic_pointer_cast<ColorEventBackgroundPicture>(background)->color();
    }

    const Color blue_{0, 0, 1, 1};
    const std::shared_ptr<EventBackgroundPicture> green_ =
        std::make_shared<ColorEventBackgroundPicture>(Color{0, 1, 0, 1});
};

TEST_F(EventDisplayTest, TheEventsOwnValueComesFirst) {
    stored("c");
    HHEvent made;
    made.setCategoryKey("c");
    EXPECT_EQ(nameOf(made.displayIcon()), "category.png");
    EXPECT_EQ(colorOf(made.displayBackground()), blue_);
    EXPECT_EQ(made.displayFont(), "Papyrus");
    EXPECT_EQ(made.displayTextColor(), blue_);

    made.setIcon(std::make_shared<NamedEventIconPicture>("own.png"));
    made.setBackground(green_);
    made.appearance() = {};
    made.appearance().fontName = "Georgia";
    made.appearance().textColor = Color::white();
    EXPECT_EQ(nameOf(made.displayIcon()), "own.png");
    EXPECT_EQ(made.displayBackground(), green_);
    EXPECT_EQ(made.displayFont(), "Georgia");
    EXPECT_EQ(made.displayTextColor(), Color::white());
}

TEST_F(EventDisplayTest, AnUnknownCategoryShowsTheDefaultOnesLook) {
    stored(CategoryLocalStore::kDefaultCategoryKey);
    HHEvent made;
    for (const std::optional<std::string>& key : {std::optional<std::string>(), std::optional<std::string>("gone")}) {
        made.setCategoryKey(key);
        EXPECT_EQ(made.displayFont(), "Papyrus");
        EXPECT_EQ(colorOf(made.displayBackground()), blue_);
    }
}

TEST_F(EventDisplayTest, LastResorts) {
    const auto bare = std::make_shared<EventCategory>("bare");
    EXPECT_EQ(nameOf(EventDisplay::icon(nullptr, bare)), "remind");
    EXPECT_EQ(colorOf(EventDisplay::background(nullptr, green_, bare)), Color::white());
    EXPECT_EQ(EventDisplay::font({}, bare), "HelveticaNeue");
    EXPECT_EQ(EventDisplay::textColor({}, bare), Color::black());
}

TEST_F(EventDisplayTest, ARandomTemplateShowsWhatWasPicked) {
    auto category = stored("c");
    EXPECT_EQ(colorOf(EventDisplay::background(nullptr, green_, category)), blue_);
    category->eventBackgroundTpl = std::make_shared<RColorEventBackgroundTemplate>();
    EXPECT_EQ(EventDisplay::background(nullptr, green_, category), green_);
    EXPECT_EQ(colorOf(EventDisplay::background(nullptr, nullptr, category)), Color::white());
}

}  // namespace
}  // namespace dayward
