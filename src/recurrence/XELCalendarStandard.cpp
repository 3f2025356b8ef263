#include "recurrence/XELCalendarStandard.h"

#include <algorithm>
#include <utility>

#include "platform/Environment.h"
#include "platform/KeyedArchiver.h"
#include "platform/KeyedUnarchiver.h"

namespace dayward {

void XELCalendarStandard::setRepeatInterval(std::shared_ptr<XDIDateInterval> interval) {
    repeatInterval_ = std::move(interval);
    fieldsChanged();
}

void XELCalendarStandard::setDaysOfWeek(std::optional<Numbers> days) {
    daysOfWeek_ = std::move(days);
    fieldsChanged();
}

std::vector<XELRepeatDate> XELCalendarStandard::makeRepeatDates() const {
    if (!repeatInterval_) return repeatDatesEvery(CalendarUnit{}, 0);
    const double value = repeatInterval_->getSingleValue();
    const bool isCountable = value >= 1 && value < 1e15;
    return repeatDatesEvery(repeatInterval_->getSingleUnit(), isCountable ? static_cast<std::uint64_t>(value) : 0);
}

bool XELCalendarStandard::repeatDate(const XELRepeatDate&, Date testDate) const {
    if (!daysOfWeek_ || daysOfWeek_->empty()) return true;
    const Calendar::Fields fields = Environment::current().calendar()->fields(testDate);
    const int weekday = Calendar::weekdayOf(fields.year, fields.month, fields.day);
    return std::ranges::find(*daysOfWeek_, weekday) != daysOfWeek_->end();
}

void XELCalendarStandard::encodeWithCoder(KeyedArchiver& coder) const {
    XELCalendarBase::encodeWithCoder(coder);
    if (repeatInterval_) coder.encodeObject(repeatInterval_, kRepeatIntervalKey);
    encodeNumbers(coder, daysOfWeek_, kDaysOfWeekKey);
}

bool XELCalendarStandard::decodeStandard(KeyedUnarchiver& coder) {
    if (!decode(coder)) return false;
    repeatInterval_ = coder.decodeRecord<XDIDateInterval>(kRepeatIntervalKey);
    daysOfWeek_ = decodeNumbers(coder, kDaysOfWeekKey);
    return true;
}

std::shared_ptr<Archivable> XELCalendarStandard::read(KeyedUnarchiver& coder) {
    auto calendar = std::make_shared<XELCalendarStandard>();
    return calendar->decodeStandard(coder) ? calendar : nullptr;
}

std::shared_ptr<Archivable> HHEventCalendarStandard::read(KeyedUnarchiver& coder) {
    auto calendar = std::make_shared<HHEventCalendarStandard>();
    return calendar->decodeStandard(coder) ? calendar : nullptr;
}

}  // namespace dayward
