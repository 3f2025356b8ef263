// Distances between dates as calendar intervals, on one calendar and two number formatters for each
// environment.
//
// The calendar is a snapshot of the current one, taken at first use: a later change of the time zone
// does not reach it. Calendars are immutable values here, so that these operations need no lock;
// any thread may call them.
#pragma once

#include <cstdint>
#include <optional>

#include "intervals/XDIDateInterval.h"
#include "platform/Calendar.h"
#include "platform/NumberFormatter.h"

namespace dayward {

class XDIHelper {
public:
    /// Lives as long as the environment.
    static const Calendar& calendar();

    /// The distance in the units; nothing where a date is absent.
    static std::optional<XDIDateInterval> dateIntervalFromDate(std::optional<Date> fromDate, std::optional<Date> toDate,
                                                               CalendarUnits andUnits);
    /// The whole distance told in each of the seven units, with fractions; nothing where a date is absent.
    static std::optional<XDIDateInterval> detailDateIntervalFromDate(std::optional<Date> fromDate,
                                                                     std::optional<Date> toDate);
    /// The field of the unit in the second date less that field in the first: no duration, and
    /// negative across the end of a year. 0 for a unit without a field.
    static std::int64_t countUnits(CalendarUnit unit, Date fromDate, Date toDate);

    /// At most 0 fraction digits.
    static const NumberFormatter& numberFormatter0();
    /// Exactly 2 fraction digits.
    static const NumberFormatter& numberFormatter2();
};

/// The detail interval on a given calendar.
XDIDateInterval detailDateInterval(const Calendar& calendar, Date fromDate, Date toDate);

}  // namespace dayward
