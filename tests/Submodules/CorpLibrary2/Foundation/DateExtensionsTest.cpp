#include "Submodules/CorpLibrary2/Foundation/DateExtensions.h"

#include <gtest/gtest.h>

#include <limits>

#include "support/TestEnvironment.h"

namespace dayward {
namespace {

using Unit = CalendarUnit;

class DateExtensions : public ::testing::Test {
protected:
    Date at(const char* text) { return environment.at(text); }
    std::string text(Date date) { return environment.text(date); }

    TestEnvironment environment{{.zone = "Europe/Berlin", .locale = "de_DE", .now = "2026-03-10T12:45:00"}};
};

TEST_F(DateExtensions, BoundsOfPeriods) {
    struct Case {
        Date (*operation)(Date);
        const char* date;
        const char* expected;
    };
    const Case cases[] = {
        {dateAtStartOfDay, "2026-02-03T10:15:30", "2026-02-03T00:00:00"},
        {dateAtEndOfDay, "2026-02-03T10:15:30", "2026-02-03T23:59:59"},
        {dateAtStartOfWeek, "2026-04-01T10:15:30", "2026-03-30T00:00:00"},
        {dateAtEndOfWeek, "2026-02-03T10:15:30", "2026-02-07T10:15:30"},  // weekday 7, though weeks begin on Monday
        {dateAtEndOfWeek, "2026-04-01T10:15:30", "2026-04-02T10:15:30"},  // 5 days of April in this week: weekday 5
        {dateAtEndOfMonth, "2024-02-03T10:15:00", "2024-02-29T10:15:00"},
        {dateAtStartOfYear, "2026-02-03T10:15:00", "2026-01-01T10:15:00"},
        {dateAtEndOfYear, "2026-06-30T10:15:00", "2026-12-31T10:15:00"},
        {dateWithoutSecons, "2026-02-03T10:15:59.75", "2026-02-03T10:15:00"},
        {dateAtStartOfDay, "2026-03-29T10:15:30", "2026-03-29T00:00:00"},
    };
    for (const Case& c : cases) EXPECT_EQ(text(c.operation(at(c.date))), c.expected) << c.date;
}

TEST_F(DateExtensions, AdditionsByTheCalendarAndByTheClock) {
    const Date saturday = at("2026-03-28T12:00:00");  // the clocks go forward in the night
    EXPECT_EQ(text(dateByAddingDays(saturday, 1)), "2026-03-29T13:00:00") << "86400 seconds, not a day of the calendar";
    EXPECT_EQ(text(dateByAddingMonths(at("2026-01-31T08:00:00"), 1)), "2026-02-28T08:00:00");
    struct Case {
        Unit unit;
        std::int64_t value;
        const char* expected;
    };
    const Case cases[] = {
        {Unit::day, 1, "2026-03-29T12:00:00"},   {Unit::day, 4, "2026-04-01T12:00:00"},
        {Unit::week, 2, "2026-04-11T12:00:00"},  {Unit::month, -3, "2025-12-28T12:00:00"},
        {Unit::hour, 24, "2026-03-29T12:00:00"}, {Unit::second, -1, "2026-03-28T11:59:59"},
        {Unit::year, 2, "2028-03-28T12:00:00"},  {Unit::era, 5, "2026-03-28T12:00:00"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(text(dateByAddingValue(saturday, c.value, c.unit)), c.expected) << static_cast<std::uint64_t>(c.unit);
    }
    // Rolls over instead of keeping to the month.
    EXPECT_EQ(text(dateByAddingValue(at("2026-01-31T12:00:00"), 1, Unit::month)), "2026-03-03T12:00:00");
    EXPECT_EQ(text(dateBySetValue(saturday, 31, Unit::day)), "2026-03-31T12:00:00");
    EXPECT_EQ(text(dateBySetValue(saturday, 0, Unit::minute)), "2026-03-28T12:00:00");
    EXPECT_EQ(text(dateWithTimeFromDate(saturday, at("2020-01-01T23:01:02"))), "2026-03-28T23:01:02");
    for (const std::int64_t value : {INT64_MAX, INT64_MIN}) {
        EXPECT_EQ(dateByAddingYears(saturday, value), saturday);
        EXPECT_EQ(dateByAddingValue(saturday, value, Unit::week), saturday);
        EXPECT_EQ(dateBySetValue(saturday, value, Unit::year), saturday);
    }
}

TEST_F(DateExtensions, FieldsFollowTheZone) {
    const Date date = at("2026-02-24T10:15:30");  // the fourth Tuesday
    EXPECT_EQ(week(date), 9);
    EXPECT_EQ(weekday(date), 3);
    EXPECT_EQ(nthWeekday(date), 4);
    EXPECT_EQ(valueForUnit(date, Unit::weekOfYear), 9);
    EXPECT_EQ(nearestHour(date), 13) << "of now, 12:45";
    environment->setTimeZone(*TimeZone::named("Asia/Tokyo"));
    EXPECT_EQ(hour(date), 18);
}

TEST_F(DateExtensions, BearAnyDate) {
    for (const double number : {1e18, -1e18, 1e300, std::numeric_limits<double>::infinity(), std::nan("")}) {
        const Date date = Date::sinceReference(number);
        for (auto* operation :
             {dateAtStartOfDay, dateAtEndOfDay, dateAtStartOfWeek, dateAtEndOfWeek, dateAtStartOfMonth,
              dateAtEndOfMonth, dateAtStartOfYear, dateAtEndOfYear, dateWithoutSecons}) {
            (void)operation(date);
        }
        EXPECT_TRUE(month(date) >= 1 && month(date) <= 12);
        (void)longString(date);
    }
}

}  // namespace
}  // namespace dayward
