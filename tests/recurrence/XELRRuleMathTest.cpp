#include "recurrence/XELRRuleMath.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>
#include <thread>

#include "recurrence/XELRRuleIterator.h"
#include "support/TestEnvironment.h"

namespace dayward {
namespace {

constexpr const char* kNone = "none";

class XELRRuleMathTest : public ::testing::Test {
protected:
    std::string next(const std::string& rule, const char* start, const char* after) {
        const auto date = XELRRuleMath::dateAfterDate(at(after), rule, at(start));
        return date ? environment_.text(*date) : kNone;
    }
    std::string last(const std::string& rule, const char* start) {
        const auto date = XELRRuleMath(rule, at(start)).lastDate();
        return date ? environment_.text(*date) : kNone;
    }
    std::string between(const std::string& rule, const char* start, const char* from, const char* to, std::size_t most = 100) {
        std::string text;
        for (const Date date : XELRRuleMath(rule, at(start)).datesFromDate(at(from), at(to), most)) {
            text += (text.empty() ? "" : " ") + environment_.text(date);
        }
        return text;
    }
    std::int64_t intervals(const char* rule, const char* start, const char* to) {
        return XELRRuleMath(rule, at(start)).intervalsToDate(at(to));
    }
    [[nodiscard]] Date at(const char* text) const { return environment_.at(text); }

