// Rounded distances, date parts, durations and the days of the week.
#include "Classes/Other/Date/HHDateHelper.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>

#include "Classes/Other/Date/DateParts.h"
#include "Classes/Other/Date/Duration.h"
#include "support/TestEnvironment.h"

namespace dayward {
namespace {

using Unit = CalendarUnit;

std::string text(const XDIDateInterval& interval) {
    std::string result;
    const std::pair<double, const char*> fields[] = {
        {interval.year, "y"}, {interval.month, "mo"}, {interval.week, "w"},  {interval.day, "d"},
        {interval.hour, "h"}, {interval.minute, "m"}, {interval.second, "s"}};
    for (const auto& [value, name] : fields) {
        if (value != XDIDateInterval::kUnset) result += std::to_string(static_cast<std::int64_t>(value)) + name + ' ';
    }
    return result;
}

constexpr std::uint64_t kYear = 4, kMonth = 8, kDay = 16, kHour = 32, kMinute = 64, kSecond = 128, kWeek = 256;
constexpr double kDays = 86400;

TEST(HHDateHelper, RoundedDistances) {
    TestEnvironment environment;
    const Date from = environment.at("2026-03-10T12:00:00");
    struct Case {
        double seconds;
        std::uint64_t units;
        const char* expected;
    };
    const Case cases[] = {
        {0, kDay, "0d 0h 0m 0s "},
        {30, kMinute, "0m 30s "},
        {-30, kMinute, "0m -31s "},
        {90, kMinute, "2m "},
        {-90, kMinute, "-2m "},
        {-89, kMinute, "-2m "},
        {-30, kSecond, "-31s "},  // the past is one second farther
        {3 * 3600 + 20 * 60, kDay | kMinute, "0d 200m "},
        {3 * 3600 + 30 * 60, kHour, "4h "},
        {1.49 * kDays, kDay, "1d "},
        {1.5 * kDays, kDay, "2d "},
        {10 * kDays, kWeek | kDay, "1w 3d "},
        {3 * kDays, kWeek, "0w 3d "},
        {300 * kDays, kYear | kDay, "0y 300d "},
        {700 * kDays, kYear, "1y "},  // a year is never rounded up
        {10 * kDays, kMonth, "0mo 1w 3d "},
        {50 * kDays, kMonth, "2mo "},
        {45, 0, "0y 0mo 0w 0d 0h 0m 45s "},
    };
    for (const Case& c : cases) {
        const auto rounded = HHDateHelper::roundDateIntervalFromDate(from, from + TimeInterval(c.seconds),
                                                                     CalendarUnits::fromMask(c.units));
        EXPECT_EQ(text(rounded), c.expected) << c.seconds << " s in " << c.units;
    }
    const auto elevenMonths = HHDateHelper::roundDateIntervalFromDate(from, environment.at("2027-02-10T12:00:00"),
                                                                      CalendarUnits::fromMask(kYear));
    EXPECT_EQ(text(elevenMonths), "0y 11mo ") << "years were asked; months join with their own margin";
}

TEST(HHDateHelper, RoundingIsNearestAndNeverNothing) {
    const auto seed = std::random_device()();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    TestEnvironment environment({.zone = "America/New_York"});
    const std::pair<std::uint64_t, double> units[] = {{kMinute, 60}, {kHour, 3600}, {kDay, 86400}, {kWeek, 604800}};
    for (int round = 0; round < 3000; ++round) {
        const auto& [unit, length] = units[random() % 4];
        const Date from = environment.at("2026-03-01") + TimeInterval(static_cast<double>(random() % 100000000));
        const double seconds = static_cast<double>(random() % 40000000) - 20000000;
        if (seconds == 0) continue;
        const auto rounded =
            HHDateHelper::roundDateIntervalFromDate(from, from + TimeInterval(seconds), CalendarUnits::fromMask(unit));
        SCOPED_TRACE(::testing::Message() << from.secondsSinceReference() << " and " << seconds << " s in " << unit);
        ASSERT_FALSE(rounded == XDIDateInterval());
        if (rounded.getUnits().mask() != unit) continue;  // widened: the distance is less than one unit
        constexpr double kChangeOfTheClocks = 3600;
        const double slack = length / 2 + 1 + (length > 3600 ? kChangeOfTheClocks : 0);
        ASSERT_LE(std::abs(rounded.getSingleValue() * length - seconds), slack);
    }
}

TEST(HHDateHelper, BearsAnyDate) {
    TestEnvironment environment;
    for (const double number : {1e18, -1e18, 1e300, -std::numeric_limits<double>::infinity(), std::nan("")}) {
        for (const std::uint64_t mask : {std::uint64_t{0}, std::uint64_t{508}, ~std::uint64_t{0}}) {
            (void)HHDateHelper::roundDateIntervalFromDate(Date(), Date::sinceReference(number),
                                                          CalendarUnits::fromMask(mask));
        }
        (void)HHDateHelper::detailDateIntervalFromDate(Date::sinceReference(number), Date());
    }
}

class Parts : public ::testing::Test {
protected:
    Date at(const char* local) { return environment.at(local); }
    std::string local(Date date) { return environment.text(date); }
    TestEnvironment environment{{.zone = "Europe/Berlin", .locale = "de_DE", .now = "2026-03-10T12:34:56"}};
};

TEST_F(Parts, BoundsOfPeriods) {
    struct Case {
        Date (*operation)(Date);
        const char* expected;
    };
    const Case cases[] = {
        {beginningOfYear, "2026-01-01T00:00:00"},   {endOfYear, "2026-12-31T23:59:59"},
        {beginningOfMonth, "2026-02-01T00:00:00"},  {endOfMonth, "2026-02-28T23:59:59"},
        {beginningOfWeek, "2026-02-02T00:00:00"},   {endOfWeek, "2026-02-08T23:59:59"},
        {beginningOfDay, "2026-02-03T00:00:00"},    {endOfDay, "2026-02-03T23:59:59"},
        {beginningOfHour, "2026-02-03T10:00:00"},   {endOfHour, "2026-02-03T10:59:59"},
        {beginningOfMinute, "2026-02-03T10:15:00"}, {endOfMinute, "2026-02-03T10:15:59"},
    };
    for (const Case& c : cases) EXPECT_EQ(local(c.operation(at("2026-02-03T10:15:30"))), c.expected);
    EXPECT_EQ(local(beginningOfWeek(at("2026-02-08T10:00:00"))), "2026-02-02T00:00:00") << "a Sunday ends its week";
    EXPECT_EQ(local(endOfWeek(at("2026-03-28T10:00:00"))), "2026-03-29T23:59:59")
        << "by days, across a change of the clocks";
    EXPECT_EQ(local(today()), "2026-03-10T00:00:00");
}

TEST_F(Parts, BoundsWhereTheClocksChange) {
    // In Cairo the midnight before Friday, 24 April 2026 is skipped; weeks begin on Saturday.
    TestEnvironment cairo({.zone = "Africa/Cairo", .locale = "ar_EG", .now = "2026-04-24T12:00:00"});
    EXPECT_EQ(cairo.text(today()), "2026-04-24T01:00:00");
    EXPECT_EQ(cairo.text(yesterday()), "2026-04-23T00:00:00");
    EXPECT_EQ(cairo.text(tomorrow()), "2026-04-25T00:00:00");
    EXPECT_EQ(cairo.text(beginningOfWeek(cairo->now())), "2026-04-18T00:00:00");

    TestEnvironment berlin({.zone = "Europe/Berlin"});
    const Date first = berlin.at("2026-10-25T02:15:30"), second = first + TimeInterval(3600.25);
    for (auto* operation : {beginningOfHour, endOfHour, beginningOfMinute, endOfMinute})
        EXPECT_EQ(operation(second), operation(first) + TimeInterval(3600)) << "the hour's second pass has its own";
    // On Lord Howe Island half an hour is repeated, which makes one hour of ninety minutes.
    TestEnvironment lordHowe({.zone = "Australia/Lord_Howe"});
    const Date again = lordHowe.at("2026-04-05T01:40:00") + TimeInterval(1800);
    EXPECT_EQ(lordHowe.text(again), "2026-04-05T01:40:00");
    EXPECT_EQ(beginningOfHour(again), lordHowe.at("2026-04-05T01:00:00"));
    EXPECT_EQ(endOfHour(again), again + TimeInterval(19 * 60 + 59));
}

TEST_F(Parts, BearAnyDate) {
    for (const double number : {1e18, -1e18, 1e300, -std::numeric_limits<double>::infinity(), std::nan("")}) {
        const Date date = Date::sinceReference(number);
        for (auto* operation : {beginningOfYear, endOfYear, beginningOfMonth, endOfMonth, beginningOfWeek, endOfWeek,
                                beginningOfDay, endOfDay, beginningOfHour, endOfMinute}) {
            (void)operation(date);
        }
        (void)changeWithWeekday(date, 7);
    }
}

TEST(Duration, SecondsOfUnits) {
    TestEnvironment environment;
    const std::pair<Duration, double> cases[] = {
        {Duration::years(-2), -63113904},
        {Duration::month(), 2592000},
        {Duration::months(2), 5184000},
        {Duration::weeks(2), 1209600},
        {Duration::days(3), 259200},
        {Duration::hours(2), 7200},
        {Duration::minutes(2), 120},
        {Duration::seconds(2), 2},
        {{1, Unit::quarter}, 7889238},
        {{2, Unit::weekday}, 172800},
        {{1, Unit::weekdayOrdinal}, 86400},
        {{1, Unit::weekOfMonth}, 604800},
        {{1, Unit::yearForWeekOfYear}, 31556952},
        {{5, Unit::nanosecond}, 5e-9},
    };
    for (const auto& [duration, seconds] : cases) {
        EXPECT_DOUBLE_EQ(duration.interval().seconds(), seconds) << static_cast<std::uint64_t>(duration.unit());
    }
    EXPECT_EQ(Duration::week().unit(), Unit::weekOfYear);
    EXPECT_TRUE(environment.log->errors().empty());
    const Duration unknown(3, Unit::week);
    EXPECT_EQ(unknown.interval().seconds(), 0);
    EXPECT_EQ(unknown.interval().seconds(), 0);
    EXPECT_EQ(environment.log->errors(),
              std::vector<std::string>{"warn: .interval for NSCalendarUnit(256) can't be determined. Returning 0."})
        << "computed once";
}

TEST(Duration, MovesDatesOnItsCalendar) {
    TestEnvironment environment({.zone = "Europe/Berlin", .now = "2026-03-31T02:30:00"});
    const Duration month = Duration::month(), day = Duration::day(), week = Duration::weeks(2);
    EXPECT_EQ(environment.text(month.fromNow()), "2026-04-30T02:30:00");
    EXPECT_EQ(environment.text(month.ago()), "2026-02-28T02:30:00");
    EXPECT_EQ(environment.text(week.dateEarlier(environment.at("2026-04-05T12:00:00"))), "2026-03-22T12:00:00");
    EXPECT_EQ(environment.text(day.dateLater(environment.at("2026-03-28T02:30:00"))), "2026-03-29T03:30:00");
    environment->setTimeZone(TimeZone::utc());
    EXPECT_EQ(day.calendar().timeZone().name(), "Europe/Berlin") << "the calendar of when it was built";
    EXPECT_DEATH((void)Duration::years(INT64_MIN).ago(), "cannot add");
}

}  // namespace
}  // namespace dayward
