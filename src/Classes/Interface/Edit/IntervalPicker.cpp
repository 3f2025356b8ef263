#include "Classes/Interface/Edit/IntervalPicker.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "intervals/XIDLocaleName.h"
#include "platform/Environment.h"
#include "platform/NumberFormatter.h"

namespace dayward {

namespace {

constexpr std::array kUnits{CalendarUnit::minute, CalendarUnit::hour,  CalendarUnit::day,
                            CalendarUnit::week,   CalendarUnit::month, CalendarUnit::year};

}  // namespace

IntervalPicker::IntervalPicker(const XDIDateInterval& interval) {
    const double value = std::round(std::abs(interval.getSingleValue()));
    value_ =
        static_cast<std::int64_t>(std::clamp(value, static_cast<double>(kMinValue), static_cast<double>(kMaxValue)));
    const auto unit = std::ranges::find(kUnits, interval.getSingleUnit());
    unitRow_ = unit != kUnits.end() ? static_cast<std::size_t>(unit - kUnits.begin()) : 0;
}

CalendarUnit IntervalPicker::intervalUnit() const { return kUnits[unitRow_]; }

void IntervalPicker::setRows(const std::vector<std::size_t>& rows) {
    value_ = static_cast<std::int64_t>(rows.at(0)) + kMinValue;
    unitRow_ = rows.at(1);
}

std::vector<Wheel> IntervalPicker::wheels() const {
    Wheel values{{}, static_cast<std::size_t>(value_ - kMinValue)};
    const NumberFormatter formatter(Environment::current().locale(), 0, 0);
    for (std::int64_t value = kMinValue; value <= kMaxValue; ++value) {
        values.titles.push_back(formatter.string(static_cast<double>(value)));
    }
    Wheel units{{}, unitRow_};
    for (const CalendarUnit unit : kUnits) {
        units.titles.push_back(xidLocaleName(unit, value_, TextStyle::full).value_or(std::string()));
    }
    return {std::move(values), std::move(units)};
}

}  // namespace dayward
