#include "Classes/Other/Date/HHEventDateFormat.h"

#include <gtest/gtest.h>

#include "platform/KeyedArchiver.h"
#include "platform/KeyedUnarchiver.h"
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
        {kDay, TextStyle::full, "2026-03-10T15:20:00", "3 Hours"},
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

/// Writes whatever keys a test wants under the class's name.
class Forged final : public Archivable {
public:
    explicit Forged(Dictionary keys) : keys_(std::move(keys)) {}
    std::vector<std::string> archiveClassNames() const override { return {HHEventDateFormat::kClassName}; }
    void encodeWithCoder(KeyedArchiver& coder) const override {
        for (const auto& [key, value] : keys_) {
            if (std::holds_alternative<std::int64_t>(value.value()))
                coder.encodeInteger(*value.integer(), key);
            else
                coder.encodeObject(value, key);
        }
    }

private:
    Dictionary keys_;
};

std::shared_ptr<HHEventDateFormat> readForged(Dictionary keys) {
    ArchiveClasses classes;
    registerDateFormatClasses(classes);
    const auto data = KeyedArchiver::archivedDataWithRootObject(std::make_shared<Forged>(std::move(keys)));
    const auto root = KeyedUnarchiver::unarchiveObjectWithData(data, classes);
    return root ? root->as<HHEventDateFormat>() : nullptr;
}

TEST(HHEventDateFormat, ReadsWhatItWrites) {
    ArchiveClasses classes;
    registerDateFormatClasses(classes);
    const HHEventDateFormat format(kYear | CalendarUnit::week, TextStyle::short_);
    const auto data = KeyedArchiver::archivedDataWithRootObject(std::make_shared<HHEventDateFormat>(format));
    const auto root = KeyedUnarchiver::unarchiveObjectWithData(data, classes);
    ASSERT_TRUE(root);
    const auto read = root->as<HHEventDateFormat>();
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
        {"negative limit", {{"Units", 16 + 32}, {"MaxUnits", -1}}, kDay | kHour, TextStyle::full},
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
