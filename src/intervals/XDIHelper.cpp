#include "intervals/XDIHelper.h"

#include <cmath>

#include "intervals/NumberStyle.h"
#include "platform/Environment.h"

namespace dayward {

namespace {

struct CalendarSnapshot {
    explicit CalendarSnapshot(Environment& environment) : calendar(*environment.calendar()) {}
    Calendar calendar;
};

std::int64_t fieldOf(const Calendar& calendar, CalendarUnit unit, Date date) {
    const DateComponents components = calendar.components(unit, date);
    const auto* field = components.field(unit);
    return field == nullptr ? 0 : field->value_or(0);
}

}  // namespace

const Calendar& XDIHelper::calendar() { return Environment::current().shared<CalendarSnapshot>().calendar; }

std::optional<XDIDateInterval> XDIHelper::dateIntervalFromDate(std::optional<Date> fromDate, std::optional<Date> toDate,
                                                               CalendarUnits andUnits) {
    if (!fromDate || !toDate) return std::nullopt;
    return XDIDateInterval(calendar().components(andUnits, *fromDate, *toDate));
}

std::optional<XDIDateInterval> XDIHelper::detailDateIntervalFromDate(std::optional<Date> fromDate,
                                                                     std::optional<Date> toDate) {
    if (!fromDate || !toDate) return std::nullopt;
    return detailDateInterval(calendar(), *fromDate, *toDate);
}

std::int64_t XDIHelper::countUnits(CalendarUnit unit, Date fromDate, Date toDate) {
    return fieldOf(calendar(), unit, toDate) - fieldOf(calendar(), unit, fromDate);
}

const NumberFormatter& XDIHelper::numberFormatter0() { return sharedNumberFormatter(NumberStyle::whole); }

const NumberFormatter& XDIHelper::numberFormatter2() { return sharedNumberFormatter(NumberStyle::twoDecimals); }

XDIDateInterval detailDateInterval(const Calendar& calendar, Date fromDate, Date toDate) {
    constexpr double kDaysInMonth = 30.0, kDaysInYear = 365.0;
    XDIDateInterval interval;
    interval.second = std::floor((toDate - fromDate).seconds());
    interval.minute = interval.second / 60;
    interval.hour = interval.minute / 60;
    interval.day = interval.hour / 24;
    interval.week = interval.day / 7;
    const auto months = calendar.components(CalendarUnit::month | CalendarUnit::day, fromDate, toDate);
    interval.month = static_cast<double>(*months.month) + static_cast<double>(*months.day) / kDaysInMonth;
    const auto years = calendar.components(CalendarUnit::year | CalendarUnit::day, fromDate, toDate);
    interval.year = static_cast<double>(*years.year) + static_cast<double>(*years.day) / kDaysInYear;
    return interval;
}

}  // namespace dayward
