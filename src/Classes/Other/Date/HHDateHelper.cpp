#include "Classes/Other/Date/HHDateHelper.h"

#include <algorithm>
#include <array>

#include "intervals/XDIHelper.h"
#include "platform/Environment.h"

namespace dayward {

namespace {

struct CalendarSnapshot {
    explicit CalendarSnapshot(Environment& environment) : calendar(*environment.calendar()) {}
    Calendar calendar;
};

const Calendar& snapshot() { return Environment::current().shared<CalendarSnapshot>().calendar; }

/// The unit, and half of it in seconds: what is added before rounding down. Years are never rounded up.
struct Rung {
    CalendarUnit unit;
    double margin;
};

constexpr std::array<Rung, 7> kLadder = {{{CalendarUnit::year, 0},
                                          {CalendarUnit::month, 1296000},
                                          {CalendarUnit::weekOfYear, 302400},
                                          {CalendarUnit::day, 43200},
                                          {CalendarUnit::hour, 1800},
                                          {CalendarUnit::minute, 30},
                                          {CalendarUnit::second, 0}}};
constexpr std::size_t kSecondRung = kLadder.size() - 1;

CalendarUnits replacing(CalendarUnits units, CalendarUnit unit, CalendarUnit with) {
    return units.contains(unit) ? units.without(unit) | with : units;
}

/// The lowest rung in the mask; the year's where none is.
std::size_t lowestRung(CalendarUnits units) {
    for (std::size_t rung = kSecondRung; rung > 0; --rung) {
        if (units.contains(kLadder[rung].unit)) return rung;
    }
    return 0;
}

CalendarUnits withSmallerUnits(CalendarUnits units, std::size_t lowest) {
    for (std::size_t rung = lowest + 1; rung < kLadder.size(); ++rung) {
        if (kLadder[rung].unit != CalendarUnit::weekOfYear) units |= kLadder[rung].unit;
    }
    return units;
}

/// The highest rung of the mask whose component is not zero; the second's where all are.
std::size_t highestNonZeroRung(const DateComponents& components, CalendarUnits units) {
    for (std::size_t rung = 0; rung < kLadder.size(); ++rung) {
        const CalendarUnit unit = kLadder[rung].unit;
        if (units.contains(unit) && components.field(unit)->value_or(0) != 0) return rung;
    }
    return kSecondRung;
}

/// The mask, widened down to the first unit that has something to show.
CalendarUnits widened(const Calendar& calendar, Date from, Date to, CalendarUnits units) {
    const std::size_t lowest = lowestRung(units);
    const CalendarUnits extended = withSmallerUnits(units, lowest);
    const std::size_t found = highestNonZeroRung(calendar.components(extended, from, to), extended);
    if (units.contains(kLadder[found].unit)) return units;
    for (std::size_t rung = lowest; rung <= found; ++rung) units |= kLadder[rung].unit;
    return units;
}

Date withMargin(Date from, Date to, double margin) {
    if (to > from) return to + TimeInterval(margin);
    if (to < from) return to + TimeInterval(-1 - margin);
    return to;
}

}  // namespace

XDIDateInterval HHDateHelper::dateIntervalFromDate(Date fromDate, Date toDate, CalendarUnits withUnits) {
    return XDIDateInterval(snapshot().components(withUnits, fromDate, toDate));
}

XDIDateInterval HHDateHelper::detailDateIntervalFromDate(Date fromDate, Date toDate) {
    return detailDateInterval(snapshot(), fromDate, toDate);
}

XDIDateInterval HHDateHelper::roundDateIntervalFromDate(Date fromDate, Date toDate, CalendarUnits units) {
    const Calendar& calendar = snapshot();
    const CalendarUnits requested = replacing(units, CalendarUnit::week, CalendarUnit::weekOfYear);
    const CalendarUnits working = widened(calendar, fromDate, toDate, requested);
    const Date target = withMargin(fromDate, toDate, kLadder[lowestRung(working)].margin);
    const CalendarUnits shown = replacing(working, CalendarUnit::weekOfYear, CalendarUnit::week);
    return XDIDateInterval(calendar.components(shown, fromDate, target));
}

}  // namespace dayward
