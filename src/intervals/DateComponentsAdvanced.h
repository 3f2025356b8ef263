// Fields of date components by unit flag, as intervals use them: year to second and the week 256.
// The set that the common library has beside it, with the weekday, is in ComponentsExtensions.h.
#pragma once

#include <cstdint>
#include <optional>

#include "platform/DateComponents.h"

namespace dayward {

/// The field, or nothing where it is undefined. Another unit reads 0.
std::optional<std::int64_t> advancedValueForUnit(const DateComponents& components, CalendarUnit unit);
/// Another unit writes nothing.
void setAdvancedValue(DateComponents& components, std::optional<std::int64_t> value, CalendarUnit forUnit);

}  // namespace dayward
