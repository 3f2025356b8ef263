#include "Classes/Other/Date/HHEventDateFormat.h"

#include <gtest/gtest.h>

#include "platform/KeyedArchiver.h"
#include "platform/KeyedUnarchiver.h"
#include "support/RawRecord.h"
#include "support/TestEnvironment.h"

namespace dayward {
namespace {

constexpr auto kYear = CalendarUnit::year;
constexpr auto kMonth = CalendarUnit::month;
constexpr auto kDay = CalendarUnit::day;
constexpr auto kHour = CalendarUnit::hour;
constexpr auto kMinute = CalendarUnit::minute;

TEST(HHEventDateFormat, CountsDownInItsUnitsAndWords) {
    const TestEnvironment environment;  // 2026-03-10 12:00
    struct Case {
        CalendarUnits units;
        TextStyle style;
        const char* date;
        const char* text;
    };
    const Case cases[] = {
        {kDay, TextStyle::full, "2026-03-12T12:00:00", "2 Days"},
        {kDay, TextStyle::full, "2026-03-11T23:59:59", "1 Day"},
        {kDay, TextStyle::full, "2026-03-12T00:00:00", "2 Days"},
        {kDay, TextStyle::symbol, "2026-03-08T12:00:00", "-2D"},
        {kDay | kHour, TextStyle::short_, "2026-03-12T15:00:00", "2 Days 3 Hrs"},
        {kYear | kMonth | kDay, TextStyle::number, "2027-05-11T12:00:00", "1 2 1"},
        {kMinute, TextStyle::full, "2026-03-10T12:00:30", "30 Seconds"},
        {CalendarUnit::week, TextStyle::full, "2026-03-24T12:00:00", "2 Weeks"},
    };
    for (const auto& each : cases)
        EXPECT_EQ(HHEventDateFormat(each.units, each.style).countdownToDate(environment.at(each.date)), each.text)
            << each.date;
    EXPECT_EQ(HHEventDateFormat().countdownToDate(std::nullopt), std::nullopt);
}

std::shared_ptr<HHEventDateFormat> readBack(const std::shared_ptr<Archivable>& record) {
    ArchiveClasses classes;
    registerDateFormatClasses(classes);
    const auto root =
        KeyedUnarchiver::unarchiveObjectWithData(KeyedArchiver::archivedDataWithRootObject(record), classes);
    return root ? root->as<HHEventDateFormat>() : nullptr;
}

std::shared_ptr<HHEventDateFormat> readForged(Dictionary keys) {
    return readBack(std::make_shared<RawRecord>(HHEventDateFormat::kClassName, std::move(keys)));
}

TEST(HHEventDateFormat, ReadsWhatItWrites) {
    const HHEventDateFormat format(kYear | CalendarUnit::week, TextStyle::short_);
    const auto read = readBack(std::make_shared<HHEventDateFormat>(format));
    ASSERT_NE(read, nullptr);
    EXPECT_EQ(*read, format);
}

TEST(HHEventDateFormat, ReadsOldForeignAndDamagedKeys) {
    struct Case {
        const char* name;
        Dictionary keys;
        CalendarUnits units;
        TextStyle style;
    };
    const auto allUnits = CalendarUnits::fromMask(4 + 8 + 8192 + 16 + 32 + 64 + 128);
    const Case cases[] = {
        {"no keys", {}, kDay, TextStyle::full},
        {"any version", {{"HHEventDateFormat", 7}, {"Units", 32}, {"UnitsFormatType", 1}}, kHour, TextStyle::symbol},
        {"mistyped", {{"Units", "days"}, {"UnitsFormatType", Array{}}}, kDay, TextStyle::full},
        {"no unit at all", {{"Units", 0}, {"UnitsFormatType", 0}}, CalendarUnits(), TextStyle::number},
        {"limit 1", {{"Units", 4 + 16 + 64}, {"MaxUnits", 1}}, kYear, TextStyle::full},
        {"limit 2 of gaps", {{"Units", 16 + 64 + 128}, {"MaxUnits", 2}}, kDay | kMinute, TextStyle::full},
        {"limit above", {{"Units", 4 + 8 + 8192 + 16 + 32 + 64 + 128}, {"MaxUnits", 99}}, allUnits, TextStyle::full},
        {"limit knows the newer week only",
         {{"Units", 256 + 8192 + 16}, {"MaxUnits", 2}},
         CalendarUnits(CalendarUnit::weekOfYear) | kDay,
         TextStyle::full},
        {"no limit", {{"Units", 256 + 16}, {"MaxUnits", 0}}, CalendarUnits(CalendarUnit::week) | kDay, TextStyle::full},
    };
    for (const auto& each : cases) {
        const auto read = readForged(each.keys);
        ASSERT_NE(read, nullptr) << each.name;
        EXPECT_EQ(read->units, each.units) << each.name;
        EXPECT_EQ(read->textStyle, each.style) << each.name;
    }
}

TEST(HHEventDateFormat, CorruptNumbersStopTheProcess) {
    EXPECT_DEATH((void)readForged({{"Units", -1}}), "\"Units\" is negative");
    EXPECT_DEATH((void)readForged({{"UnitsFormatType", 4}}), "no text style");
    EXPECT_DEATH((void)readForged({{"UnitsFormatType", -1}}), "no text style");
}

}  // namespace
}  // namespace dayward
