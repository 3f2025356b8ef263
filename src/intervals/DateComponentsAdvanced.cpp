#include "intervals/DateComponentsAdvanced.h"

namespace dayward {

namespace {

constexpr CalendarUnits kUnits = kYearToSecondUnits | CalendarUnit::week;

}  // namespace

std::optional<std::int64_t> advancedValueForUnit(const DateComponents& components, CalendarUnit unit) {
    return kUnits.contains(unit) && components.field(unit) != nullptr ? *components.field(unit) : 0;
}

void setAdvancedValue(DateComponents& components, std::optional<std::int64_t> value, CalendarUnit forUnit) {
    if (kUnits.contains(forUnit) && components.field(forUnit) != nullptr) *components.field(forUnit) = value;
}

}  // namespace dayward
