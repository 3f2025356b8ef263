#include "Classes/Other/Date/HHDateIntervalFormat.h"

#include "Classes/Other/Date/HHDateLocalize.h"

namespace dayward {

namespace {

constexpr CalendarUnit kUnitsInOrder[] = {CalendarUnit::year,  CalendarUnit::month, CalendarUnit::week,
                                          CalendarUnit::day,   CalendarUnit::hour,  CalendarUnit::minute,
                                          CalendarUnit::second};

}  // namespace

NumberStyle HHDateIntervalFormat::numberStyleForUnit(CalendarUnit unit) const {
    const auto own = unitNumberStyles_.find(unit);
    return own == unitNumberStyles_.end() ? numberStyle : own->second;
}

void HHDateIntervalFormat::setNumberStyle(NumberStyle style, CalendarUnit forUnit) {
    unitNumberStyles_[forUnit] = style;
}

std::string HHDateIntervalFormat::resultForUnit(CalendarUnit unit, double value) const {
    auto number = sharedNumberFormatter(numberStyleForUnit(unit)).string(value);
    if (textStyle == TextStyle::number) return number;
    const char* joint = textStyle == TextStyle::symbol ? "" : " ";
    return number + joint + HHDateLocalize::nameForUnit(unit, value, HHDateLocalize::styleFromTextStyle(textStyle));
}

std::string HHDateIntervalFormat::resultForDateInterval(const XDIDateInterval& interval) const {
    const auto setUnits = interval.getUnits();
    std::string result;
    bool isFirst = true;
    for (const auto unit : kUnitsInOrder) {
        const double value = interval.valueForUnit(unit);
        if (!setUnits.contains(unit) || (value == 0.0 && unit != CalendarUnit::second)) continue;
        if (!isFirst) result += separator;
        isFirst = false;
        result += resultForUnit(unit, value);
    }
    return result;
}

std::string HHDateIntervalFormat::resultForDetailDateInterval(const XDIDateInterval& interval) const {
    return resultForDateInterval(interval);
}

std::string HHDateIntervalFormat::defaultResultForDateInterval(const XDIDateInterval& interval) {
    static const HHDateIntervalFormat shared;
    return shared.resultForDateInterval(interval);
}

}  // namespace dayward
