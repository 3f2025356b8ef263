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

std::shared_ptr<const HHEvent::DatesCalculation> HHEvent::datesCalculation() const {
    // Occurrences are searched from now minus the duration, so that a running one is still the next,
    // and what is kept stays right until its next occurrence has ended.
    const TimeInterval length = duration_ ? duration_->timeInterval() : TimeInterval(0);
    const Date reference = Environment::current().now() - length;
    {
        const Lock lock(calculationMutex_);
        if (calculation_ && (!calculation_->next || *calculation_->next >= reference)) return calculation_;
    }
    return calculateDates(reference, length);
}

std::shared_ptr<const HHEvent::DatesCalculation> HHEvent::calculateDates(Date reference, TimeInterval length) const {
    // How long the work takes is no question of the application's time.
    const auto begin = std::chrono::steady_clock::now();
    const XELEventMath math(rrule_, date_, times_);
    auto calculation = std::make_shared<DatesCalculation>();
    calculation->next = math.dateAfterDate(reference);
    calculation->last = math.lastDate();
    calculation->duration = length;
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

std::optional<Date> HHEvent::nextDate() const {
    const auto calculation = datesCalculation();
    return calculation->next ? calculation->next : calculation->last;
}

bool HHEvent::isComing() const {
    const auto calculation = datesCalculation();
    const auto occurrence = calculation->next ? calculation->next : calculation->last;
    if (!occurrence) return false;
    const Date now = Environment::current().now();
    return now > *occurrence && now < *occurrence + calculation->duration;
}

std::string HHEvent::titleToDate(std::optional<Date> date) const {
    if (!name_) return {};
    if (!showAge_ || rrule_ != XELRRule::rruleForFrequency(RuleFrequency::yearly)) return *name_;
    return *name_ + " (" + std::to_string(XELRRuleMath(rrule_, date_).intervalsToDate(date)) + ")";
}

}  // namespace dayward
