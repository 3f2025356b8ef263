#include "Classes/Interface/Detail/EventDetailUnits.h"

#include <gtest/gtest.h>

#include "Classes/Other/Date/HHDateHelper.h"
#include "support/TestEnvironment.h"

namespace dayward {
namespace {

TEST(DetailUnits, EachSetUnitTellsTheWholeDistance) {
    TestEnvironment environment;
    const XDIDateInterval detail =
        HHDateHelper::detailDateIntervalFromDate(environment->now(), environment->now() + TimeInterval(86400 * 365 + 0.9));
    const std::vector<DetailUnitRow> rows{{"Years", "1.00"},    {"Months", "12.00"},   {"Weeks", "52.14"},
                                          {"Days", "365.00"},   {"Hours", "8,760.00"}, {"Minutes", "525,600.00"},
                                          {"Seconds", "31,536,000"}};
    EXPECT_EQ(detailUnitRows(detail), rows);
}

TEST(DetailUnits, UnsetUnitsAreLeftOutAndZeroIsSet) {
    TestEnvironment::Options options;
    options.locale = "ru_RU";
    TestEnvironment environment(options);
    EXPECT_TRUE(detailUnitRows({}).empty());
    XDIDateInterval days;
    days.setValue(0, CalendarUnit::day);
    EXPECT_EQ(detailUnitRows(days), (std::vector<DetailUnitRow>{{"Дни", "0,00"}}));
}

}  // namespace
}  // namespace dayward
