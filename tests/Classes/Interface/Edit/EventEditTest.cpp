#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <map>

#include "Classes/App/HHAppTimerKeys.h"
#include "Classes/Category/CategoryLocalStore.h"
#include "Classes/Category/ColorEventBackgroundPicture.h"
#include "Classes/Category/EventCategory.h"
#include "Classes/Category/RColorEventBackgroundTemplate.h"
#include "Classes/Event/EventLocalStore.h"
#include "Classes/Interface/Edit/EventEditViewController.h"
#include "Classes/Interface/General/TextScrim.h"
#include "Classes/Settings/AppSettings.h"
#include "support/GalleryResources.h"
#include "support/NotificationRecorder.h"
#include "support/ScriptedPresenter.h"

namespace dayward {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::Not;
using Times = std::vector<std::int64_t>;

class EventEditTest : public ::testing::Test {
protected:
    EventEditTest() {
        event->setName("Party");
        event->setDate(environment.at("2026-03-20"));
        event->setTimes({540});
        event->setCategoryKey("default");
        EventLocalStore::shared().updateEvent(event);
    }
    std::shared_ptr<EventEditViewController> open(std::shared_ptr<HHEvent> edited) {
        auto editor = std::make_shared<EventEditViewController>(std::move(edited));
        shell.navigation.present(editor);
        shell.take();
        return editor;
    }
    static std::shared_ptr<HHEvent> stored(const std::string& key = "party") {
        return EventLocalStore::shared().eventByIdentifier(key);
    }
    [[nodiscard]] LookContent look() const { return std::get<LookContent>(shell.row("look").content); }
    [[nodiscard]] EventEditHeaderCell header() const {
        return std::get<EventEditHeaderCell>(shell.row("header").content);
    }
    /// Every file of the documents with its content.
    [[nodiscard]] std::map<std::string, std::string> files() const {
        std::map<std::string, std::string> contents;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(environment->paths().documents)) {
            if (!entry.is_regular_file()) continue;
            std::ifstream file(entry.path(), std::ios::binary);
            contents[entry.path().string()] = std::string(std::istreambuf_iterator<char>(file), {});
        }
        return contents;
    }
    void tapHeader(std::size_t part) { shell.tapItem("header", part); }
    /// Opens the rule's screen and taps a preset there.
    void repeat(const std::string& preset) {
        shell.tap("repeat");
        shell.tap(preset);
    }

    GalleryResources resources;
    TestEnvironment environment{resources.options()};
    NotificationRecorder posted{*environment, {EventEditDidCreateItemNotification, EventEditDidRemoveItemNotification}};
    ScriptedPresenter shell;
    std::shared_ptr<HHEvent> event = std::make_shared<HHEvent>("party");
};

TEST_F(EventEditTest, ShowsEveryFieldOfTheEvent) {
    event->appearance().textColor = Color::white();
    event->setNote("Bring cake");
    event->setBackground(std::make_shared<ColorEventBackgroundPicture>(Color::black()));
    open(event);
    EXPECT_THAT(shell.rows(),
                ElementsAre("", "", "--", "Date: Mar 20, 2026, 9:00 AM", "Duration: None", "Repeat: Never", "--",
                            "Units: Days", "--", "Alerts: None", "Sound: Default", "--", "Background",
                            "Font: ChalkboardSE-Bold ^", "Text color", "--", "Note: Bring cake", "--", "Delete"));
    EXPECT_EQ(header().nameField.text, "Party");
    EXPECT_EQ(header().iconHelpLabel, "select");
    EXPECT_EQ(look().title, "Party");
    EXPECT_EQ(look().date, "Friday, March 20 at 9:00 AM");
    EXPECT_EQ(look().countdown, "10 Days");
    EXPECT_EQ(accessibleSentence(shell.row("font")), "Font, ChalkboardSE-Bold, from the category");
}

TEST_F(EventEditTest, CancelLeavesTheEventAsItWas) {
    open(event);
    shell.type("header", "Meeting");
    repeat("preset7");
    shell.toggle("showAge", true);
    EXPECT_EQ(look().title.substr(0, 7), "Meeting") << "the look follows at once";
    shell.press(BarButton::Role::cancel);
    EXPECT_EQ(stored()->name(), "Party");
    EXPECT_EQ(stored()->rrule(), std::nullopt);
    EXPECT_EQ(event->name(), "Party");
    EXPECT_THAT(posted.take(), ElementsAre());
}

