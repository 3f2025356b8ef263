// Turns what events repeated by before rule strings into rule strings. Pure functions; any thread.
#pragma once

#include <string>

#include "intervals/XDIDateInterval.h"
#include "recurrence/XELCalendarBase.h"

namespace dayward {

class XELUpdater {
public:
    /// By the interval's biggest set unit and its value, truncated; null or empty is "FREQ=NO" with
    /// interval 0.
    static std::string rruleFromDateInterval(const XDIDateInterval* interval);
    /// Null is no repetition.
    static std::string rruleFromCalendar(const XELCalendarBase* calendar);
};

}  // namespace dayward