    TestEnvironment environment_;
};

TEST_F(XELRRuleMathTest, AnswersTheNextDate) {
    const struct {
        const char* rule;
        const char* start;
        const char* after;
        const char* expected;
    } cases[] = {
        {"FREQ=DAILY", "2026-01-01T09:00:00", "2026-01-01T09:00:00", "2026-01-02T09:00:00"},
        {"FREQ=DAILY", "2026-01-01T09:00:00", "2026-01-01T08:59:59", "2026-01-01T09:00:00"},
        {"FREQ=DAILY", "2026-01-01T09:00:00", "2026-03-01T09:00:00", "2026-03-02T09:00:00"},
        {"FREQ=WEEKLY;BYDAY=MO,FR", "2026-01-05T09:00:00", "2026-06-01T09:00:00", "2026-06-05T09:00:00"},
        {"FREQ=WEEKLY;INTERVAL=2;BYDAY=MO", "2026-01-05T09:00:00", "2030-01-01", "2030-01-14T09:00:00"},
        {"FREQ=MONTHLY;BYDAY=-1FR", "2026-01-30T09:00:00", "2026-02-01", "2026-02-27T09:00:00"},
        {"FREQ=YEARLY", "2000-05-06T07:08:09", "2026-05-06T07:08:08", "2026-05-06T07:08:09"},
        {"FREQ=MINUTELY;INTERVAL=7", "2016-01-01T00:00:00", "2026-01-01T00:00:00", "2026-01-01T00:05:00"},
        // A monthly move clamps the day, and the clamped day stays.
        {"FREQ=MONTHLY", "2026-01-31T09:00:00", "2026-05-15T00:00:00", "2026-05-31T09:00:00"},
        {"FREQ=MONTHLY", "2025-01-31T09:00:00", "2025-04-15T00:00:00", "2025-04-28T09:00:00"},
        // COUNT is counted from the moved start; a whole number of weeks away there is no move.
        {"FREQ=DAILY;COUNT=4", "2026-01-01T09:00:00", "2026-01-11T09:00:00", "2026-01-12T09:00:00"},
        {"FREQ=DAILY;COUNT=3", "2026-01-01T09:00:00", "2026-01-11T09:00:00", kNone},
        {"FREQ=DAILY;COUNT=4", "2026-01-01T09:00:00", "2026-01-15T09:00:00", kNone},
        {"FREQ=SECONDLY;COUNT=600000000", "2006-01-02T09:00:00", "2026-06-01T09:00:00", kNone},
        {"FREQ=SECONDLY;COUNT=2147483647", "2006-01-02T09:00:00", "2026-06-01T09:00:00", "2026-06-01T09:00:01"},
        {"FREQ=WEEKLY;BYDAY=MO;COUNT=4", "2026-01-05T09:00:00", "2026-03-02T10:00:00", "2026-03-09T09:00:00"},
        {"FREQ=WEEKLY;BYDAY=MO;COUNT=4", "2026-01-05T09:00:00", "2026-03-02T09:00:00", kNone},
        {"FREQ=DAILY;COUNT=15", "2026-01-01T09:00:00", "2026-01-15T08:00:00", "2026-01-15T09:00:00"},
        {"FREQ=DAILY;COUNT=15", "2026-01-01T09:00:00", "2026-01-15T09:00:00", kNone},
        {"FREQ=DAILY;COUNT=16", "2026-01-01T09:00:00", "2026-01-15T09:00:00", "2026-01-16T09:00:00"},
        {"FREQ=DAILY;COUNT=3", "2026-01-10T09:00:00", "2026-01-01T09:00:00", "2026-01-10T09:00:00"},
        {"FREQ=DAILY;UNTIL=20260110T090000Z", "2026-01-01T09:00:00", "2026-01-09T09:00:00", "2026-01-10T09:00:00"},
        {"FREQ=DAILY;UNTIL=20260110T090000Z", "2026-01-01T09:00:00", "2026-01-10T09:00:00", kNone},
        {"FREQ=DAILY;UNTIL=20260110", "2026-01-01T09:00:00", "2026-01-09T09:00:00", kNone},
        // 29 February keeps its future, over a leap year and over a century that has none.
        {"FREQ=YEARLY", "2024-02-29T09:00:00", "2024-02-28T00:00:00", "2024-02-29T09:00:00"},
        {"FREQ=YEARLY", "2024-02-29T09:00:00", "2025-06-01T00:00:00", "2028-02-29T09:00:00"},
        {"FREQ=YEARLY", "2024-02-29T09:00:00", "2029-06-01T00:00:00", "2032-02-29T09:00:00"},
        {"FREQ=YEARLY", "2024-02-29T09:00:00", "2097-06-01T00:00:00", "2104-02-29T09:00:00"},
        {"FREQ=YEARLY;INTERVAL=3", "2024-02-29T09:00:00", "2033-06-01T00:00:00", "2036-02-29T09:00:00"},
        {"FREQ=YEARLY;INTERVAL=3000", "2024-02-29T09:00:00", "2024-01-01T00:00:00", "2024-02-29T09:00:00"},
        {"FREQ=YEARLY;INTERVAL=3000", "2024-02-29T09:00:00", "2024-03-01T00:00:00", kNone},
        // Nothing lies before the true start, though the walk begins one interval earlier.
        {"FREQ=MONTHLY;BYMONTHDAY=1,20", "2026-03-10T09:00:00", "2026-01-01T00:00:00", "2026-03-20T09:00:00"},
        {"FREQ=WEEKLY;BYDAY=TU", "2026-03-12T09:00:00", "2026-03-01T00:00:00", "2026-03-17T09:00:00"},
        // Weeks of the year without a day are those of the start's weekday.
        {"FREQ=YEARLY;BYWEEKNO=13,35", "2020-07-06T09:00:00", "2026-01-01T00:00:00", "2026-03-23T09:00:00"},
        // A key at the end without a value counts as absent.
        {"FREQ=DAILY;COUNT", "2026-01-01T09:00:00", "2026-02-01T09:00:00", "2026-02-02T09:00:00"},
        {"freq=daily", "2026-01-01T09:00:00", "2026-02-01T09:00:00", "2026-02-02T09:00:00"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(next(c.rule, c.start, c.after), c.expected) << c.rule << " " << c.start << " " << c.after;
    }
}

TEST_F(XELRRuleMathTest, WithoutARuleTheStartIsTheOnlyDate) {
    const XELRRuleMath single(std::nullopt, at("2026-05-01"));
    EXPECT_EQ(single.dateAfterDate(at("2026-04-30")), at("2026-05-01"));
    EXPECT_EQ(single.dateAfterDate(at("2026-05-01")), std::nullopt);
    EXPECT_EQ(single.lastDate(), at("2026-05-01"));
    EXPECT_EQ(single.intervalsToDate(at("2027-05-01")), 0);
    EXPECT_EQ(single.datesFromDate(at("2026-04-30"), at("2026-05-02"), 5).size(), 1U);
    EXPECT_TRUE(single.datesFromDate(at("2026-04-30"), at("2026-05-01"), 5).empty());
    EXPECT_EQ(XELRRuleMath(std::optional<std::string>(), std::nullopt).dateAfterDate(at("2026-01-01")), std::nullopt);
}

TEST_F(XELRRuleMathTest, AnswersRangesWithTheUpperBoundIncluded) {
    EXPECT_EQ(between("FREQ=DAILY", "2026-01-01T09:00:00", "2026-03-01T09:00:00", "2026-03-03T09:00:00"),
              "2026-03-02T09:00:00 2026-03-03T09:00:00");
    EXPECT_EQ(between("FREQ=DAILY", "2026-01-01T09:00:00", "2025-01-01", "2027-01-01", 2),
              "2026-01-01T09:00:00 2026-01-02T09:00:00");
    EXPECT_EQ(between("FREQ=DAILY", "2026-01-01", "2026-02-01", "2026-01-01"), "");
    EXPECT_EQ(between("FREQ=DAILY", "2026-01-01", "2026-02-01", "2026-03-01", 0), "");
}

TEST_F(XELRRuleMathTest, CountsIntervals) {
    EXPECT_EQ(intervals("FREQ=DAILY", "2026-01-01", "2026-01-14"), 13);
    EXPECT_EQ(intervals("FREQ=DAILY", "2026-01-01", "2026-01-15"), 0);
    EXPECT_EQ(intervals("FREQ=HOURLY;INTERVAL=5", "2026-01-02", "2026-01-01"), -4);
    EXPECT_EQ(intervals("FREQ=WEEKLY", "2026-01-01", "2026-01-30"), 4);
    EXPECT_EQ(intervals("FREQ=MONTHLY;INTERVAL=2", "2026-01-31", "2027-02-01"), 6);
    EXPECT_EQ(intervals("FREQ=YEARLY;INTERVAL=-1", "2020-01-01", "2026-01-01"), -6);
    EXPECT_EQ(intervals("FREQ=YEARLY;INTERVAL=0", "2020-01-01", "2026-01-01"), 0);
    EXPECT_EQ(intervals("nonsense", "2020-01-01", "2026-01-01"), 0);
    EXPECT_EQ(XELRRuleMath("FREQ=YEARLY", at("2020-01-01")).intervalsToDate(std::nullopt), -2020);
}

TEST_F(XELRRuleMathTest, AnswersTheLastDate) {
    EXPECT_EQ(last("FREQ=DAILY", "2026-01-01"), kNone);
    EXPECT_EQ(last("FREQ=DAILY;COUNT=3", "2026-01-01"), kNone);
    EXPECT_EQ(last("FREQ=NO", "2026-01-01"), "2026-01-01T00:00:00");
    EXPECT_EQ(last("FREQ=DAILY;UNTIL=20260520T120000Z", "2026-01-01T09:00:00"), "2026-05-20T09:00:00");
    EXPECT_EQ(last("FREQ=DAILY;UNTIL=20260101T090000Z", "2026-01-01T09:00:00"), "2026-01-01T09:00:00");
    EXPECT_EQ(last("FREQ=DAILY;UNTIL=20251201T090000Z", "2026-01-01T09:00:00"), kNone);
    EXPECT_EQ(last("FREQ=WEEKLY;UNTIL=20260330T090000Z", "2026-01-05T09:00:00"), "2026-03-30T09:00:00");
    EXPECT_EQ(last("FREQ=WEEKLY;BYHOUR=9,18;UNTIL=20260330T100000Z", "2026-01-05T09:00:00"), "2026-03-30T09:00:00");
    EXPECT_EQ(last("FREQ=SECONDLY;UNTIL=20560101T000000Z", "2026-01-01T00:00:01"), "2056-01-01T00:00:00");
    EXPECT_EQ(last("FREQ=DAILY;BYMONTH=1;UNTIL=20261126T000000Z", "2026-01-01T00:00:00"), "2026-01-31T00:00:00");
}

TEST_F(XELRRuleMathTest, KeepsTheWallClock) {
    TestEnvironment newYork(TestEnvironment::Options{.zone = "America/New_York"});
    const auto next = [&newYork](const char* rule, const char* start, const char* after) {
        return newYork.text(XELRRuleMath::dateAfterDate(newYork.at(after), rule, newYork.at(start)).value());
    };
    // Clocks go from 02:00 to 03:00 on 2026-03-08, and from 02:00 back to 01:00 on 2026-11-01.
    EXPECT_EQ(next("FREQ=DAILY", "2026-03-01T09:00:00", "2026-03-08T08:00:00"), "2026-03-08T09:00:00");
    EXPECT_EQ(next("FREQ=DAILY", "2026-03-01T02:30:00", "2026-03-08T00:00:00"), "2026-03-08T03:30:00");
    EXPECT_EQ(next("FREQ=DAILY", "2026-03-01T02:30:00", "2026-03-08T12:00:00"), "2026-03-09T02:30:00");
    const Date repeated = XELRRuleMath::dateAfterDate(newYork.at("2026-11-01"), "FREQ=DAILY",
                                                      newYork.at("2026-10-01T01:30:00")).value();
    EXPECT_EQ(repeated, newYork.at("2026-11-01T00:30:00") + TimeInterval(3600));
    // A start in the second pass stays the first answer; one skipped by the end of a rule comes last.
    const Date secondPass = newYork.at("2026-11-01T01:30:00") + TimeInterval(3600);
    EXPECT_EQ(XELRRuleMath("FREQ=DAILY", secondPass).dateAfterDate(newYork.at("2026-10-31")), secondPass);
    EXPECT_EQ(XELRRuleMath("FREQ=DAILY;BYHOUR=2,3;BYMINUTE=10,40;UNTIL=20260308T031500Z",
                           newYork.at("2026-03-01")).lastDate(), newYork.at("2026-03-08T03:40:00"));
    EXPECT_EQ(next("FREQ=DAILY;UNTIL=20261115T090000Z", "2026-10-01T09:00:00", "2026-11-14T10:00:00"),
              "2026-11-15T09:00:00");
}

/// Which times of a day a rule has; its times are whole quarters of an hour.
struct QuarterRule {
    const char* rule;
    bool (*holds)(int hour, int minute);
};
constexpr QuarterRule kQuarterRules[] = {
    {"FREQ=DAILY;BYHOUR=0;BYMINUTE=0", [](int hour, int minute) { return hour == 0 && minute == 0; }},
    {"FREQ=DAILY;BYHOUR=2;BYMINUTE=30", [](int hour, int minute) { return hour == 2 && minute == 30; }},
    {"FREQ=DAILY;BYHOUR=3;BYMINUTE=15", [](int hour, int minute) { return hour == 3 && minute == 15; }},
    {"FREQ=DAILY;BYHOUR=1,2,3;BYMINUTE=15,45",
     [](int hour, int minute) { return hour >= 1 && hour <= 3 && (minute == 15 || minute == 45); }},
    {"FREQ=MINUTELY;INTERVAL=15", [](int, int) { return true; }},
};

/// The instants of a rule around a change of the clock, each wall-clock time turned into its own.
std::vector<Date> instantsAround(Date change, const QuarterRule& rule, const Calendar& calendar) {
    std::set<Date> instants;
    Calendar::Fields fields = calendar.fields(change - TimeInterval(3 * 86400));
    for (int quarter = 0; quarter < 6 * 96; ++quarter) {
        fields.hour = quarter % 96 / 4;
        fields.minute = quarter % 4 * 15;
        fields.second = 0;
        if (rule.holds(fields.hour, fields.minute)) instants.insert(calendar.date(fields));
        if (quarter % 96 == 95) ++fields.day;
    }
    std::erase_if(instants, [change](Date date) { return std::abs((date - change).seconds()) > 2 * 86400; });
    return {instants.begin(), instants.end()};
}

TEST_F(XELRRuleMathTest, AnswersEachInstantOnceWhereClocksChange) {
    // Half an hour, two hours, changes at midnight, a whole skipped day, standard time in summer.
    const std::pair<const char*, const char*> zones[] = {
        {"America/New_York", "2026-01-01"}, {"Australia/Lord_Howe", "2026-01-01"}, {"Antarctica/Troll", "2026-01-01"},
        {"Asia/Beirut", "2026-01-01"},      {"Pacific/Apia", "2011-12-01"},        {"Africa/Casablanca", "2026-01-01"},
    };
    for (const auto& [zone, begin] : zones) {
        TestEnvironment local(TestEnvironment::Options{.zone = zone});
        const auto calendar = local.environment->calendar();
        const Date start = local.at("2010-01-01T00:00:00");
        auto change = calendar->timeZone().nextTransitionAfter(local.at(begin));
        for (int changes = 0; change && changes < 4; ++changes) {
            for (const auto& rule : kQuarterRules) {
                const auto expected = instantsAround(*change, rule, *calendar);
                const XELRRuleMath math(rule.rule, start);
                const Date from = expected.front() - TimeInterval(1);
                EXPECT_EQ(math.datesFromDate(from, expected.back(), 1000), expected) << zone << " " << rule.rule;
                EXPECT_EQ(math.datesFromDate(from, expected.back(), 9).back(), expected[std::min<std::size_t>(8, expected.size() - 1)]);
                for (std::size_t i = 0; i + 1 < expected.size(); ++i) {
                    const Date middle = expected[i] + (expected[i + 1] - expected[i]) * 0.5;
                    for (const Date date : {expected[i], middle, expected[i + 1] - TimeInterval(0.5)}) {
                        EXPECT_EQ(math.dateAfterDate(date), expected[i + 1])
                            << zone << " " << rule.rule << " " << local.text(date);
                    }
                    EXPECT_EQ(math.datesFromDate(middle, expected.back(), 1).front(), expected[i + 1]);
                }
            }
            change = calendar->timeZone().nextTransitionAfter(*change);
        }
    }
}

TEST_F(XELRRuleMathTest, DropsFractionsOfTheGivenDate) {
    const XELRRuleMath daily("FREQ=DAILY", at("2026-01-01T09:00:00"));
    EXPECT_EQ(daily.dateAfterDate(at("2026-01-05T09:00:00") + TimeInterval(0.9)), at("2026-01-06T09:00:00"));
    EXPECT_EQ(daily.dateAfterDate(at("2026-01-05T09:00:00") - TimeInterval(0.1)), at("2026-01-05T09:00:00"));
}

// An unbounded search takes longer than the test runner waits.
TEST_F(XELRRuleMathTest, AnswersHostileRules) {
    std::string days = "FREQ=DAILY;BYMONTHDAY=1";
    for (int i = 0; i < 5000; ++i) days += ",1";
    std::string seconds = "FREQ=YEARLY;BYSECOND=0";
    for (int i = 1; i < 62; ++i) seconds += "," + std::to_string(i % 60);
    std::string positions = "FREQ=YEARLY;BYSETPOS=1";
    for (int i = 1; i < 386; ++i) positions += ",1";
    std::string everySecond = "FREQ=YEARLY;BYHOUR=0";
    for (int i = 1; i < 24; ++i) everySecond += "," + std::to_string(i);
    std::string sixty = "0";
    for (int i = 1; i < 60; ++i) sixty += "," + std::to_string(i);
    everySecond += ";BYMINUTE=" + sixty + ";BYSECOND=" + sixty;
    std::string weeks = "FREQ=YEARLY;BYSETPOS=366;BYDAY=MO";
    for (int i = 1; i < 385; ++i) weeks += ",MO";
    weeks += ";BYWEEKNO=-53";
    for (int i = 1; i < 55; ++i) weeks += ",-53";
    const std::pair<std::string, const char*> cases[] = {
        {"FREQ=DAILY;INTERVAL=0", kNone},
        {"FREQ=DAILY;INTERVAL=-1", kNone},
        {"FREQ=DAILY;INTERVAL=65536", kNone},
        {"FREQ=DAILY;INTERVAL=99999999999999999999999", kNone},
        {"FREQ=SECONDLY;INTERVAL=0", kNone},
        {"FREQ=YEARLY;INTERVAL=32767", kNone},
        {"FREQ=MONTHLY;INTERVAL=32767", kNone},
        {"FREQ=YEARLY;BYMONTH=2;BYMONTHDAY=30", kNone},
        {"FREQ=MONTHLY;BYMONTH=2;BYMONTHDAY=30", kNone},
        {"FREQ=MONTHLY;BYSETPOS=40", kNone},
        {"FREQ=MONTHLY;INTERVAL=12;BYMONTH=6", kNone},
        {"FREQ=MONTHLY;INTERVAL=2;BYMONTH=6", kNone},
        {"FREQ=DAILY;BYMONTH=2;BYMONTHDAY=30", kNone},
        {"FREQ=DAILY;BYDAY=1MO", kNone},
        {"FREQ=DAILY;BYMONTHDAY=-1", kNone},
        {"FREQ=SECONDLY;BYMONTH=2;BYMONTHDAY=30", kNone},
        {"FREQ=SECONDLY;INTERVAL=3600;BYMINUTE=30", "2026-06-01T12:30:00"},
        {"FREQ=SECONDLY;INTERVAL=3600;BYSECOND=61", kNone},
        {"FREQ=SECONDLY;INTERVAL=21600;BYMONTH=2;BYMONTHDAY=29;BYDAY=MO", "2044-02-29T03:00:00"},
        {"FREQ=MINUTELY;INTERVAL=1440;BYDAY=MO;BYMONTHDAY=32", kNone},
        {"FREQ=HOURLY;INTERVAL=24;BYYEARDAY=-1", kNone},
        {"FREQ=YEARLY;BYWEEKNO=53;BYDAY=1MO", kNone},
        {"FREQ=WEEKLY;BYMONTHDAY=1", kNone},
        {"FREQ=DAILY;COUNT=99999999999", "2026-06-02T09:00:00"},
        {"FREQ=SECONDLY;COUNT=2147483647", "2026-06-01T12:00:01"},
        {"FREQ=DAILY;COUNT=2147483647;BYMONTH=2;BYMONTHDAY=30", kNone},
        {"FREQ=DAILY;UNTIL=nonsense", kNone},
        {"FREQ=DAILY;UNTIL=99999999T999999Z", "2026-06-02T09:00:00"},
        {"FREQ=DAILY;BYMONTH=13", kNone},
        {"FREQ=DAILY;BYMONTH=5L", kNone},
        {"FREQ=DAILY;BYHOUR=", "2026-06-02T00:00:00"},
        {"FREQ=DAILY;BYDAY=", kNone},
        {"FREQ=DAILY;;;;", "2026-06-02T09:00:00"},
        {"FREQ=DAILY;FREQ=YEARLY", kNone},
        {"RSCALE=CHINESE;FREQ=YEARLY", kNone},
        {"FREQ=NO;INTERVAL=1", kNone},
        {"FREQ", kNone},
        {"", kNone},
        {"=", kNone},
        {std::string("FREQ=DAILY\0;COUNT=1", 19), kNone},
        {"FREQ=DAILY;BYDAY=-128MO", kNone},
        {std::string(5'000'000, 'A'), kNone},
        {"FREQ=DAILY;X=" + std::string(3'000'000, ','), kNone},
        {days, kNone},
        {seconds, kNone},
        {positions, kNone},
        {weeks, kNone},
        {everySecond, "2027-01-01T00:00:00"},
        {everySecond + ";BYYEARDAY=200", "2026-07-19T00:00:00"},
        {"FREQ=YEARLY;BYMONTHDAY=1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17,18,19,20,21,22,23,24,25,26,27,28,29,30,31;"
         "BYMONTH=1,2,3,4,5,6,7,8,9,10,11,12;BYDAY=MO,TU;BYSETPOS=366", kNone},
    };
    for (const auto& [rule, expected] : cases) {
        EXPECT_EQ(next(rule, "2020-01-01T09:00:00", "2026-06-01T12:00:00"), expected) << rule.substr(0, 100);
        (void)last(rule, "2020-01-01T09:00:00");
        (void)between(rule, "2020-01-01T09:00:00", "2019-01-01", "2500-01-01", 50);
    }
}

TEST_F(XELRRuleMathTest, AnswersNothingForDatesBeyondTheCalendar) {
    const double seconds[] = {NAN, INFINITY, -INFINITY, 1e300, -1e300, 1e17, 3e12};
    for (const double value : seconds) {
        const Date date = Date::sinceReference(value);
        EXPECT_EQ(XELRRuleMath("FREQ=DAILY", date).dateAfterDate(at("2026-01-01")), std::nullopt) << value;
        (void)XELRRuleMath("FREQ=DAILY", at("2026-01-01")).dateAfterDate(date);
        (void)XELRRuleMath("FREQ=MONTHLY;UNTIL=20300101T000000Z", date).lastDate();
        (void)XELRRuleMath("FREQ=SECONDLY", at("2026-01-01")).intervalsToDate(date);
        EXPECT_TRUE(XELRRuleMath("FREQ=YEARLY", date).datesFromDate(date, date, 5).empty());
    }
}

TEST_F(XELRRuleMathTest, AnswersTheSameFromEveryThread) {
    const Date start = at("2020-01-01T09:00:00");
    const Date after = at("2026-06-01T12:00:00");
    std::vector<std::thread> threads;
    std::vector<int> right(4);
    for (int& count : right) {
        threads.emplace_back([&, environment = environment_.environment.get()] {
            const EnvironmentScope scope(environment);
            for (int i = 1; i <= 100; ++i) {
                const std::string rule = "FREQ=MONTHLY;INTERVAL=" + std::to_string(i);
                const auto date = XELRRuleMath(rule, start).dateAfterDate(after);
                if (date && *date > after && *date == XELRRuleMath(rule, start).dateAfterDate(after)) ++count;
            }
        });
    }
    for (auto& thread : threads) thread.join();
    EXPECT_EQ(right, std::vector<int>(4, 100));
}

TEST_F(XELRRuleMathTest, StepsInTrueTime) {
    TestEnvironment newYork(TestEnvironment::Options{.zone = "America/New_York"});
    XELRRuleIterator iterator("FREQ=DAILY;COUNT=3", newYork.at("2026-03-07T09:00:00") + TimeInterval(0.5));
    EXPECT_EQ(newYork.text(iterator.getNextDate().value()), "2026-03-08T10:00:00");
    EXPECT_EQ(newYork.text(iterator.getNextDate().value()), "2026-03-09T10:00:00");
    EXPECT_EQ(iterator.getNextDate(), std::nullopt);
    EXPECT_EQ(iterator.getNextDate(), std::nullopt);
    EXPECT_EQ(XELRRuleIterator("FREQ=NO", newYork.at("2026-03-07")).getNextDate(), std::nullopt);
}

}  // namespace
}  // namespace dayward
