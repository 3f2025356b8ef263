#include "Submodules/CorpLibrary2/Foundation/ComponentsExtensions.h"

namespace dayward {

namespace {

constexpr CalendarUnits kUnits = kYearToSecondUnits | CalendarUnit::week | CalendarUnit::weekday;

}  // namespace

std::optional<std::int64_t> valueForUnit(const DateComponents& components, CalendarUnit unit) {
    return kUnits.contains(unit) && components.field(unit) != nullptr ? *components.field(unit) : 0;
}

void setValue(DateComponents& components, std::optional<std::int64_t> value, CalendarUnit forUnit) {
    if (kUnits.contains(forUnit) && components.field(forUnit) != nullptr) *components.field(forUnit) = value;
}

}  // namespace dayward
