// Two columns that make an interval of one unit: 1 to 300 of minutes, hours, days, weeks, months or
// years. A plain value.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "Classes/Interface/Screens/TableRow.h"
#include "intervals/XDIDateInterval.h"

namespace dayward {

class IntervalPicker {
public:
    static constexpr std::int64_t kMinValue = 1;
    static constexpr std::int64_t kMaxValue = 300;

    /// At 1 hour.
    IntervalPicker() = default;
    /// At the interval's biggest unit, without its sign; a value or a unit that is not offered becomes
    /// the nearest one.
    explicit IntervalPicker(const XDIDateInterval& interval);

    [[nodiscard]] std::int64_t intervalValue() const { return value_; }
    [[nodiscard]] CalendarUnit intervalUnit() const;
    [[nodiscard]] XDIDateInterval interval() const { return {intervalUnit(), static_cast<double>(value_)}; }

    void setRows(const std::vector<std::size_t>& rows);
    /// The columns, the units in the form that goes with the value.
    [[nodiscard]] std::vector<Wheel> wheels() const;

private:
    std::int64_t value_ = 1;
    std::size_t unitRow_ = 1;
};

}  // namespace dayward
