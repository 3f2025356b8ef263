#include "recurrence/XELRRuleComponents.h"

#include <gtest/gtest.h>

#include "recurrence/XELRRule.h"
#include "support/TestEnvironment.h"

namespace dayward {
namespace {

class XELRRuleComponentsTest : public ::testing::Test {
protected:
    TestEnvironment environment_{TestEnvironment::Options{.zone = "Europe/Moscow"}};
};

TEST_F(XELRRuleComponentsTest, WritesBackWhatItUnderstands) {
    const struct {
        const char* read;
        const char* written;
    } cases[] = {
        {"", "FREQ=NO;INTERVAL=1"},
        {"FREQ=NO", "FREQ=NO;INTERVAL=1"},
        {"FREQ=WEEKLY;BYDAY=MO,WE", "FREQ=WEEKLY;INTERVAL=1;BYDAY=MO,WE"},
        {"freq=monthly;byday=1su", "FREQ=MONTHLY;INTERVAL=1;BYDAY=1SU"},
        {"FREQ=MONTHLY;BYDAY=-1FR", "FREQ=MONTHLY;INTERVAL=1;BYDAY=-1FR"},
        {"FREQ=YEARLY;BYDAY=-1SU,2MO,FR,-2SU,1TU", "FREQ=YEARLY;INTERVAL=1;BYDAY=FR,1TU,2MO,-1SU,-2SU"},
        {"BYSETPOS=-2,15,-1,1;FREQ=MONTHLY", "FREQ=MONTHLY;INTERVAL=1;BYSETPOS=1,15,-1,-2"},
        {"FREQ=YEARLY;UNTIL=20300101T000000Z;COUNT=3;BYSETPOS=1;BYYEARDAY=2;BYWEEKNO=3;BYMONTH=4;BYMONTHDAY=5;BYDAY=SA",
         "FREQ=YEARLY;INTERVAL=1;BYDAY=SA;BYMONTHDAY=5;BYMONTH=4;BYWEEKNO=3;BYYEARDAY=2;BYSETPOS=1;COUNT=3;"
         "UNTIL=20300101T000000Z"},
        {"FREQ=WEEKLY;WKST=MO", "FREQ=WEEKLY;INTERVAL=1"},
        {"FREQ=SOMETIMES;INTERVAL=2", "FREQ=NO;INTERVAL=2"},
        {"FREQ=DAILY;COUNT=0", "FREQ=DAILY;INTERVAL=1"},
        {"FREQ=DAILY;INTERVAL= +7 days", "FREQ=DAILY;INTERVAL=7"},
        {"FREQ=DAILY;INTERVAL=65537", "FREQ=DAILY;INTERVAL=1"},
        {"FREQ=DAILY;INTERVAL=99999999999999999999", "FREQ=DAILY;INTERVAL=-1"},
        {"FREQ=DAILY;UNTIL=20200131", "FREQ=DAILY;INTERVAL=1"},
        {"FREQ=DAILY;UNTIL=20201331T000000Z", "FREQ=DAILY;INTERVAL=1"},
        {"FREQ=WEEKLY;BYDAY=XX,MO", "FREQ=WEEKLY;INTERVAL=1;BYDAY=MO"},
        {"FREQ=WEEKLY;BYDAY=XX", "FREQ=WEEKLY;INTERVAL=1;BYDAY="},
        {"FREQ=MONTHLY;BYDAY=3TH\xC3\x84\xC3\x96", "FREQ=MONTHLY;INTERVAL=1;BYDAY=3TH"},
        // An unknown key's value is looked at as a key of its own.
        {"X=FREQ=DAILY", "FREQ=DAILY;INTERVAL=1"},
        // A key at the end without a value is absent.
        {"FREQ=DAILY;COUNT", "FREQ=DAILY;INTERVAL=1"},
        {"FREQ", "FREQ=NO;INTERVAL=1"},
        {"FREQ=DAILY;UNTIL=", "FREQ=DAILY;INTERVAL=1"},
        {";;==;=;", "FREQ=NO;INTERVAL=1"},
    };
    for (const auto& c : cases) EXPECT_EQ(XELRRuleComponents(c.read).rfc2445String(), c.written) << c.read;
}

TEST_F(XELRRuleComponentsTest, SearchesTheDaysInTheirOrder) {
    const auto days = XELRRuleComponents("FREQ=WEEKLY;BYDAY=TUSU,-2MO,,M").daysOfWeek().value();
    ASSERT_EQ(days.size(), 4U);
    EXPECT_EQ(days[0], XELRecurrenceDayOfWeek::dayOfWeek(0));
    EXPECT_EQ(days[1], XELRecurrenceDayOfWeek::dayOfWeek(0));
    EXPECT_EQ(days[2], XELRecurrenceDayOfWeek::dayOfWeek(1));
    EXPECT_EQ(days[3], XELRecurrenceDayOfWeek::dayOfWeek(2, -2));
}

TEST_F(XELRRuleComponentsTest, ReadsTheEndInTheZoneOfNow) {
    const auto until = XELRRuleComponents("FREQ=DAILY;UNTIL=20270314T090000Z").until();
    EXPECT_EQ(until, environment_.at("2027-03-14T09:00:00"));
    environment_->setTimeZone(TimeZone::named("America/New_York").value());
    EXPECT_EQ(XELRRuleComponents("FREQ=DAILY;UNTIL=20270314T090000Z").until(), environment_.at("2027-03-14T09:00:00"));
    EXPECT_EQ(XELRRuleComponents::stringFromDate(environment_.at("2027-03-14T09:00:00")), "20270314T090000Z");
}

TEST_F(XELRRuleComponentsTest, TakesAnotherCalendarsRule) {
    CalendarRecurrenceRule rule;
    rule.frequency = CalendarRecurrenceRule::Frequency::monthly;
    rule.interval = 3;
    rule.daysOfTheWeek = {{{6, -1}, {2, 0}}};
    rule.daysOfTheMonth = {{-1, 15}};
    rule.recurrenceEnd = CalendarRecurrenceRule::End{std::nullopt, 5};
    EXPECT_EQ(XELRRuleComponents(rule).rrule(), "FREQ=MONTHLY;INTERVAL=3;BYDAY=MO,-1FR;BYMONTHDAY=15,-1;COUNT=5");
    rule.recurrenceEnd->endDate = environment_.at("2030-01-01");
    const XELRRuleComponents ended(rule);
    EXPECT_EQ(ended.count(), 0U);
    EXPECT_EQ(ended.until(), environment_.at("2030-01-01"));
}

TEST_F(XELRRuleComponentsTest, ReadsMegabytesAtOnce) {
    std::string text = "FREQ=DAILY;BYDAY=MO";
    for (int i = 0; i < 300000; ++i) text += ",-1SU";
    EXPECT_EQ(XELRRuleComponents(text).daysOfWeek()->size(), 300001U);
    EXPECT_EQ(XELRRuleComponents(std::string(4'000'000, ';')).frequency(), RuleFrequency::none);
}

TEST_F(XELRRuleComponentsTest, MakesSimpleRules) {
    EXPECT_EQ(XELRRule::rruleForFrequency(RuleFrequency::daily), "FREQ=DAILY;INTERVAL=1");
    EXPECT_EQ(XELRRule::rruleForFrequency(static_cast<RuleFrequency>(8)), "FREQ=NO;INTERVAL=1");
}

}  // namespace
}  // namespace dayward
