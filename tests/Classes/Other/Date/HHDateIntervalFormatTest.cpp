#include "Classes/Other/Date/HHDateIntervalFormat.h"

#include <gtest/gtest.h>

#include <array>

#include "Classes/Other/Date/HHDateLocalize.h"
#include "support/TestEnvironment.h"

namespace dayward {
namespace {

XDIDateInterval interval(std::initializer_list<std::pair<CalendarUnit, double>> fields) {
    XDIDateInterval result;
    for (const auto& [unit, value] : fields) result.setValue(value, unit);
    return result;
}

constexpr auto kYear = CalendarUnit::year;
constexpr auto kMonth = CalendarUnit::month;
constexpr auto kWeek = CalendarUnit::week;
constexpr auto kDay = CalendarUnit::day;
constexpr auto kHour = CalendarUnit::hour;
constexpr auto kMinute = CalendarUnit::minute;
constexpr auto kSecond = CalendarUnit::second;

TEST(HHDateIntervalFormat, WritesSetUnitsInEachStyle) {
    const auto sample = interval({{kYear, 1}, {kMonth, 0}, {kWeek, 2}, {kDay, 1}, {kHour, -3}, {kSecond, 0}});
    struct Case {
        const char* locale;
        TextStyle style;
        const char* text;
    };
    const Case cases[] = {
        {"en_US", TextStyle::number, "1, 2, 1, -3, 0"},
        {"en_US", TextStyle::symbol, "1Y, 2W, 1D, -3h, 0s"},
        {"en_US", TextStyle::short_, "1 Yr, 2 Wks, 1 Day, -3 Hrs, 0 Secs"},
        {"en_US", TextStyle::full, "1 Year, 2 Weeks, 1 Day, -3 Hours, 0 Seconds"},
        {"ru_RU", TextStyle::symbol, "1Г, 2Н, 1Д, -3ч, 0с"},
        {"ru_RU", TextStyle::full, "1 Год, 2 Недели, 1 День, -3 Часа, 0 Секунд"},
    };
    for (const auto& each : cases) {
        const TestEnvironment environment({.locale = each.locale});
        EXPECT_EQ(HHDateIntervalFormat(each.style, NumberStyle::whole).resultForDateInterval(sample), each.text)
            << each.locale;
    }
}

TEST(HHDateIntervalFormat, SecondsStayAtZeroAndOtherUnitsGo) {
    const TestEnvironment environment;
    const auto text = [](const XDIDateInterval& value) {
        return HHDateIntervalFormat::defaultResultForDateInterval(value);
    };
    EXPECT_EQ(text({}), "");
    EXPECT_EQ(text(interval({{kDay, 0}})), "");
    EXPECT_EQ(text(interval({{kDay, 0}, {kSecond, 0}})), "0 Seconds");
    EXPECT_EQ(text(interval({{kMinute, 1}, {kSecond, 0}})), "1 Minute, 0 Seconds");
}

TEST(HHDateLocalize, NamesUnitsByStyleAndNumber) {
    struct Case {
        const char* locale;
        CalendarUnit unit;
        double value;
        HHDateLocalize::Style style;
        const char* name;
    };
    using Style = HHDateLocalize::Style;
    const Case cases[] = {
        {"en_US", kMonth, 1, Style::full, "Month"},   {"en_US", kMonth, 1.5, Style::full, "Months"},
        {"en_US", kMonth, -1, Style::short_, "Mths"}, {"en_US", kMonth, 1, Style::symbol, "M"},
        {"ru_RU", kSecond, 1, Style::symbol, "с"},    {"ru_RU", kWeek, 3, Style::short_, "Нед"},
    };
    for (const auto& each : cases) {
        const TestEnvironment environment({.locale = each.locale});
        EXPECT_EQ(HHDateLocalize::nameForUnit(each.unit, each.value, each.style), each.name);
    }
    const TestEnvironment environment;
    EXPECT_DEATH((void)HHDateLocalize::nameForUnit(CalendarUnit::weekday, 1.0, Style::full), "no name for a unit");
    EXPECT_DEATH((void)HHDateLocalize::nameForUnit(kDay, 1.0, Style::unknown), "no name for a unit");
}

TEST(HHDateLocalize, RussianNamesFollowTheGrammar) {
    struct Case {
        CalendarUnit unit;
        HHDateLocalize::Style style;
        std::array<const char*, 3> forms;  ///< of 1, of 2 to 4, of 5 and more
    };
    using Style = HHDateLocalize::Style;
    const Case cases[] = {
        {kYear, Style::full, {"Год", "Года", "Лет"}},          {kYear, Style::short_, {"Год", "Года", "Лет"}},
        {kMonth, Style::full, {"Месяц", "Месяца", "Месяцев"}}, {kMonth, Style::short_, {"Мес", "Мес", "Мес"}},
        {kWeek, Style::full, {"Неделя", "Недели", "Недель"}},  {kWeek, Style::symbol, {"Н", "Н", "Н"}},
        {kDay, Style::full, {"День", "Дня", "Дней"}},          {kDay, Style::short_, {"День", "Дня", "Дней"}},
        {kHour, Style::full, {"Час", "Часа", "Часов"}},        {kHour, Style::short_, {"Час", "Часа", "Часов"}},
        {kMinute, Style::full, {"Минута", "Минуты", "Минут"}}, {kSecond, Style::full, {"Секунда", "Секунды", "Секунд"}},
    };
    const std::pair<double, std::size_t> numbers[] = {{0, 2},  {1, 0},  {2, 1},  {4, 1},  {5, 2},    {11, 2},  {12, 2},
                                                      {14, 2}, {21, 0}, {22, 1}, {25, 2}, {101, 0},  {111, 2}, {112, 2},
                                                      {-1, 0}, {-3, 1}, {-7, 2}, {1.5, 1}, {10000, 2}};
    const TestEnvironment environment({.locale = "ru_RU"});
    for (const auto& each : cases) {
        for (const auto& [number, form] : numbers) {
            EXPECT_EQ(HHDateLocalize::nameForUnit(each.unit, number, each.style), each.forms[form]) << number;
        }
    }
}

TEST(HHDateLocalize, NamesTheValuesOfRules) {
    const auto names = [](CalendarUnit unit, std::vector<std::int64_t> values) {
        return HHDateLocalize::nameForUnit(unit, std::move(values));
    };
    {
        const TestEnvironment environment;
        EXPECT_EQ(names(kYear, {2027, -3}), "-3, 2027");
        EXPECT_EQ(names(kMonth, {12, 1, 5}), "Jan, May, Dec");
        EXPECT_EQ(names(CalendarUnit::weekday, {7, 1, 4}), "Sun, Wed, Sat");
        EXPECT_EQ(names(CalendarUnit::weekOfMonth, {4, -1, 1}), "Last, 1, 4");
        EXPECT_EQ(names(kDay, {}), "");
        EXPECT_DEATH((void)names(kHour, {1}), "no names");
        EXPECT_DEATH((void)names(kMonth, {13}), "no name");
        EXPECT_DEATH((void)names(CalendarUnit::weekday, {0}), "no name");
        EXPECT_DEATH((void)names(CalendarUnit::weekOfMonth, {5}), "no name");
    }
    const TestEnvironment environment({.locale = "ru_RU"});
    EXPECT_EQ(names(kMonth, {2, 9}), "фев, сен");
    EXPECT_EQ(names(CalendarUnit::weekday, {2}), "Пн");
    EXPECT_EQ(names(CalendarUnit::weekOfMonth, {-1}), "Последний");
}

}  // namespace
}  // namespace dayward
