#include "intervals/XDIFormatter.h"

#include <cmath>

#include "intervals/NumberStyle.h"
#include "platform/Environment.h"

namespace dayward {

Locale XDIFormatter::locale() const { return locale_ ? *locale_ : Environment::current().locale(); }

NumberFormatter XDIFormatter::numberFormatter() const {
    return numberFormatter_ ? *numberFormatter_ : sharedNumberFormatter(NumberStyle::whole);
}

XDIUnitIntervalFormatter& XDIFormatter::defaultUnitFormatter() {
    if (!defaultUnitFormatter_) {
        defaultUnitFormatter_ = std::make_shared<XDIUnitIntervalFormatter>();
        defaultUnitFormatter_->style = style;
        defaultUnitFormatter_->setLocale(locale());
        defaultUnitFormatter_->setNumberFormatter(numberFormatter());
        defaultUnitFormatter_->beforeSeparator = separator;
    }
    return *defaultUnitFormatter_;
}

void XDIFormatter::setDefaultUnitFormatter(std::shared_ptr<XDIUnitIntervalFormatter> formatter) {
    defaultUnitFormatter_ = std::move(formatter);
}

std::shared_ptr<XDIUnitIntervalFormatter> XDIFormatter::formatterForUnit(CalendarUnit unit) const {
    const auto found = unitFormatters_.find(unit);
    return found == unitFormatters_.end() ? nullptr : found->second;
}

void XDIFormatter::setFormater(std::shared_ptr<XDIUnitIntervalFormatter> formatter, CalendarUnit forUnit) {
    if (formatter)
        unitFormatters_[forUnit] = std::move(formatter);
    else
        unitFormatters_.erase(forUnit);
}

std::string XDIFormatter::stringForDateInterval(const XDIDateInterval& interval) {
    const auto setUnits = interval.getUnits();
    std::string result;
    std::size_t count = 0;
    bool isNegative = false;
    std::optional<CalendarUnit> lastUnit;
    const auto formatterOf = [this](CalendarUnit unit) -> const XDIUnitIntervalFormatter& {
        const auto own = formatterForUnit(unit);
        return own ? *own : defaultUnitFormatter();
    };

    for (const auto unit : innerUnits) {
        if (!setUnits.contains(unit)) continue;
        lastUnit = unit;
        const auto& formatter = formatterOf(unit);
        const double value = interval.valueForUnit(unit);
        if (value == 0.0 && unit != CalendarUnit::second && !formatter.showAlways) continue;
        if (count >= 1 && formatter.beforeSeparator) result += *formatter.beforeSeparator;
        result += formatter.stringForUnit(unit, std::abs(value));
        ++count;
        isNegative = isNegative || value < 0;
        if (maxUnits != 0 && count >= maxUnits) break;
    }
    if (result.empty() && lastUnit)
        result = formatterOf(*lastUnit).stringForUnit(*lastUnit, std::abs(interval.valueForUnit(*lastUnit)));
    return isNegative ? "- " + result : result;
}

std::string XDIFormatter::stringForDateInterval(const XDIDateInterval& interval, TextStyle style) {
    XDIFormatter formatter;
    formatter.style = style;
    return formatter.stringForDateInterval(interval);
}

}  // namespace dayward
