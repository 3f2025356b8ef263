#include "Classes/Share/TextActivitySource.h"

#include <array>
#include <cmath>

#include "Classes/Event/HHEvent.h"
#include "Classes/Other/Date/HHDateHelper.h"
#include "Classes/Other/Date/HHDateIntervalFormat.h"
#include "platform/Environment.h"
#include "platform/PercentFormat.h"
#include "platform/Strings.h"

namespace dayward {

namespace {

constexpr const char* kUnnamed = "???";
constexpr double kHappeningSeconds = 60;

/// Past distances are told in positive numbers: the words around them say that they are past.
XDIDateInterval distance(Date now, Date next, CalendarUnits units) {
    return next < now ? HHDateHelper::roundDateIntervalFromDate(next, now, units)
                      : HHDateHelper::roundDateIntervalFromDate(now, next, units);
}

/// "1 Year, 12 Months, 52 Weeks": the whole distance in each unit of the interval down to minutes.
std::string wholeSpans(const XDIDateInterval& interval, Date from, Date to) {
    constexpr std::array kUnits{CalendarUnit::year, CalendarUnit::month, CalendarUnit::week,
                                CalendarUnit::day,  CalendarUnit::hour,  CalendarUnit::minute};
    const HHDateIntervalFormat format;
    std::string text;
    for (const CalendarUnit unit : kUnits) {
        if (!interval.getUnits().contains(unit)) continue;
        const double span = HHDateHelper::dateIntervalFromDate(from, to, unit).valueForUnit(unit);
        if (!text.empty()) text += format.separator;
        text += format.resultForUnit(unit, span);
    }
    return text;
}

std::string nameOf(const HHEvent& event) { return event.name().value_or(localized(kUnnamed)); }

int unitCount(const XDIDateInterval& interval) { return std::popcount(interval.getUnits().mask()); }

}  // namespace

std::string shareSubject(const HHEvent& event) { return formatText(localized("Countdown to %@"), {nameOf(event)}); }

std::string TextActivitySource::text() const {
    const std::string name = nameOf(*event_);
    const Date now = Environment::current().now();
    const Date next = event_->nextDate().value_or(now);
    const double seconds = std::floor((next - now).seconds());
    if (seconds >= -kHappeningSeconds && seconds <= 0) return formatText(localized("%@ is happening!"), {name});

    const XDIDateInterval interval = distance(now, next, event_->intervalFormat().units);
    const std::string& sentence = localized(seconds < 0 ? "%@ - has come %@ back!" : "%@ - is coming in %@!");
    std::string text = formatText(sentence, {name, HHDateIntervalFormat().resultForDateInterval(interval)});
    if (unitCount(interval) > 1) {
        const std::string spans = wholeSpans(interval, std::min(now, next), std::max(now, next));
        text += "\n\n" + formatText(localized("That is %@!"), {spans});
    }
    return text;
}

}  // namespace dayward
