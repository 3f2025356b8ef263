#include <gmock/gmock.h>

#include "Classes/Interface/Edit/RRuleExViewController.h"
#include "Classes/Interface/Edit/RRuleViewController.h"
#include "support/ScriptedPresenter.h"
#include "support/TestEnvironment.h"

namespace dayward {
namespace {

using ::testing::AllOf;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;
using Rule = std::optional<std::string>;

class RepeatEditorsTest : public ::testing::Test {
protected:
    std::shared_ptr<RRuleViewController> open(Rule rule) {
        auto screen = std::make_shared<RRuleViewController>(
            rule, start, [this](const Rule& chosen) { committed.push_back(chosen); });
        shell.navigation.present(screen);
        return screen;
    }
    RRuleExViewController& openFree(const Rule& rule) {
        open(rule);
        shell.tap("custom");
        return shell.top<RRuleExViewController>();
    }
    std::vector<std::string> groups() const {
        std::vector<std::string> ids;
        for (const TableSection& section : shell.top().sections()) {
            if (section.id != "next") ids.push_back(section.id);
        }
        return ids;
    }
    std::vector<std::string> nextDatesShown() const {
        std::vector<std::string> texts;
        for (const TableSection& section : shell.top().sections()) {
            if (section.id != "next") continue;
            for (const TableRow& row : section.rows) texts.push_back(row.detail);
        }
        return texts;
    }

