// Addition of calendar amounts, as additions and distances share it: a distance is the biggest
// amounts whose addition does not pass the target. Any thread.
#pragma once

#include <cstdint>

#include "platform/CalendarArithmetic.h"

namespace dayward {

struct CalendarAmounts {
    std::int64_t years = 0, months = 0, days = 0;
    double seconds = 0;
};

/// Years, then months, each with the day clamped to the month; then days on the wall clock; then
/// elapsed seconds. The amounts and the date must be within the limits of CalendarArithmetic.h.
Date addAmounts(const TimeZone& zone, const CalendarAmounts& amounts, Date date);

}  // namespace dayward
