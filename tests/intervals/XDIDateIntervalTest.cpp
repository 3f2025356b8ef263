// The interval values and their archives, distances on the snapshot calendar, and times of day.
#include "intervals/XDIDateInterval.h"

#include <gtest/gtest.h>

#include <limits>

#include "intervals/IntervalClasses.h"
#include "intervals/XDIHelper.h"
#include "intervals/XDIUnitInterval.h"
#include "intervals/XELDateTime.h"
#include "platform/ArchiveDump.h"
#include "platform/KeyedArchiver.h"
#include "platform/KeyedUnarchiver.h"
#include "support/RawRecord.h"
#include "support/TestEnvironment.h"

namespace dayward {
namespace {

using Unit = CalendarUnit;

XDIDateInterval interval(std::initializer_list<std::pair<Unit, double>> fields) {
    XDIDateInterval result;
    for (const auto& [unit, value] : fields) result.setValue(value, unit);
    return result;
}

TEST(XDIDateInterval, ZeroIsSetAndEqualsAnEmptyInterval) {
    const XDIDateInterval empty, zeroDays(Unit::day, 0);
    EXPECT_FALSE(empty.isSet());
    EXPECT_EQ(static_cast<std::uint64_t>(empty.getSingleUnit()), 0U);
    EXPECT_EQ(empty.getSingleValue(), 0.0);
    EXPECT_EQ(empty.valueForUnit(Unit::day), XDIDateInterval::kUnset);
    EXPECT_TRUE(zeroDays.isSet());
    EXPECT_EQ(zeroDays.getSingleUnit(), Unit::day);
    EXPECT_EQ(zeroDays, empty);
}

TEST(XDIDateInterval, FieldsByUnit) {
    XDIDateInterval several = interval({{Unit::day, 2}, {Unit::week, 1}, {Unit::second, 5}});
    EXPECT_EQ(several.getSingleUnit(), Unit::week) << "week before day";
    EXPECT_EQ(several.getSingleValue(), 1);
    EXPECT_EQ(several.getUnits().mask(), 256U + 16 + 128);
    for (const Unit other : {Unit::weekOfYear, Unit::weekday, Unit::era, static_cast<Unit>(0), static_cast<Unit>(48)}) {
        several.setValue(9, other);
        EXPECT_EQ(several.valueForUnit(other), 0.0);
    }
    EXPECT_EQ(several, interval({{Unit::day, 2}, {Unit::week, 1}, {Unit::second, 5}}));
}

TEST(XDIDateInterval, ComparesFieldByField) {
    const std::pair<XDIDateInterval, XDIDateInterval> lowerAndGreater[] = {
        {XDIDateInterval(Unit::day, 45), XDIDateInterval(Unit::month, 1)},
        {XDIDateInterval(), XDIDateInterval(Unit::second, 1)},
        {XDIDateInterval(Unit::day, -1), XDIDateInterval()},
        {interval({{Unit::year, 1}, {Unit::day, 5}}), interval({{Unit::year, 1}, {Unit::month, 0}, {Unit::day, 6}})},
        {XDIDateInterval(Unit::day, 1), XDIDateInterval(Unit::day, 1.5)},
    };
    for (const auto& [lower, greater] : lowerAndGreater) {
        EXPECT_TRUE(lower.compare(greater) < 0);
        EXPECT_TRUE(greater.compare(lower) > 0);
        EXPECT_FALSE(lower == greater);
    }
}

TEST(XDIDateInterval, LengthAndComponents) {
    EXPECT_EQ(interval({{Unit::year, 1}, {Unit::month, 1}}).timeInterval().seconds(), 31556926 + 2629743.83);
    EXPECT_EQ(interval({{Unit::week, 1}, {Unit::day, 1}, {Unit::hour, 1}, {Unit::minute, 1}, {Unit::second, 0.5}})
                  .timeInterval()
                  .seconds(),
              604800 + 86400 + 3600 + 60 + 0.5);
    EXPECT_EQ(XDIDateInterval().timeInterval().seconds(), 0);

    const DateComponents half =
        interval({{Unit::day, 3}, {Unit::hour, -5}, {Unit::week, 0}}).dateComponentsWithMultiplier(0.5);
    EXPECT_EQ(half.day, 1);
    EXPECT_EQ(half.hour, -2);
    EXPECT_EQ(half.week, 0);
    EXPECT_FALSE(half.month);
    DateComponents components;
    components.week = 3;
    components.weekOfYear = 4;
    EXPECT_EQ(XDIDateInterval(components).getUnits().mask(), 256U);
    EXPECT_EQ(XDIDateInterval(components).dateComponents().week, 3);
    const DateComponents extreme = XDIDateInterval(Unit::day, 1e300).dateComponentsWithMultiplier(-1e300);
    EXPECT_EQ(extreme.day, INT64_MIN);
    EXPECT_EQ(XDIDateInterval(Unit::day, std::nan("")).dateComponents().day, 0);
}

class IntervalArchive : public ::testing::Test {
protected:
    IntervalArchive() { registerIntervalClasses(classes); }

