#include "intervals/XIDLocaleName.h"

#include <gtest/gtest.h>

#include <limits>

#include "support/TestEnvironment.h"

namespace dayward {
namespace {

struct UnitForms {
    CalendarUnit unit;
    const char *one, *few, *many;
};

constexpr UnitForms kRussian[] = {
    {CalendarUnit::year, "год", "года", "лет"},
    {CalendarUnit::month, "месяц", "месяца", "месяцев"},
    {CalendarUnit::week, "неделя", "недели", "недель"},
    {CalendarUnit::day, "день", "дня", "дней"},
    {CalendarUnit::hour, "час", "часа", "часов"},
    {CalendarUnit::minute, "минута", "минуты", "минут"},
    {CalendarUnit::second, "секунда", "секунды", "секунд"},
};

const char* russianForm(const UnitForms& forms, int value) {
    const int lastTwo = value % 100;
    const int last = value % 10;
    if (lastTwo >= 11 && lastTwo <= 14) return forms.many;
    if (last == 1) return forms.one;
    return last >= 2 && last <= 4 ? forms.few : forms.many;
}

TEST(XIDLocaleName, RussianFormsFollowTheGrammar) {
    const TestEnvironment environment({.locale = "ru_RU"});
    for (const auto& forms : kRussian) {
        for (int value = 1; value <= 10010; ++value) {
            ASSERT_EQ(xidLocaleName(forms.unit, value, TextStyle::full), russianForm(forms, value)) << value;
        }
        EXPECT_EQ(xidLocaleName(forms.unit, -111, TextStyle::full), forms.many);
    }
    EXPECT_EQ(xidLocaleName(CalendarUnit::year, 111, TextStyle::short_), "л.");
    EXPECT_EQ(xidLocaleName(CalendarUnit::year, 22, TextStyle::short_), "г.");
    EXPECT_EQ(xidLocaleName(CalendarUnit::hour, 5, TextStyle::symbol), "ч");
}

TEST(XIDLocaleName, EnglishHasOneAndMany) {
    const TestEnvironment environment;
    const UnitForms english[] = {
        {CalendarUnit::year, "year", "", "years"},       {CalendarUnit::month, "month", "", "months"},
        {CalendarUnit::week, "week", "", "weeks"},       {CalendarUnit::day, "day", "", "days"},
        {CalendarUnit::hour, "hour", "", "hours"},       {CalendarUnit::minute, "minute", "", "minutes"},
        {CalendarUnit::second, "second", "", "seconds"},
    };
    for (const auto& forms : english) {
        for (const std::int64_t one : {1, -1}) EXPECT_EQ(xidLocaleName(forms.unit, one, TextStyle::full), forms.one);
        for (const std::int64_t many : {2, 5, 11, 21, 101, -2})
            EXPECT_EQ(xidLocaleName(forms.unit, many, TextStyle::full), forms.many);
    }
    EXPECT_EQ(xidLocaleName(CalendarUnit::hour, 1, TextStyle::short_), "hr");
    EXPECT_EQ(xidLocaleName(CalendarUnit::hour, 2, TextStyle::short_), "hrs");
    EXPECT_EQ(xidLocaleName(CalendarUnit::hour, 2, TextStyle::symbol), "h");
    EXPECT_EQ(xidLocaleName(CalendarUnit::day, std::numeric_limits<std::int64_t>::min(), TextStyle::full), "days");
}

TEST(XIDLocaleName, NothingForZeroForNumbersOnlyAndForOtherUnits) {
    const TestEnvironment environment;
    EXPECT_EQ(xidLocaleName(CalendarUnit::day, 0, TextStyle::full), std::nullopt);
    EXPECT_EQ(xidLocaleName(CalendarUnit::day, 1, TextStyle::number), std::nullopt);
    EXPECT_EQ(xidLocaleName(CalendarUnit::weekday, 1, TextStyle::full), std::nullopt);
    EXPECT_EQ(xidLocaleName(CalendarUnit::day, 2, static_cast<TextStyle>(7)), "days");
}

}  // namespace
}  // namespace dayward
