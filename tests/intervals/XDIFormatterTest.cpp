#include "intervals/XDIFormatter.h"

#include <gtest/gtest.h>

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

TEST(XDIUnitIntervalFormatter, NamesEachUnitInEachStyle) {
    struct Names {
        CalendarUnit unit;
        const char *symbol, *shortOne, *shortMany, *fullOne, *fullMany;
    };
    const auto check = [](const char* language, std::initializer_list<Names> table) {
        const TestEnvironment environment({.locale = language});
        for (const auto& names : table) {
            const auto text = [&](double value, TextStyle style) {
                return XDIUnitIntervalFormatter::stringForUnit(names.unit, value, style);
            };
            EXPECT_EQ(text(1, TextStyle::number), "1");
            EXPECT_EQ(text(1, TextStyle::symbol), "1" + std::string(names.symbol));
            EXPECT_EQ(text(2, TextStyle::symbol), "2" + std::string(names.symbol));
            EXPECT_EQ(text(1, TextStyle::short_), "1 " + std::string(names.shortOne));
            EXPECT_EQ(text(1, TextStyle::full), "1 " + std::string(names.fullOne));
            for (const double many : {0.0, 2.0, 21.0, -1.0}) {
                const auto number = XDIUnitIntervalFormatter::stringForUnit(names.unit, many, TextStyle::number);
                EXPECT_EQ(text(many, TextStyle::short_), number + " " + names.shortMany);
                EXPECT_EQ(text(many, TextStyle::full), number + " " + names.fullMany);
            }
        }
    };
    check("en_US", {{kYear, "Y", "Yr", "Yrs", "Year", "Years"},
                    {kMonth, "M", "Mth", "Mths", "Month", "Months"},
                    {kWeek, "W", "Wk", "Wks", "Week", "Weeks"},
                    {kDay, "D", "Day", "Days", "Day", "Days"},
                    {kHour, "h", "Hr", "Hrs", "Hour", "Hours"},
                    {kMinute, "m", "Min", "Mins", "Minute", "Minutes"},
                    {kSecond, "s", "Sec", "Secs", "Second", "Seconds"}});
    check("ru_RU", {{kYear, "Г", "Год", "Лет", "Год", "Лет"},
                    {kMonth, "М", "Мес", "Мес", "Месяц", "Месяцев"},
                    {kWeek, "Н", "Нед", "Нед", "Неделя", "Недель"},
                    {kDay, "Д", "День", "Дней", "День", "Дней"},
                    {kHour, "ч", "Час", "Час", "Час", "Часов"},
                    {kMinute, "м", "Мин", "Мин", "Минута", "Минут"},
                    {kSecond, "с", "Сек", "Сек", "Секунда", "Секунд"}});
}

TEST(XDIUnitIntervalFormatter, UnknownStylesAndUnitsHaveNoName) {
    const TestEnvironment environment({.locale = "de_DE"});
    const auto unknownStyle = static_cast<TextStyle>(9);
    using Formatter = XDIUnitIntervalFormatter;
    EXPECT_EQ(Formatter::nameCalendarUnitForUnit(kDay, 2, TextStyle::full), "Days") << "other languages read English";
    EXPECT_EQ(Formatter::nameCalendarUnitForUnit(kDay, 2, TextStyle::number), "");
    EXPECT_EQ(Formatter::nameCalendarUnitForUnit(kDay, 2, unknownStyle), "");
    EXPECT_EQ(Formatter::nameCalendarUnitForUnit(CalendarUnit::weekOfYear, 2, TextStyle::full), std::nullopt);
    EXPECT_EQ(Formatter::stringForUnit(CalendarUnit::weekOfYear, 2, TextStyle::symbol), "2");
}

TEST(XDIFormatter, WritesTheSetUnitsInOrder) {
    const TestEnvironment environment;
    struct Case {
        XDIDateInterval interval;
        std::size_t maxUnits;
        const char* text;
    };
    const Case cases[] = {
        {{}, 0, ""},
        {interval({{kDay, 0}}), 0, "0 Days"},
        {interval({{kYear, 0}, {kMinute, 0}}), 0, "0 Minutes"},
        {interval({{kDay, 0}, {kSecond, 0}}), 0, "0 Seconds"},
        {interval({{kDay, 1}, {kSecond, 0}}), 0, "1 Day 0 Seconds"},
        {interval({{kSecond, 5}, {kYear, 1}, {kDay, 3}, {kWeek, 2}, {kMonth, 4}}), 0,
         "1 Year 4 Months 2 Weeks 3 Days 5 Seconds"},
        {interval({{kDay, -1}}), 0, "- 1 Day"},
        {interval({{kDay, -2}, {kHour, -3}}), 1, "- 2 Days"},
        {interval({{kDay, 2}, {kHour, -3}}), 1, "2 Days"},
        {interval({{kDay, 2}, {kHour, -3}}), 2, "- 2 Days 3 Hours"},
        {interval({{kYear, 0}, {kDay, 2}, {kHour, 3}, {kMinute, 4}}), 2, "2 Days 3 Hours"},
        {interval({{kDay, 12345}}), 0, "12,345 Days"},
    };
    for (const auto& each : cases) {
        XDIFormatter formatter;
        formatter.style = TextStyle::full;
        formatter.maxUnits = each.maxUnits;
        EXPECT_EQ(formatter.stringForDateInterval(each.interval), each.text);
    }
    EXPECT_EQ(XDIFormatter::stringForDateInterval(interval({{kDay, 2}, {kHour, 1}}), TextStyle::symbol), "2D 1h");
}

TEST(XDIFormatter, UnitsMayHaveFormattersOfTheirOwn) {
    const TestEnvironment environment;
    const auto twoDaysThreeHours = interval({{kDay, 2}, {kHour, 3}, {kMinute, 0}});
    XDIFormatter formatter;
    formatter.style = TextStyle::full;
    const auto hours = std::make_shared<XDIUnitIntervalFormatter>();
    hours->style = TextStyle::symbol;
    hours->beforeSeparator = " and ";
    formatter.setFormater(hours, kHour);
    EXPECT_EQ(formatter.stringForDateInterval(twoDaysThreeHours), "2 Days and 3h");
    hours->beforeSeparator.reset();
    EXPECT_EQ(formatter.stringForDateInterval(twoDaysThreeHours), "2 Days3h");
    EXPECT_EQ(formatter.formatterForUnit(kHour), hours);
    formatter.setFormater(nullptr, kHour);
    EXPECT_EQ(formatter.stringForDateInterval(twoDaysThreeHours), "2 Days 3 Hours");

    const auto minutes = std::make_shared<XDIUnitIntervalFormatter>();
    minutes->showAlways = true;
    formatter.setFormater(minutes, kMinute);
    EXPECT_EQ(formatter.stringForDateInterval(twoDaysThreeHours), "2 Days 3 Hours0");
    formatter.innerUnits = {kHour, kDay};
    EXPECT_EQ(formatter.stringForDateInterval(twoDaysThreeHours), "3 Hours 2 Days");
}

TEST(XDIFormatter, DefaultUnitFormatterIsASnapshot) {
    const TestEnvironment environment;
    XDIFormatter formatter;
    formatter.style = TextStyle::short_;
    formatter.separator = "/";
    const auto sample = interval({{kHour, 2}, {kMinute, 1}});
    EXPECT_EQ(formatter.stringForDateInterval(sample), "2 Hrs/1 Min");
    formatter.style = TextStyle::full;
    formatter.separator = " ";
    EXPECT_EQ(formatter.stringForDateInterval(sample), "2 Hrs/1 Min");
}

}  // namespace
}  // namespace dayward
