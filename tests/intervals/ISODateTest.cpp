#include "intervals/ISODate.h"

#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

#include "support/TestEnvironment.h"

namespace dayward {
namespace {

Calendar calendarOf(const char* zone) { return Calendar(*TimeZone::named(zone)); }

TEST(ISODate, ReadsLocalTimesAndOffsets) {
    TestEnvironment environment({.zone = "Europe/Moscow"});
    struct Case {
        const char* text;
        double since1970;
    };
    for (const auto& [text, since1970] : {
             Case{"1970-01-01", -3 * 3600.0},
             {"1970-01-01T00:00:00", -3 * 3600.0},
             {"1970-01-01 00:00", -3 * 3600.0},
             {"1970-01-01T00:00:00Z", 0},
             {"1970-01-01T05:30:00.25+05:30", 0.25},
             {"1970-01-01T00:00:30-00:00:30", 60},
             {"2024-02-29T12:00:00+0000", 1709208000},
             {"+12345-01-01T00:00:00Z", 327403382400.0},
             {"-0001-01-01T00:00:00Z", -62198755200.0},
         }) {
        const auto date = dateFromISOText(text);
        ASSERT_TRUE(date) << text;
        EXPECT_EQ(date->secondsSince1970(), since1970) << text;
    }
}

TEST(ISODate, RefusesWhatIsNoDate) {
    TestEnvironment environment;
    std::istringstream texts(
        "|2024|2024-13-01|2024-00-10|2023-02-29|2024-01-32|24-01-01|2024-1-1|2024-01-01T|2024-01-01T24:00|2024-01-"
        "01T10|"
        "2024-01-01T10:60|2024-01-01T10:00:60|2024-01-01T10:00:00.|2024-01-01T10:00:00+|2024-01-01T10:00:00+24:00|"
        "2024-01-01T10:00:00Zx|2024-01-01T10:00:00 | "
        "2024-01-01|2024-01-01x10:00|+1234567-01-01|tomorrow|２０２４-01-01");
    for (std::string text; std::getline(texts, text, '|');) {
        EXPECT_FALSE(dateFromISOText(text)) << text;
    }
}

TEST(ISODate, WritesTheLocalTimeWithItsOffset) {
    struct Case {
        const char* zone;
        double since1970;
        const char* text;
    };
    for (const auto& [zone, since1970, text] : {
             Case{"UTC", 0, "1970-01-01T00:00:00+00:00"},
             {"Asia/Kolkata", 0.9, "1970-01-01T05:30:00+05:30"},
             {"America/St_Johns", 1720000000, "2024-07-03T07:16:40-02:30"},
             {"Europe/Moscow", -2000000000, "1906-08-16T22:56:57+02:30:17"},
             {"UTC", 327403382400.0, "+12345-01-01T00:00:00+00:00"},
             {"UTC", -62198755200.0, "-0001-01-01T00:00:00+00:00"},
         }) {
        const auto date = Date::since1970(since1970);
        const auto calendar = calendarOf(zone);
        EXPECT_EQ(isoText(date, calendar), text) << zone;
        const auto back = dateFromISOText(text, Calendar(TimeZone::utc()));
        ASSERT_TRUE(back) << text;
        EXPECT_EQ(back->secondsSince1970(), std::floor(since1970)) << text;
    }
}

}  // namespace
}  // namespace dayward
