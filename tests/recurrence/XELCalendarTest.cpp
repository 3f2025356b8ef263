#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "intervals/IntervalClasses.h"
#include "platform/KeyedArchiver.h"
#include "platform/KeyedUnarchiver.h"
#include "recurrence/RecurrenceClasses.h"
#include "recurrence/XELCalendarAnniversary.h"
#include "recurrence/XELCalendarCustom.h"
#include "recurrence/XELCalendarStandard.h"
#include "recurrence/XELDateInterval.h"
#include "recurrence/XELUpdater.h"
#include "support/TestEnvironment.h"
#include "support/TestPaths.h"

namespace dayward {
namespace {

class XELCalendarTest : public ::testing::Test {
protected:
    XELCalendarTest() {
        registerIntervalClasses(classes_);
        registerRecurrenceClasses(classes_);
    }

    [[nodiscard]] Object readStored(const std::string& name) const {
        std::ifstream file(testData() + "/recurrence/" + name, std::ios::binary);
        const Data data((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
        return KeyedUnarchiver::unarchiveObjectWithData(data, classes_).value_or(Object());
    }

    [[nodiscard]] Date at(const char* time) const { return environment_.at(time); }

    TestEnvironment environment_;
    ArchiveClasses classes_;
};

TEST_F(XELCalendarTest, ReadsAndConvertsStoredCalendars) {
    const std::pair<const char*, const char*> cases[] = {
        {"standard.plist", "FREQ=WEEKLY;INTERVAL=2;BYDAY=TU"},
        {"event-standard.plist", "FREQ=MONTHLY;INTERVAL=3"},
        {"custom.plist", "FREQ=YEARLY;INTERVAL=1;BYDAY=1MO,1FR,2MO,2FR;BYMONTH=6,12"},
        {"anniversary.plist", "FREQ=YEARLY;INTERVAL=1"},
    };
    for (const auto& [name, rule] : cases) {
        const auto calendar = readStored(name).as<XELCalendarBase>();
        ASSERT_TRUE(calendar) << name;
        EXPECT_EQ(calendar->date(), at("2014-05-05"));
        EXPECT_EQ(calendar->times(), (XELCalendarBase::Numbers{540, 1080}));
        EXPECT_EQ(XELUpdater::rruleFromCalendar(calendar.get()), rule);
        const Data written = KeyedArchiver::archivedDataWithRootObject(calendar);
        const auto again = KeyedUnarchiver::unarchiveObjectWithData(written, classes_).value().as<XELCalendarBase>();
        ASSERT_TRUE(again) << name;
        EXPECT_EQ(again->archiveClassNames(), calendar->archiveClassNames());
        EXPECT_EQ(XELUpdater::rruleFromCalendar(again.get()), rule);
    }
    EXPECT_TRUE(readStored("event-standard.plist").as<HHEventCalendarStandard>());
    EXPECT_TRUE(std::dynamic_pointer_cast<HHDateInterval>(
        readStored("standard.plist").as<XELCalendarStandard>()->repeatInterval()));
}

TEST_F(XELCalendarTest, RefusesAForeignVersionAndPassesOverMistypedKeys) {
    EXPECT_FALSE(readStored("bad-version.plist").record());
    const auto mistyped = readStored("bad-types.plist").as<XELCalendarStandard>();
    ASSERT_TRUE(mistyped);
    EXPECT_EQ(mistyped->date(), std::nullopt);
    EXPECT_EQ(mistyped->times(), XELCalendarBase::Numbers{540});
    EXPECT_EQ(mistyped->nextDateFromDate(at("2026-01-01")), std::nullopt);
    EXPECT_EQ(XELUpdater::rruleFromCalendar(mistyped.get()), "FREQ=NO;INTERVAL=0");
}

TEST_F(XELCalendarTest, ConvertsCustomListsByWhatTheyHold) {
    using Numbers = XELCalendarBase::Numbers;
    const Numbers some = {2};
    const struct {
        XELCalendarCustom::Lists lists;
        const char* rule;
    } cases[] = {
        {{{}, some, {}, some, some}, "FREQ=YEARLY;INTERVAL=1;BYDAY=2MO;BYMONTH=2"},
        {{{}, {}, {}, some, some}, "FREQ=MONTHLY;INTERVAL=1;BYDAY=2MO"},
        {{{}, some, some, some, {}}, "FREQ=YEARLY;INTERVAL=1;BYDAY=MO;BYMONTHDAY=2;BYMONTH=2"},
        {{{}, {}, some, some, {}}, "FREQ=MONTHLY;INTERVAL=1;BYDAY=MO;BYMONTHDAY=2"},
        {{{}, some, {}, some, {}}, "FREQ=WEEKLY;INTERVAL=1;BYDAY=MO;BYMONTH=2"},
        {{{}, some, some, {}, {}}, "FREQ=YEARLY;INTERVAL=1;BYMONTHDAY=2;BYMONTH=2"},
        {{{}, {}, some, {}, {}}, "FREQ=MONTHLY;INTERVAL=1;BYMONTHDAY=2"},
        {{{}, some, {}, {}, {}}, "FREQ=DAILY;INTERVAL=1;BYMONTH=2"},
        {{some, {}, {}, {}, some}, "FREQ=NO;INTERVAL=1"},
    };
    for (const auto& c : cases) {
        XELCalendarCustom calendar;
        calendar.setLists(c.lists);
        EXPECT_EQ(XELUpdater::rruleFromCalendar(&calendar), c.rule);
    }
    EXPECT_EQ(XELUpdater::rruleFromCalendar(nullptr), "FREQ=NO;INTERVAL=1");
    const XDIDateInterval hours(CalendarUnit::hour, 36.9);
    EXPECT_EQ(XELUpdater::rruleFromDateInterval(&hours), "FREQ=HOURLY;INTERVAL=36");
}

TEST_F(XELCalendarTest, GivesUpAfterAThousandPeriods) {
    const auto never = readStored("standard.plist").as<XELCalendarStandard>();  // two weeks from a Monday, on Tuesdays
    EXPECT_EQ(never->nextDateFromDate(at("2026-01-01")), std::nullopt);
    EXPECT_EQ(never->previousDateToDate(at("2026-01-01")), std::nullopt);
    never->setDaysOfWeek(XELCalendarBase::Numbers{2});
    EXPECT_EQ(never->nextDateFromDate(at("2026-01-01")), at("2026-01-12T09:00:00"));
    XELCalendarCustom rare(at("2000-01-01"), {0});
    rare.setLists({std::nullopt, XELCalendarBase::Numbers{2}, std::nullopt, std::nullopt, std::nullopt});
    EXPECT_EQ(rare.nextDateFromDate(at("2026-03-01")), at("2027-02-01"));
    EXPECT_EQ(rare.previousDateToDate(at("2026-03-01")), at("2026-02-28"));
}

TEST_F(XELCalendarTest, AnswersTheSameWithAndWithoutWhatItKeeps) {
    XELCalendarStandard kept(at("2024-02-29"), {540, 1080});
    kept.setRepeatInterval(std::make_shared<XDIDateInterval>(CalendarUnit::day, 3));
    kept.setDaysOfWeek(XELCalendarBase::Numbers{2, 4});
    for (int i = 0; i < 400; ++i) {
        const Date date = at("2024-01-01") + TimeInterval(i * 37 % 400 * 43200.0);
        XELCalendarStandard fresh(kept.date(), kept.times());
        fresh.setRepeatInterval(kept.repeatInterval());
        fresh.setDaysOfWeek(kept.daysOfWeek());
        EXPECT_EQ(kept.nextDateFromDate(date), fresh.nextDateFromDate(date)) << environment_.text(date);
        fresh.clearCache();
        EXPECT_EQ(kept.previousDateToDate(date), fresh.previousDateToDate(date)) << environment_.text(date);
        if (const auto next = kept.cacheNextDateFromDate(date)) {
            EXPECT_EQ(kept.nextDateFromDate(*next), next);
        }
    }
    EXPECT_TRUE(kept.cacheNextDateFromDate(*kept.nextDateFromDate(at("2024-06-01"))));
    kept.setTimes({600});
    EXPECT_EQ(kept.cacheNextDateFromDate(at("2024-06-01")), std::nullopt);
}

TEST_F(XELCalendarTest, RepeatsWithinItsBounds) {
    const XELRepeatDate monthly(at("2024-01-31"), CalendarUnit::month);
    EXPECT_EQ(monthly.nextDateAfter(at("2020-01-01")), at("2024-01-31"));
    EXPECT_EQ(monthly.nextDateAfter(at("2024-02-01")), at("2024-02-29"));
    EXPECT_EQ(monthly.nextDatesAfter(at("2024-01-31"), at("2024-04-30")).size(), 4U);
    EXPECT_TRUE(monthly.nextDatesAfter(at("2020-01-01"), at("2023-01-01")).empty());
    EXPECT_EQ(monthly.previosDateTo(at("2024-01-30")), std::nullopt);
    EXPECT_EQ(XELRepeatDate(at("2024-01-31"), CalendarUnit{}).nextDateAfter(at("2024-02-01")), std::nullopt);
    EXPECT_EQ(XELRepeatDate(at("2024-01-31"), CalendarUnit::day, 0).previosDateTo(at("2025-01-01")), at("2024-01-31"));
    const XELRepeatDate huge(at("2024-01-31"), CalendarUnit::year, UINT64_MAX);
    EXPECT_EQ(huge.nextDateAfter(at("2024-02-01")), std::nullopt);
    EXPECT_EQ(huge.periodToDate(Date::sinceReference(1e300)), 0);
}

}  // namespace
}  // namespace dayward
