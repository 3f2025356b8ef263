// The screens that change one value of an event.
#include <gmock/gmock.h>

#include "Classes/Interface/Edit/AlertsViewController.h"
#include "Classes/Interface/Edit/DateFormatViewController.h"
#include "Classes/Interface/Edit/DateTimesViewController.h"
#include "Classes/Interface/Edit/NoteViewController.h"
#include "Classes/Interface/Edit/PeriodViewController.h"
#include "support/ScriptedPresenter.h"
#include "support/TestEnvironment.h"

namespace dayward {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using Times = std::vector<std::int64_t>;
using Intervals = std::vector<XDIDateInterval>;

class Editor final : public DateTimesViewControllerDelegate, public AlertsViewControllerDelegate {
public:
    void completeWithDate(DateTimesViewController&, Date date_, const Times& andTimes) override {
        date = date_;
        times = andTimes;
    }
    void completeWithAlerts(AlertsViewController&, const Intervals& alerts_) override { alerts = alerts_; }

    Date date;
    Times times;
    Intervals alerts;
};

class SelectionScreensTest : public ::testing::Test {
protected:
    template <class Screen, class... Arguments>
    void open(Arguments&&... arguments) {
        shell.navigation.present(std::make_shared<Screen>(std::forward<Arguments>(arguments)...));
        shell.take();
    }
    static XDIDateInterval days(double value) { return {CalendarUnit::day, value}; }

    TestEnvironment environment;
    std::shared_ptr<Editor> editor = std::make_shared<Editor>();
    ScriptedPresenter shell;
};

TEST_F(SelectionScreensTest, EditsTimesInAPanel) {
    open<DateTimesViewController>(environment.at("2026-05-01"), Times{600, 60}, editor);
    EXPECT_THAT(shell.rows(), ElementsAre("Date: May 1, 2026", "--", "10:00 AM", "1:00 AM", "Add time"));

    shell.tap("addTime");
    EXPECT_EQ(shell.row("time").detail, "12:00 PM");
    shell.pick("time", environment.at("2026-03-10T00:30:00"));
    shell.press(BarButton::Role::done);
    EXPECT_THAT(shell.rows(), ElementsAre("Date: May 1, 2026", "--", "10:00 AM", "1:00 AM", "12:30 AM", "Add time"))
        << "a new time goes last";

    shell.tap("time0");
    shell.press(BarButton::Role::remove);
    shell.tap("time1");
    shell.pick("time", environment.at("2026-03-10T07:05:00"));
    shell.press(BarButton::Role::done);
    shell.tap("time2");
    shell.press(BarButton::Role::cancel);
    shell.erase("time2");
    shell.press(BarButton::Role::today);
    EXPECT_THAT(shell.take(), ElementsAre("panel Time", "close Time", "panel Time", "close Time", "panel Time",
                                          "close Time", "panel Time", "close Time"));
    EXPECT_EQ(editor->times, Times()) << "nothing is handed over while the screen is open";
    shell.back();
    EXPECT_EQ(editor->times, Times{425});
    EXPECT_EQ(environment.text(editor->date), "2026-03-10T12:00:00");
}

TEST_F(SelectionScreensTest, AnEditedTimeThatIsGoneIsAppended) {
    open<DateTimesViewController>(environment.at("2026-05-01"), Times{600}, editor);
    const auto under = std::static_pointer_cast<TableScreen>(shell.navigation.topScreen());
    shell.tap("time0");
    under->deleteRow(*under->pathOfRow("time0"));
    shell.press(BarButton::Role::done);
    EXPECT_THAT(shell.rows(), ElementsAre("Date: May 1, 2026", "--", "10:00 AM", "Add time"));
}

TEST_F(SelectionScreensTest, SortsAlertsByTheirSide) {
    const Intervals stored{days(1), {}, days(-1), days(1), days(0), {CalendarUnit::hour, 400}};
    open<AlertsViewController>(stored, editor);
    EXPECT_THAT(shell.rows(), ElementsAre("On Event *", "--", "1 Day Before", "400 Hours Before", "Add alert before",
                                          "--", "1 Day After", "Add alert after", "--", "Clear"));
    shell.tap("addAfter");
    shell.spin("interval", {299, 0});
    shell.press(BarButton::Role::done);
    shell.toggle("onEvent", false);
    shell.tap("alert2");
    EXPECT_EQ(shell.row("interval").detail, "300 Hours") << "the picker ends at 300";
    shell.press(BarButton::Role::remove);
    shell.back();
    EXPECT_EQ(editor->alerts, (Intervals{days(1), days(-1), {CalendarUnit::minute, -300}}));
}

TEST_F(SelectionScreensTest, TakesNoAlertTwice) {
    open<AlertsViewController>(Intervals{days(1), days(2)}, editor);
    shell.tap("addBefore");
    shell.spin("interval", {0, 2});
    shell.press(BarButton::Role::done);
    shell.tap("alert1");
    shell.spin("interval", {0, 2});
    shell.press(BarButton::Role::done);
    shell.toggle("onEvent", true);
    shell.back();
    EXPECT_EQ(editor->alerts, (Intervals{{}, days(1)}));
    EXPECT_FALSE(editor->alerts[0].isSet());

    open<AlertsViewController>(Intervals{days(1), {}}, editor);
    shell.tap("clear");
    EXPECT_FALSE(shell.hasRow("clear"));
    shell.back();
    EXPECT_EQ(editor->alerts, Intervals());
}

TEST_F(SelectionScreensTest, ChoosesADuration) {
    std::vector<std::optional<XDIDateInterval>> chosen;
    const auto take = [&](const auto& duration) { chosen.push_back(duration); };
    open<PeriodViewController>(days(3), take);
    EXPECT_THAT(shell.rows(), ElementsAre("None", "1 Minute", "1 Hour", "1 Day", "7 Days", "--", "Custom *"));
    EXPECT_EQ(shell.top().sections()[1].footer, "3 Days");
    shell.tap("custom");
    shell.spin("duration", {6, 2});
    shell.back();
    EXPECT_TRUE(shell.row("preset4").checked) << "a custom one that is a preset marks it";
    shell.tap("preset0");
    EXPECT_THAT(chosen, ElementsAre(days(7), std::nullopt));
    EXPECT_EQ(shell.navigation.modalStacks().size(), 0U);
}

TEST_F(SelectionScreensTest, KeepsAtLeastOneUnit) {
    HHEventDateFormat format;
    open<DateFormatViewController>(HHEventDateFormat(), [&](const HHEventDateFormat& chosen) { format = chosen; });
    EXPECT_EQ(shell.top().sections()[0].header, "451 Days");
    shell.tap("unit16");
    EXPECT_TRUE(shell.row("unit16").checked);
    shell.tap("unit4");
    shell.tap("unit16");
    shell.tap("style1");
    EXPECT_EQ(shell.top().sections()[0].header, "1Y");
    EXPECT_THAT(shell.rows(), Contains("Symbol *"));
    EXPECT_EQ(accessibleSentence(shell.row("unit16")), "Days, not selected");
    shell.back();
    EXPECT_EQ(format, HHEventDateFormat(CalendarUnit::year, TextStyle::symbol));
}

TEST_F(SelectionScreensTest, HandsTheNoteOverWhenItIsLeft) {
    std::string note;
    open<NoteViewController>("Cake", [&](const std::string& text) { note = text; });
    shell.type("note", "Cake\nand tea");
    EXPECT_EQ(note, "");
    shell.back();
    EXPECT_EQ(note, "Cake\nand tea");
}

}  // namespace
}  // namespace dayward