TEST_F(EventEditTest, DoneStoresANewEventAndTellsItOnce) {
    AppSettings::setDefaultTime(600);
    const auto editor = open(nullptr);
    EXPECT_EQ(editor->title(), "New event");
    EXPECT_FALSE(shell.hasRow("delete"));
    shell.press(BarButton::Role::done);
    const auto made = stored(editor->event()->identifier());
    ASSERT_TRUE(made);
    EXPECT_EQ(made->name(), std::nullopt) << "it need not have a name";
    EXPECT_EQ(made->times(), Times{600});
    EXPECT_EQ(environment.text(made->date()), "2026-03-10T12:00:00");
    EXPECT_EQ(posted.take().size(), 1U);
    open(made);
    EXPECT_TRUE(shell.hasRow("delete"));
    shell.press(BarButton::Role::done);
    EXPECT_THAT(posted.take(), ElementsAre());
}

TEST_F(EventEditTest, DoneWritesWhatEveryScreenHandedOver) {
    open(event);
    shell.type("header", "Journey");
    shell.tap("date");
    shell.pick("date", environment.at("2026-04-01"));
    shell.back();
    shell.tap("duration");
    shell.tap("preset3");
    repeat("preset7");
    shell.toggle("showAge", true);
    shell.tap("units");
    shell.tap("unit256");
    shell.back();
    shell.tap("alerts");
    shell.toggle("onEvent", true);
    shell.back();
    shell.tap("sound");
    shell.tap("choices:");
    shell.back();
    tapHeader(EventEditHeaderCell::iconPart);
    shell.tapItem("group:Love", 0);
    shell.tap("background");
    shell.tapItem("group:Sky", 0);
    shell.tap("font");
    shell.tap("fonts:Georgia");
    shell.tap("textColor");
    shell.tapItem("base", 0);
    shell.tap("note");
    shell.type("note", "Pack");
    shell.back();
    EXPECT_FALSE(header().iconCategoryMark);
    EXPECT_EQ(header().iconHelpLabel, "");
    shell.press(BarButton::Role::done);

    const auto saved = stored();
    EXPECT_EQ(environment.text(saved->date()), "2026-04-01T00:00:00");
    EXPECT_EQ(saved->duration(), XDIDateInterval(CalendarUnit::day, 1));
    EXPECT_EQ(saved->rrule(), "FREQ=YEARLY;INTERVAL=1");
    EXPECT_TRUE(saved->showAge());
    EXPECT_EQ(saved->intervalFormat().units, CalendarUnit::day | CalendarUnit::week);
    EXPECT_EQ(saved->alerts().list->size(), 1U);
    EXPECT_EQ(saved->alerts().soundName, "");
    EXPECT_TRUE(saved->icon() && saved->background());
    EXPECT_EQ(saved->appearance().fontName, "Georgia");
    EXPECT_EQ(saved->appearance().textColor, Color::white());
    EXPECT_EQ(saved->note(), "Pack");
    EXPECT_EQ(saved->name(), "Journey");
}

TEST_F(EventEditTest, TimesAndRulesFinerThanADayExcludeEachOther) {
    struct Case {
        std::optional<std::string> rule;
        Times times;
        bool ruleLast;
        std::optional<std::string> expectedRule;
        Times expectedTimes;
    };
    const Case cases[] = {
        {"FREQ=HOURLY;INTERVAL=6", {1, 2}, false, "FREQ=DAILY;INTERVAL=1", {1, 2}},
        {"FREQ=SECONDLY;INTERVAL=6;BYMONTH=5", {1, 2}, false, "FREQ=DAILY;INTERVAL=1;BYMONTH=5", {1, 2}},
        {"FREQ=HOURLY;INTERVAL=6", {1}, false, "FREQ=HOURLY;INTERVAL=6", {1}},
        {"FREQ=DAILY;INTERVAL=6", {1, 2}, false, "FREQ=DAILY;INTERVAL=6", {1, 2}},
        {"nonsense", {1, 2}, false, "nonsense", {1, 2}},
        {"FREQ=MINUTELY;INTERVAL=1", {3, 1, 2}, true, "FREQ=MINUTELY;INTERVAL=1", {3}},
        {"FREQ=WEEKLY;INTERVAL=1", {3, 1}, true, "FREQ=WEEKLY;INTERVAL=1", {3, 1}},
        {"nonsense", {3, 1}, true, "nonsense", {3, 1}},
        {std::nullopt, {3, 1}, true, std::nullopt, {3, 1}},
    };
    for (const Case& each : cases) {
        EventEditState state(*event);
        if (each.ruleLast) state.setTimes(each.times);
        state.setRrule(each.rule);
        if (!each.ruleLast) state.setTimes(each.times);
        EXPECT_EQ(state.rrule(), each.expectedRule) << each.rule.value_or("none");
        EXPECT_EQ(state.times(), each.expectedTimes) << each.rule.value_or("none");
    }
}

TEST_F(EventEditTest, ShowsTheAgeOfPlainlyYearlyEventsAndKeepsIt) {
    open(event);
    EXPECT_FALSE(shell.hasRow("showAge"));
    repeat("preset7");
    shell.toggle("showAge", true);
    repeat("preset3");
    EXPECT_FALSE(shell.hasRow("showAge"));
    repeat("preset7");
    EXPECT_THAT(shell.rows(), Contains("Show age *"));
}