    template <class T>
    std::shared_ptr<T> readBack(const Object& root) {
        const auto object =
            KeyedUnarchiver::unarchiveObjectWithData(KeyedArchiver::archivedDataWithRootObject(root), classes);
        return object ? object->as<T>() : nullptr;
    }
    std::shared_ptr<XDIDateInterval> readRaw(Dictionary values) {
        return readBack<XDIDateInterval>(std::make_shared<RawRecord>("XDIDateInterval", std::move(values)));
    }

    ArchiveClasses classes;
};

TEST_F(IntervalArchive, KeepsWhatIsSetAndTruncates) {
    const auto original = std::make_shared<XDIDateInterval>(
        interval({{Unit::day, 1.5}, {Unit::hour, -2.9}, {Unit::second, 0}, {Unit::year, 3}}));
    const auto back = readBack<XDIDateInterval>(original);
    ASSERT_TRUE(back);
    EXPECT_EQ(back->day, 1);
    EXPECT_EQ(back->hour, -2);
    EXPECT_EQ(back->second, 0);
    EXPECT_EQ(back->getUnits(), original->getUnits());
    EXPECT_TRUE(back->isEqual(interval({{Unit::year, 3}, {Unit::day, 1}, {Unit::hour, -2}})));
    EXPECT_FALSE(back->isEqual(XDIUnitInterval(Unit::day, 1)));

    const auto text = archiveAsJSON(KeyedArchiver::archivedDataWithRootObject(original));
    ASSERT_TRUE(text);
    std::size_t position = 0;
    for (const char* key : {"\"XDIDateInterval\": 0", "\"Year\": 3", "\"Day\": 1", "\"Hour\": -2", "\"Second\": 0"}) {
        const std::size_t found = text->find(key, position);
        ASSERT_NE(found, std::string::npos) << key << " in its place in\n" << *text;
        position = found;
    }
    EXPECT_EQ(text->find("Month"), std::string::npos);
}

TEST_F(IntervalArchive, ReadsForeignArchives) {
    EXPECT_TRUE(readRaw({{"XDIDateInterval", 0}, {"Day", 3}}));
    EXPECT_FALSE(readRaw({{"XDIDateInterval", 1}, {"Day", 3}})) << "another version";
    EXPECT_FALSE(readRaw({{"XDIDateInterval", -1}}));
    const auto withoutVersion = readRaw({{"Week", 2}});
    ASSERT_TRUE(withoutVersion);
    EXPECT_EQ(*withoutVersion, XDIDateInterval(Unit::week, 2));
    const auto mistyped = readRaw({{"XDIDateInterval", 0}, {"Day", "three"}, {"Year", Object(Array{})}, {"Hour", 4}});
    ASSERT_TRUE(mistyped);
    EXPECT_EQ(mistyped->getUnits(), Unit::hour);
    const auto extreme = readRaw({{"Day", INT64_MIN}});
    ASSERT_TRUE(extreme);
    EXPECT_EQ(extreme->day, -0x1p63);
}

TEST_F(IntervalArchive, UnitIntervals) {
    const auto back = readBack<XDIUnitInterval>(std::make_shared<XDIUnitInterval>(Unit::week, -2.9));
    ASSERT_TRUE(back);
    EXPECT_EQ(*back, XDIUnitInterval(Unit::week, -2));
    const auto raw = [&](Dictionary values) {
        return readBack<XDIUnitInterval>(std::make_shared<RawRecord>("XDIUnitInterval", std::move(values)));
    };
    EXPECT_FALSE(raw({{"XDIUnitInterval", 2}, {"unit", 16}, {"value", 1}}));
    const auto empty = raw({{"XDIUnitInterval", 0}});
    ASSERT_TRUE(empty);
    EXPECT_EQ(*empty, XDIUnitInterval(static_cast<Unit>(0), 0));
}

TEST(XDIHelper, DistancesAndFieldDifferences) {
    TestEnvironment environment({.zone = "Europe/Berlin"});
    const Date from = environment.at("2025-11-30T22:00:00"), to = environment.at("2026-01-31T23:30:00");
    EXPECT_FALSE(XDIHelper::dateIntervalFromDate(std::nullopt, to, Unit::day));
    EXPECT_FALSE(XDIHelper::detailDateIntervalFromDate(from, std::nullopt));
    const auto distance = XDIHelper::dateIntervalFromDate(from, to, Unit::month | Unit::day | Unit::minute);
    ASSERT_TRUE(distance);
    EXPECT_EQ(*distance, interval({{Unit::month, 2}, {Unit::day, 1}, {Unit::minute, 90}}));
    EXPECT_EQ(distance->getUnits(), Unit::month | Unit::day | Unit::minute);
    EXPECT_EQ(XDIHelper::countUnits(Unit::month, from, to), -10) << "a difference of fields, not a length";
    EXPECT_EQ(XDIHelper::countUnits(Unit::timeZone, from, to), 0);
}

TEST(XDIHelper, DetailTellsTheWholeDistanceInEachUnit) {
    TestEnvironment environment;
    const auto detail = XDIHelper::detailDateIntervalFromDate(
        environment.at("2024-01-01"), environment.at("2025-02-16T12:00:00") + TimeInterval(0.75));
    ASSERT_TRUE(detail);
    EXPECT_EQ(detail->second, 412.5 * 86400);
    EXPECT_EQ(detail->minute, 412.5 * 1440);
    EXPECT_EQ(detail->hour, 412.5 * 24);
    EXPECT_EQ(detail->day, 412.5);
    EXPECT_EQ(detail->week, 412.5 / 7);
    EXPECT_EQ(detail->month, 13 + 15 / 30.0);
    EXPECT_EQ(detail->year, 1 + 46 / 365.0);
    const auto past =
        XDIHelper::detailDateIntervalFromDate(environment.at("2026-01-01T00:00:00.5"), environment.at("2026-01-01"));
    EXPECT_EQ(past->second, -1) << "rounded down, also in the past";
}

TEST(XDIHelper, KeepsTheCalendarOfItsFirstUse) {
    TestEnvironment first({.zone = "Europe/Berlin"});
    EXPECT_EQ(XDIHelper::calendar().timeZone().name(), "Europe/Berlin");
    EXPECT_EQ(timeAsMinutes(first.at("2026-07-01T09:05:59")), 545);
    first->setTimeZone(*TimeZone::named("Asia/Tokyo"));
    EXPECT_EQ(XDIHelper::calendar().timeZone().name(), "Europe/Berlin");
    EXPECT_EQ(implCalendar().timeZone().name(), "Europe/Berlin");
    TestEnvironment second({.zone = "Asia/Kathmandu"});
    EXPECT_EQ(XDIHelper::calendar().timeZone().name(), "Asia/Kathmandu") << "each environment has its own";
    EXPECT_EQ(implCalendar().timeZone().name(), "Asia/Kathmandu");
}

TEST(XELDateTime, TimesOfDay) {
    TestEnvironment environment({.zone = "America/New_York"});
    const Date date = environment.at("2026-03-08T18:20:59");
    struct Case {
        std::int64_t minutes;
        const char* local;
    };
    for (const Case& c :
         {Case{0, "2026-03-08T00:00:00"}, Case{545, "2026-03-08T09:05:00"}, Case{1440, "2026-03-09T00:00:00"},
          Case{-61, "2026-03-07T22:59:00"}, Case{150, "2026-03-08T03:30:00"}}) {
        EXPECT_EQ(environment.text(dateWithTimesAsMinutes(date, c.minutes)), c.local) << c.minutes;
    }
    for (const std::int64_t minutes : {0, 1, 545, 1439})
        EXPECT_EQ(timeAsMinutes(dateWithTimeAsMinutes(minutes)), minutes);
    for (const std::int64_t minutes : {INT64_MAX, INT64_MIN}) {
        EXPECT_EQ(dateWithTimesAsMinutes(date, minutes), date) << "beyond any date";
    }
}

}  // namespace
}  // namespace dayward
