#include "Classes/Other/Date/EventDateText.h"

#include <gtest/gtest.h>

#include "support/TestEnvironment.h"

namespace dayward {
namespace {

TEST(EventDateText, ShowsTheChosenPartsThatTellSomething) {
    struct Case {
        const char* locale;
        const char* date;
        EventDateTextParts parts;
        const char* text;
    };
    const auto yearToDay = EventDateTextYear | EventDateTextMonth | EventDateTextWeekday | EventDateTextDay;
    const Case cases[] = {
        {"en_US", "2026-03-12T09:05:00", EventDateTextAll, "Thursday, March 12 at 9:05 AM"},
        {"en_US", "2027-03-12T09:05:00", EventDateTextAll, "Friday, March 12, 2027 at 9:05 AM"},
        {"en_US", "2026-03-12T00:00:00", EventDateTextAll, "Thursday, March 12"},
        {"en_US", "2026-03-12T00:01:00", EventDateTextTime, "12:01 AM"},
        {"en_US", "2026-03-12T09:05:00", yearToDay, "Thursday, March 12"},
        {"en_US", "2025-03-12T09:05:00", EventDateTextYear, "2025"},
        {"en_US", "2026-03-12T09:05:00", EventDateTextYear, ""},
        {"en_US", "2026-03-12T09:05:00", EventDateTextNone, ""},
        {"ru_RU", "2026-03-12T09:05:00", EventDateTextAll, "четверг, 12 марта в 09:05"},
        {"de_DE", "2026-03-12T09:05:00", yearToDay, "Donnerstag, 12. März"},
    };
    for (const auto& each : cases) {
        const TestEnvironment environment({.zone = "Europe/Berlin", .locale = each.locale});
        for (int round = 0; round < 2; ++round)
            EXPECT_EQ(EventDateText::textFromDate(environment.at(each.date), each.parts), each.text) << each.locale;
    }
}

TEST(EventDateText, KeptTextsFollowTheYearAndTheZone) {
    TestEnvironment environment({.now = "2026-12-31T23:59:59"});
    const auto date = environment.at("2027-01-02T10:00:00");
    const auto text = [&] { return EventDateText::textFromDate(date, EventDateTextAll); };
    EXPECT_EQ(text(), "Saturday, January 2, 2027 at 10:00 AM");
    environment.clock->set(environment.at("2027-01-01T00:00:00"));
    EXPECT_EQ(text(), "Saturday, January 2 at 10:00 AM");
    environment->setTimeZone(*TimeZone::named("Asia/Tokyo"));
    EXPECT_EQ(text(), "Saturday, January 2 at 7:00 PM");
    environment->setTimeZone(*TimeZone::named("America/New_York"));
    EXPECT_EQ(text(), "Saturday, January 2, 2027 at 5:00 AM") << "New York still has the old year";
}

TEST(EventDateText, TextsStayRightWhenMoreAreAskedForThanAreKept) {
    const TestEnvironment environment;
    const auto first = environment.at("2026-01-01T00:00:00");
    const auto check = [&](int day) {
        const auto date = first + TimeInterval(86400.0 * day);
        const auto expected = environment.text(date);
        const auto text = EventDateText::textFromDate(date, EventDateTextYear | EventDateTextDay);
        const int dayOfMonth = std::stoi(expected.substr(8, 2));
        EXPECT_EQ(std::stoi(text.substr(0, text.find(' '))) % 100, dayOfMonth % 100) << expected << " " << text;
    };
    for (int day = 0; day < 365; ++day) check(day);
    for (int second = 0; second < 3 * static_cast<int>(EventDateText::kMaximumTexts); ++second)
        ASSERT_EQ(EventDateText::textFromDate(first + TimeInterval(second), EventDateTextMonth), "January");
    for (int day = 0; day < 365; ++day) check(day);
}

}  // namespace
}  // namespace dayward