TEST_F(EventEditTest, InheritsTheLookOfTheChosenCategory) {
    auto work = std::make_shared<EventCategory>("work");
    work->name = "Work";
    work->eventFont = "Georgia";
    work->eventBackgroundTpl = std::make_shared<RColorEventBackgroundTemplate>();
    CategoryLocalStore::shared().updateCategory(work, CategoryLocalStore::Initialize::no);
    const auto editor = open(event);
    tapHeader(EventEditHeaderCell::categoryPart);
    shell.tap("category:work");
    EXPECT_EQ(header().categoryField.text, "Work");
    EXPECT_THAT(shell.rows(), Contains("Font: Georgia ^"));
    EXPECT_TRUE(editor->state().randomBackground) << "picked once, and kept";
    const auto kept = editor->state().randomBackground;
    shell.tap("font");
    shell.tap("fonts:Georgia");
    EXPECT_THAT(shell.rows(), Contains("Font: Georgia")) << "the category's own font stays an explicit choice";
    shell.tap("font");
    shell.tap("category");
    EXPECT_THAT(shell.rows(), Contains("Font: Georgia ^"));
    EXPECT_EQ(editor->state().randomBackground, kept);

    CategoryLocalStore::shared().removeCategory(work);
    shell.tap("note");
    shell.back();
    shell.press(BarButton::Role::done);
    EXPECT_EQ(stored()->categoryKey(), "default") << "a category that has gone is the built-in one";
}

TEST_F(EventEditTest, NamesFontsForPeople) {
    event->appearance().fontName = "Futura-Medium";
    open(event);
    EXPECT_THAT(shell.rows(), Contains("Font: Futura Medium"));
    EXPECT_EQ(shell.row("font").fontName, "Futura-Medium");
    shell.tap("font");
    EXPECT_THAT(shell.rows(), ElementsAre("From the category", "--", "Futura Medium *", "Georgia"));
}

TEST_F(EventEditTest, AnEventWithoutATimeBeginsAtMidnight) {
    open(event);
    shell.tap("date");
    shell.erase("time0");
    shell.back();
    EXPECT_THAT(shell.rows(), Contains("Date: Mar 20, 2026"));
    EXPECT_NE(look().date, "No date!");
    shell.press(BarButton::Role::done);
    EXPECT_EQ(stored()->times(), Times{0});
}

TEST_F(EventEditTest, LeftWithoutDoneChangesNothingOnTheDisk) {
    environment.queues->runAll();
    const auto before = files();
    ASSERT_FALSE(before.empty());
    open(event);
    shell.type("header", "Meeting");
    repeat("preset7");
    shell.tap("date");
    shell.pick("date", environment.at("2027-01-01"));
    shell.back();
    shell.tap("note");
    shell.type("note", "Lost");
    shell.back();
    environment.queues->runAll();
    EXPECT_EQ(files(), before);
    EXPECT_EQ(stored()->name(), "Party");
    EXPECT_EQ(stored()->note(), std::nullopt);
}

TEST_F(EventEditTest, DeletesAfterAQuestion) {
    open(event);
    shell.tap("delete");
    shell.answer("Cancel");
    EXPECT_TRUE(stored());
    shell.tap("delete");
    shell.answer("Delete");
    EXPECT_FALSE(stored());
    EXPECT_THAT(shell.take(), ElementsAre("alert Delete event?", "alert Delete event?", "dismiss Event"));
    EXPECT_EQ(posted.take().size(), 1U);
}

TEST_F(EventEditTest, MeasuresWhatTheLooksTextsNeedOnItsBackground) {
    event->appearance().textColor = Color::white();
    event->setBackground(std::make_shared<ColorEventBackgroundPicture>(Color::black()));
    open(event);
    EXPECT_EQ(look().scrim, textScrim(Color::white())) << "until it is measured, what does on any picture";
    environment.queues->runAll();
    EXPECT_EQ(look().scrim.alpha, 0);
}

TEST_F(EventEditTest, CountsDownWhileItIsInSight) {
    event->intervalFormat().units = CalendarUnit::second;
    const auto editor = open(event);
    const std::string before = look().countdown;
    const auto tick = [&] {
        environment.clock->advance(TimeInterval(1));
        environment->notifications().post(HHAppTimerKeys::everySecound, nullptr);
    };
    tick();
    EXPECT_NE(look().countdown, before);
    shell.tap("note");
    const auto covered = accessibleSentence(editor->row(*editor->pathOfRow("look")));
    tick();
    EXPECT_EQ(accessibleSentence(editor->row(*editor->pathOfRow("look"))), covered);
}

}  // namespace
}  // namespace dayward
