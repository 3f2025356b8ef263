// Fields of date components by unit flag: year to second, the week 256 and the weekday 512.
#pragma once

#include <cstdint>
#include <optional>

#include "platform/DateComponents.h"

namespace dayward {

/// The field, or nothing where it is undefined. Another unit reads 0.
std::optional<std::int64_t> valueForUnit(const DateComponents& components, CalendarUnit unit);
/// Another unit writes nothing.
void setValue(DateComponents& components, std::optional<std::int64_t> value, CalendarUnit forUnit);

}  // namespace dayward
