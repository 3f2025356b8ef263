// Distances as calendar intervals for what the user sees: plain, in detail, and rounded.
//
// On a snapshot of the current calendar, taken at first use in each environment; a later change of
// the time zone does not reach it. Calendars are immutable values, so that no lock is held; any thread.
#pragma once

#include "intervals/XDIDateInterval.h"
#include "platform/CalendarUnit.h"
#include "platform/Date.h"

namespace dayward {

class HHDateHelper {
public:
    static XDIDateInterval dateIntervalFromDate(Date fromDate, Date toDate, CalendarUnits withUnits);
    /// The whole distance told in each of the seven units, with fractions.
    static XDIDateInterval detailDateIntervalFromDate(Date fromDate, Date toDate);
    /// The distance in the units, rounded to the nearest of the smallest one, but never up to a whole
    /// year. Where all the units would be zero, smaller ones join: days of 3 h 20 min are days and
    /// hours. A date in the past counts as one second farther away.
    static XDIDateInterval roundDateIntervalFromDate(Date fromDate, Date toDate, CalendarUnits units);
};

}  // namespace dayward
