// The date questions of HHEvent.
#include <chrono>

#include "Classes/Event/HHEvent.h"
#include "platform/Environment.h"
#include "platform/Log.h"
#include "recurrence/XELEventMath.h"
#include "recurrence/XELRRule.h"
#include "recurrence/XELRRuleMath.h"

namespace dayward {
namespace {

constexpr TimeInterval kSlowCalculation(0.1);

}  // namespace

void HHEvent::moduleEventDateRefresh() {
    const Lock lock(calculationMutex_);
    calculation_ = nullptr;
}

// Occurrences are searched from now minus the duration, so that a running one is still the next, and what
// is kept stays right until its next occurrence has ended.

bool HHEvent::isCalculated(Date now) const {
    return calculation_ && (!calculation_->next || *calculation_->next >= now - calculation_->duration);
}

std::shared_ptr<const HHEvent::DatesCalculation> HHEvent::datesCalculation() const {
    const Date now = Environment::current().now();
    {
        const Lock lock(calculationMutex_);
        if (isCalculated(now)) return calculation_;
    }
    return calculateDates(now);
}

HHEvent::DatesCalculation HHEvent::datesAt(Date now) const {
    {
        const Lock lock(calculationMutex_);
        if (isCalculated(now)) return *calculation_;
    }
    return *calculateDates(now);
}

std::shared_ptr<const HHEvent::DatesCalculation> HHEvent::calculateDates(Date now) const {
    // How long the work takes is no question of the application's time.
    const auto begin = std::chrono::steady_clock::now();
    const XELEventMath math(rrule(), date_, times_);
    auto calculation = std::make_shared<DatesCalculation>();
    calculation->duration = duration_ ? duration_->timeInterval() : TimeInterval(0);
    calculation->next = math.dateAfterDate(now - calculation->duration);
    calculation->last = math.lastDate();
    {
        const Lock lock(calculationMutex_);
        calculation_ = calculation;
    }
    const std::chrono::duration<double> spent = std::chrono::steady_clock::now() - begin;
    if (TimeInterval(spent.count()) > kSlowCalculation) {
        logDebug([&] { return "time: " + std::to_string(spent.count()); });
    }
    return calculation;
}

std::optional<Date> HHEvent::nextDate() const { return datesAt(Environment::current().now()).occurrence(); }

bool HHEvent::isComing() const {
    const Date now = Environment::current().now();
    return datesAt(now).isRunning(now);
}

std::string HHEvent::titleToDate(std::optional<Date> date) const {
    if (!name_) return {};
    if (!showAge_ || rrule() != XELRRule::rruleForFrequency(RuleFrequency::yearly)) return *name_;
    return *name_ + " (" + std::to_string(XELRRuleMath(rrule(), date_).intervalsToDate(date)) + ")";
}

}  // namespace dayward
