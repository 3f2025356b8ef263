#include "platform/DateComponents.h"

namespace dayward {

const std::optional<std::int64_t>* DateComponents::field(CalendarUnit unit) const {
    switch (unit) {
        case CalendarUnit::era: return &era;
        case CalendarUnit::year: return &year;
        case CalendarUnit::month: return &month;
        case CalendarUnit::week: return &week;
        case CalendarUnit::day: return &day;
        case CalendarUnit::hour: return &hour;
        case CalendarUnit::minute: return &minute;
        case CalendarUnit::second: return &second;
        case CalendarUnit::weekday: return &weekday;
        case CalendarUnit::weekdayOrdinal: return &weekdayOrdinal;
        case CalendarUnit::quarter: return &quarter;
        case CalendarUnit::weekOfMonth: return &weekOfMonth;
        case CalendarUnit::weekOfYear: return &weekOfYear;
        case CalendarUnit::yearForWeekOfYear: return &yearForWeekOfYear;
        case CalendarUnit::nanosecond: return &nanosecond;
        default: return nullptr;
    }
}

std::optional<std::int64_t>* DateComponents::field(CalendarUnit unit) {
    return const_cast<std::optional<std::int64_t>*>(static_cast<const DateComponents*>(this)->field(unit));
}

}  // namespace dayward
