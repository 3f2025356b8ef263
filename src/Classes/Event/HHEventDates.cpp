// The date questions of HHEvent.
#include "Classes/Event/HHEvent.h"
#include "platform/Environment.h"

namespace dayward {

OccurrenceRule HHEvent::occurrenceRule() const {
    return {rrule(), date_, times_, duration_ ? duration_->timeInterval() : TimeInterval(0)};
}

std::shared_ptr<const HHEvent::DatesCalculation> HHEvent::datesCalculation() const {
    return dates_.shared(Environment::current().now(), [this] { return occurrenceRule(); });
}

HHEvent::DatesCalculation HHEvent::datesAt(Date now) const {
    return dates_.at(now, [this] { return occurrenceRule(); });
}

std::optional<Date> HHEvent::nextDate() const { return datesAt(Environment::current().now()).occurrence(); }

bool HHEvent::isComing() const {
    const Date now = Environment::current().now();
    return datesAt(now).isRunning(now);
}

std::string HHEvent::titleToDate(std::optional<Date> date) const {
    return dayward::titleToDate(name_, showAge_, rrule(), date_, date);
}

}  // namespace dayward
