#include "recurrence/DatesCalculation.h"

#include <chrono>

#include "platform/Log.h"
#include "recurrence/XELEventMath.h"
#include "recurrence/XELRRule.h"
#include "recurrence/XELRRuleMath.h"

namespace dayward {
namespace {

constexpr TimeInterval kSlowCalculation(0.1);

}  // namespace

DatesCalculation DatesCalculation::at(Date now, const OccurrenceRule& rule) {
    const XELEventMath math(rule.rrule, rule.date, rule.times);
    DatesCalculation calculation;
    calculation.duration = rule.duration;
    calculation.next = math.dateAfterDate(now - rule.duration);
    calculation.last = math.lastDate();
    return calculation;
}

std::shared_ptr<const DatesCalculation> KeptDates::keep(Date now, const OccurrenceRule& rule) {
    // How long the work takes is no question of the application's time.
    const auto begin = std::chrono::steady_clock::now();
    auto calculation = std::make_shared<const DatesCalculation>(DatesCalculation::at(now, rule));
    {
        const Lock lock(mutex_);
        calculation_ = calculation;
    }
    const std::chrono::duration<double> spent = std::chrono::steady_clock::now() - begin;
    if (TimeInterval(spent.count()) > kSlowCalculation) {
        logDebug([&] { return "time: " + std::to_string(spent.count()); });
    }
    return calculation;
}

std::string titleToDate(const std::optional<std::string>& name, bool showAge, const std::optional<std::string>& rrule,
                        Date start, std::optional<Date> date) {
    if (!name) return {};
    if (!showAge || rrule != XELRRule::rruleForFrequency(RuleFrequency::yearly)) return *name;
    return *name + " (" + std::to_string(XELRRuleMath(rrule, start).intervalsToDate(date)) + ")";
}

}  // namespace dayward
