#include "intervals/XDIUnitIntervalFormatter.h"

#include <array>

#include "intervals/NumberStyle.h"
#include "platform/Environment.h"

namespace dayward {

namespace {

struct UnitNames {
    CalendarUnit unit;
    const char* symbol;
    const char* shortOne;
    const char* shortOther;
    const char* fullOne;
    const char* fullOther;
};

using UnitTable = std::array<UnitNames, 7>;

constexpr UnitTable kEnglish{{
    {CalendarUnit::year, "Y", "Yr", "Yrs", "Year", "Years"},
    {CalendarUnit::month, "M", "Mth", "Mths", "Month", "Months"},
    {CalendarUnit::week, "W", "Wk", "Wks", "Week", "Weeks"},
    {CalendarUnit::day, "D", "Day", "Days", "Day", "Days"},
    {CalendarUnit::hour, "h", "Hr", "Hrs", "Hour", "Hours"},
    {CalendarUnit::minute, "m", "Min", "Mins", "Minute", "Minutes"},
    {CalendarUnit::second, "s", "Sec", "Secs", "Second", "Seconds"},
}};

constexpr UnitTable kRussian{{
    {CalendarUnit::year, "Г", "Год", "Лет", "Год", "Лет"},
    {CalendarUnit::month, "М", "Мес", "Мес", "Месяц", "Месяцев"},
    {CalendarUnit::week, "Н", "Нед", "Нед", "Неделя", "Недель"},
    {CalendarUnit::day, "Д", "День", "Дней", "День", "Дней"},
    {CalendarUnit::hour, "ч", "Час", "Час", "Час", "Часов"},
    {CalendarUnit::minute, "м", "Мин", "Мин", "Минута", "Минут"},
    {CalendarUnit::second, "с", "Сек", "Сек", "Секунда", "Секунд"},
}};

std::optional<std::string> nameFrom(const UnitTable& table, CalendarUnit unit, double value, TextStyle style) {
    for (const auto& names : table) {
        if (names.unit != unit) continue;
        const bool isOne = value == 1.0;
        switch (style) {
            case TextStyle::symbol: return names.symbol;
            case TextStyle::short_: return isOne ? names.shortOne : names.shortOther;
            case TextStyle::full: return isOne ? names.fullOne : names.fullOther;
            case TextStyle::number: break;
        }
        return "";
    }
    return std::nullopt;
}

XDIUnitIntervalFormatter formatterInStyle(TextStyle style) {
    XDIUnitIntervalFormatter formatter;
    formatter.style = style;
    return formatter;
}

}  // namespace

Locale XDIUnitIntervalFormatter::locale() const { return locale_ ? *locale_ : Environment::current().locale(); }

NumberFormatter XDIUnitIntervalFormatter::numberFormatter() const {
    return numberFormatter_ ? *numberFormatter_ : sharedNumberFormatter(NumberStyle::whole);
}

std::string XDIUnitIntervalFormatter::stringForUnitInterval(const XDIUnitInterval& interval) const {
    return stringForUnit(interval.unit, interval.value);
}

std::string XDIUnitIntervalFormatter::stringForUnit(CalendarUnit unit, double andValue) const {
    auto number = numberFormatter().string(andValue);
    if (style == TextStyle::number) return number;
    const char* joint = style == TextStyle::symbol ? "" : " ";
    return number + joint + nameCalendarUnitForUnit(unit, andValue).value_or("");
}

std::optional<std::string> XDIUnitIntervalFormatter::nameCalendarUnitForUnitInterval(
    const XDIUnitInterval& interval) const {
    return nameCalendarUnitForUnit(interval.unit, interval.value);
}

std::optional<std::string> XDIUnitIntervalFormatter::nameCalendarUnitForUnit(CalendarUnit unit, double andValue) const {
    return locale().languageCode() == "ru" ? ruNameCalendarUnitForUnit(unit, andValue, style)
                                           : enNameCalendarUnitForUnit(unit, andValue, style);
}

std::string XDIUnitIntervalFormatter::stringForUnit(CalendarUnit unit, double andValue, TextStyle style) {
    return formatterInStyle(style).stringForUnit(unit, andValue);
}

std::optional<std::string> XDIUnitIntervalFormatter::nameCalendarUnitForUnit(CalendarUnit unit, double andValue,
                                                                             TextStyle style) {
    return formatterInStyle(style).nameCalendarUnitForUnit(unit, andValue);
}

std::optional<std::string> XDIUnitIntervalFormatter::enNameCalendarUnitForUnit(CalendarUnit unit, double andValue,
                                                                               TextStyle style) {
    return nameFrom(kEnglish, unit, andValue, style);
}

std::optional<std::string> XDIUnitIntervalFormatter::ruNameCalendarUnitForUnit(CalendarUnit unit, double andValue,
                                                                               TextStyle style) {
    return nameFrom(kRussian, unit, andValue, style);
}

}  // namespace dayward
