#include "Classes/Other/Date/Duration.h"

#include <limits>

#include "platform/Environment.h"
#include "platform/FatalError.h"
#include "platform/Log.h"

namespace dayward {

namespace {

std::optional<double> secondsOf(CalendarUnit unit) {
    switch (unit) {
        case CalendarUnit::nanosecond: return 0.000000001;
        case CalendarUnit::second: return 1;
        case CalendarUnit::minute: return 60;
        case CalendarUnit::hour: return 3600;
        case CalendarUnit::day:
        case CalendarUnit::weekday:
        case CalendarUnit::weekdayOrdinal: return 86400;
        case CalendarUnit::weekOfMonth:
        case CalendarUnit::weekOfYear: return 604800;
        case CalendarUnit::month: return 2592000;
        case CalendarUnit::quarter: return 7889238;
        case CalendarUnit::year:
        case CalendarUnit::yearForWeekOfYear: return 31556952;
        default: return std::nullopt;
    }
}

double secondsOrWarning(CalendarUnit unit) {
    if (const auto seconds = secondsOf(unit)) return *seconds;
    logError("warn: .interval for NSCalendarUnit(" + std::to_string(static_cast<std::uint64_t>(unit)) +
             ") can't be determined. Returning 0.");
    return 0;
}

Date moved(const Calendar& calendar, CalendarUnit unit, std::int64_t value, Date date) {
    const auto result = calendar.dateByAddingUnit(unit, value, date);
    if (!result) fatalError("the calendar cannot add the duration");
    return *result;
}

}  // namespace

Duration::Duration(std::int64_t value, CalendarUnit unit)
    : value_(value), unit_(unit), calendar_(Environment::current().calendar()) {}

TimeInterval Duration::interval() const {
    if (!interval_) interval_ = TimeInterval(static_cast<double>(value_) * secondsOrWarning(unit_));
    return *interval_;
}

Date Duration::dateLater(Date date) const { return moved(*calendar_, unit_, value_, date); }

Date Duration::dateEarlier(Date date) const {
    constexpr auto kLowest = std::numeric_limits<std::int64_t>::min();
    return moved(*calendar_, unit_, value_ == kLowest ? std::numeric_limits<std::int64_t>::max() : -value_, date);
}

Date Duration::fromNow() const { return dateLater(Environment::current().now()); }

Date Duration::ago() const { return dateEarlier(Environment::current().now()); }

}  // namespace dayward
