// A rule for libical that finds days alone: COUNT, UNTIL and the times of day are applied to whole
// times by those who ask. Private to the sources that call libical.
#pragma once

#include <libical/ical.h>

#include <algorithm>

#include "recurrence/ParsedRule.h"

namespace dayward {

inline icalrecurrencetype daysOnly(const ParsedRule& rule) {
    icalrecurrencetype days = rule.recurrence();
    days.count = 0;
    days.until = icaltime_null_time();
    // The whole lists: libical fills in a first value of its own and reads on behind it.
    std::ranges::fill(days.by_hour, static_cast<short>(ICAL_RECURRENCE_ARRAY_MAX));
    std::ranges::fill(days.by_minute, static_cast<short>(ICAL_RECURRENCE_ARRAY_MAX));
    std::ranges::fill(days.by_second, static_cast<short>(ICAL_RECURRENCE_ARRAY_MAX));
    return days;
}

}  // namespace dayward