    TestEnvironment environment;
    EventStart start{environment.at("2026-03-01"), {540}};
    std::vector<Rule> committed;
    ScriptedPresenter shell;
};

TEST_F(RepeatEditorsTest, CommitsAPresetAtOnce) {
    open("FREQ=DAILY;INTERVAL=1");
    EXPECT_THAT(shell.rows(), ElementsAre("Never", "Minutely", "Hourly", "Daily *", "Weekly", "Every 2 Weeks",
                                          "Monthly", "Yearly", "--", "Custom", "--", "Wednesday, March 11 at 9:00 AM",
                                          "Thursday, March 12 at 9:00 AM", "Friday, March 13 at 9:00 AM",
                                          "Saturday, March 14 at 9:00 AM", "Sunday, March 15 at 9:00 AM"));
    shell.tap("preset5");
    EXPECT_THAT(committed, ElementsAre("FREQ=WEEKLY;INTERVAL=2"));
    EXPECT_THAT(shell.take(), ElementsAre("present Repeat", "dismiss Repeat"));
    open("FREQ=DAILY;INTERVAL=1");
    shell.tap("preset0");
    EXPECT_EQ(committed.back(), std::nullopt);
}

TEST_F(RepeatEditorsTest, MarksTheFreeFormForAnyOtherRule) {
    const auto screen = open("FREQ=DAILY;INTERVAL=3");
    EXPECT_TRUE(shell.row("custom").checked);
    EXPECT_EQ(screen->sections()[1].footer, "Every 3 Days");
    shell.tap("custom");
    shell.spin("interval", {6});
    shell.back();
    EXPECT_THAT(committed, ElementsAre("FREQ=DAILY;INTERVAL=7"));
    EXPECT_EQ(screen->sections()[1].footer, "Every 7 Days");
}

TEST_F(RepeatEditorsTest, TakesWhatTheFreeFormShowsWhenItIsLeft) {
    openFree(std::nullopt);
    EXPECT_EQ(shell.row("frequency").detail, "Yearly");
    shell.back();
    EXPECT_THAT(committed, ElementsAre("FREQ=YEARLY;INTERVAL=1"));
    EXPECT_TRUE(shell.row("preset7").checked);
}

// What the form can show comes back as it was; the rest is lost, and what it cannot repeat is yearly.
TEST_F(RepeatEditorsTest, LeadsFromARuleToTheFormAndBack) {
    const std::pair<const char*, const char*> rules[] = {
        {"FREQ=MINUTELY;INTERVAL=15", "FREQ=MINUTELY;INTERVAL=15"},
        {"FREQ=WEEKLY;INTERVAL=2;BYDAY=MO,FR", "FREQ=WEEKLY;INTERVAL=2;BYDAY=MO,FR"},
        {"FREQ=WEEKLY;INTERVAL=1", "FREQ=WEEKLY;INTERVAL=1"},
        {"FREQ=MONTHLY;INTERVAL=1;BYDAY=-1FR", "FREQ=MONTHLY;INTERVAL=1;BYDAY=-1FR"},
        {"FREQ=MONTHLY;INTERVAL=1;BYMONTHDAY=1,31,-1", "FREQ=MONTHLY;INTERVAL=1;BYMONTHDAY=1,31,-1"},
        {"FREQ=YEARLY;INTERVAL=1;BYDAY=2SU;BYMONTH=5", "FREQ=YEARLY;INTERVAL=1;BYDAY=2SU;BYMONTH=5"},
        {"FREQ=DAILY;INTERVAL=1;BYMONTH=7", "FREQ=DAILY;INTERVAL=1;BYMONTH=7"},
        {"FREQ=DAILY;INTERVAL=1;UNTIL=20270101T123456Z", "FREQ=DAILY;INTERVAL=1;UNTIL=20270101T123400Z"},
        {"FREQ=SECONDLY;INTERVAL=5", "FREQ=YEARLY;INTERVAL=5"},
        {"FREQ=DAILY;INTERVAL=5000", "FREQ=DAILY;INTERVAL=998"},
        {"FREQ=DAILY;INTERVAL=0", "FREQ=DAILY;INTERVAL=1"},
        {"FREQ=YEARLY;INTERVAL=1;BYWEEKNO=20;COUNT=3", "FREQ=YEARLY;INTERVAL=1"},
        {"FREQ=MONTHLY;INTERVAL=1;BYDAY=-3TU", "FREQ=MONTHLY;INTERVAL=1"},
        {"not a rule", "FREQ=YEARLY;INTERVAL=1"},
    };
    for (const auto& [in, out] : rules) EXPECT_EQ(RRuleState::ofRule(in).rrule(), out) << in;
}

TEST_F(RepeatEditorsTest, ShowsTheGroupsThatMatter) {
    openFree("FREQ=YEARLY;INTERVAL=1");
    EXPECT_THAT(groups(), ElementsAre("frequency", "months", "days", "customDay", "end"));
    const std::pair<std::size_t, std::vector<std::string>> byFrequency[] = {
        {0, {"frequency", "end"}},
        {2, {"frequency", "end"}},
        {3, {"frequency", "weekdays", "end"}},
        {4, {"frequency", "days", "customDay", "end"}},
    };
    for (const auto& [row, expected] : byFrequency) {
        shell.spin("frequency", {row});
        EXPECT_EQ(groups(), expected) << row;
    }
}

TEST_F(RepeatEditorsTest, KeepsSelectedMonthsAndWeekdaysInSight) {
    openFree("FREQ=YEARLY;INTERVAL=1;BYMONTH=3");
    shell.spin("frequency", {2});
    EXPECT_THAT(groups(), ElementsAre("frequency", "months", "end"));
    EXPECT_EQ(shell.top<RRuleExViewController>().rrule(), "FREQ=DAILY;INTERVAL=1;BYMONTH=3");
    shell.tapItem("months", 2);
    EXPECT_FALSE(shell.hasRow("months")) << "with nothing selected it goes";
    shell.spin("frequency", {3});
    shell.tap("weekday2");
    shell.spin("frequency", {1});
    EXPECT_THAT(groups(), ElementsAre("frequency", "weekdays", "end"));
    shell.spin("frequency", {4});
    EXPECT_EQ(shell.top<RRuleExViewController>().rrule(), "FREQ=MONTHLY;INTERVAL=1")
        << "out of sight it counts for nothing";
}

TEST_F(RepeatEditorsTest, TellsEachValueInItsRow) {
    openFree("FREQ=MONTHLY;INTERVAL=2;BYMONTHDAY=13,2;BYDAY=-1MO;UNTIL=20270105T090000Z");
    EXPECT_THAT(shell.rows(), AllOf(Contains("Frequency: Monthly"), Contains("Every: 2 months"),
                                    Contains("Month Days: 2, 13"), Contains("Days of Week: Last Monday *"),
                                    Contains("End Repeat: Jan 5, 2027 *"), Not(Contains(HasSubstr("Months: ")))));
    shell.toggle("customDay", false);
    shell.toggle("end", false);
    EXPECT_THAT(shell.rows(), AllOf(Contains("Days of Week: -"), Contains("End Repeat: -")));
    shell.spin("customDay", {5, 6});
    shell.spin("interval", {997});
    EXPECT_EQ(shell.top<RRuleExViewController>().rrule(), "FREQ=MONTHLY;INTERVAL=998;BYDAY=-1SA;BYMONTHDAY=2,13");
}

TEST_F(RepeatEditorsTest, EndsWithAWholeDayOrAtAMinute) {
    auto& screen = openFree("FREQ=DAILY;INTERVAL=1");
    shell.pick("end", environment.at("2026-03-12T00:00:00"));
    EXPECT_EQ(screen.rrule(), "FREQ=DAILY;INTERVAL=1;UNTIL=20260312T235900Z");
    EXPECT_THAT(nextDatesShown(), ElementsAre("Wednesday, March 11 at 9:00 AM", "Thursday, March 12 at 9:00 AM"));
    shell.spin("frequency", {1});
    shell.pick("end", environment.at("2026-03-12T12:34:56"));
    EXPECT_EQ(screen.rrule(), "FREQ=HOURLY;INTERVAL=1;UNTIL=20260312T123400Z");
}

TEST_F(RepeatEditorsTest, ShowsTheDatesOfTheLastDayOfMonths) {
    openFree("FREQ=MONTHLY;INTERVAL=1");
    shell.tapItem("days", 31);
    EXPECT_EQ(shell.row("days").detail, "Last");
    EXPECT_THAT(nextDatesShown(),
                ElementsAre("Tuesday, March 31 at 9:00 AM", "Thursday, April 30 at 9:00 AM",
                            "Sunday, May 31 at 9:00 AM", "Tuesday, June 30 at 9:00 AM", "Friday, July 31 at 9:00 AM"));
}

TEST_F(RepeatEditorsTest, CountsInTheFormsOfTheLanguage) {
    const TestEnvironment russian({.locale = "ru_RU"});
    ScriptedPresenter own;
    own.navigation.present(std::make_shared<RRuleExViewController>("FREQ=WEEKLY;INTERVAL=1", start, [](auto&) {}));
    const std::pair<std::size_t, const char*> rows[] = {
        {0, "1 неделя"},    {1, "2 недели"},    {3, "4 недели"},    {4, "5 недель"},
        {10, "11 недель"},  {20, "21 неделя"},  {21, "22 недели"},  {24, "25 недель"},
        {110, "111 недель"}, {997, "998 недель"}};
    for (const auto& [row, text] : rows) {
        own.spin("interval", {row});
        EXPECT_EQ(own.row("interval").detail, text);
    }
    own.spin("frequency", {5});
    own.spin("interval", {2});
    EXPECT_EQ(own.row("interval").detail, "3 года");
}

TEST_F(RepeatEditorsTest, NamesMonthsAsTheyStandAlone) {
    const TestEnvironment russian({.locale = "ru_RU"});
    ScriptedPresenter own;
    own.navigation.present(std::make_shared<RRuleExViewController>("FREQ=YEARLY;INTERVAL=1", start, [](auto&) {}));
    const auto months = std::get<GridContent>(own.row("months").content);
    EXPECT_EQ(months.items.at(2).label, "март");
    EXPECT_EQ(months.items.at(4).label, "май");
}

TEST_F(RepeatEditorsTest, OpensOnlyTheTappedRow) {
    openFree("FREQ=WEEKLY;INTERVAL=1");
    shell.tap("interval");
    EXPECT_TRUE(*shell.row("interval").open);
    EXPECT_FALSE(*shell.row("frequency").open);
    shell.tap("interval");
    EXPECT_FALSE(*shell.row("interval").open);
}

}  // namespace
}  // namespace dayward
