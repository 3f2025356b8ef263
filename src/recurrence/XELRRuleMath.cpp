#include "recurrence/XELRRuleMath.h"

#include <utility>

#include "platform/Environment.h"
#include "recurrence/ClosedForm.h"
#include "recurrence/DateIcal.h"
#include "recurrence/InstantWalk.h"
#include "recurrence/ParsedRule.h"
#include "recurrence/RuleEvaluation.h"
#include "recurrence/RuleJump.h"

namespace dayward {

namespace {

std::shared_ptr<const Calendar> currentCalendar() { return Environment::current().calendar(); }

/// The dates up to one, at most so many, that `next` gives one after the other.
template <class Next>
std::vector<Date> taken(Date toDate, std::size_t maxCount, Next next) {
    std::vector<Date> dates;
    while (dates.size() < maxCount) {
        const std::optional<Date> date = next();
        if (!date || *date > toDate) break;
        dates.push_back(*date);
    }
    return dates;
}

/// The wall clock's fields; the null time for a date whose fields cannot be told.
IcalTime wallClock(std::optional<Date> date, const Calendar& calendar) {
    return date && hasIcalTime(*date) ? notz_icaltime(*date, calendar) : IcalTime();
}

}  // namespace

XELRRuleMath::XELRRuleMath(std::optional<std::string> rrule, std::optional<Date> startDate) : startDate_(startDate) {
    setRrule(std::move(rrule));
}

XELRRuleMath::XELRRuleMath(std::shared_ptr<const ParsedRule> rule, std::optional<Date> startDate)
    : parsed_(std::move(rule)), startDate_(startDate) {}

void XELRRuleMath::setRrule(std::optional<std::string> rrule) {
    rrule_ = std::move(rrule);
    parsed_ = rrule_ ? ParsedRule::cached(*rrule_) : nullptr;
}

std::int64_t XELRRuleMath::intervalsToDate(std::optional<Date> date) const {
    if (!parsed_) return 0;
    const auto calendar = currentCalendar();
    return distanceInIntervals(*parsed_, wallClock(startDate_, *calendar), wallClock(date, *calendar),
                               WholeWeeks::ignored);
}

std::optional<Date> XELRRuleMath::dateAfterDate(Date date) const {
    if (!startDate_) return std::nullopt;
    if (!parsed_) return *startDate_ > date ? startDate_ : std::nullopt;
    if (!hasIcalTime(*startDate_) || !hasIcalTime(date)) return std::nullopt;
    return firstInstantAfter(parsed_, *startDate_, date, currentCalendar());
}

std::optional<Date> XELRRuleMath::dateAfterDate(Date date, const std::optional<std::string>& rrule,
                                                std::optional<Date> startDate) {
    return XELRRuleMath(rrule ? ParsedRule::cached(*rrule) : nullptr, startDate).dateAfterDate(date);
}

std::vector<Date> XELRRuleMath::datesFromDate(Date fromDate, Date toDate, std::size_t maxCount) const {
    if (!startDate_) return {};
    if (!parsed_) {
        const bool isInside = *startDate_ > fromDate && *startDate_ < toDate && maxCount > 0;
        return isInside ? std::vector<Date>{*startDate_} : std::vector<Date>{};
    }
    if (!parsed_->canOccur() || !hasIcalTime(*startDate_) || !hasIcalTime(fromDate) || !hasIcalTime(toDate)) return {};
    const auto calendar = currentCalendar();
    if (hasClosedForm(*parsed_) && isSteady()) {
        std::optional<Date> last = fromDate;
        return taken(toDate, maxCount, [&] { return last = firstInstantAfter(parsed_, *startDate_, *last, calendar); });
    }
    InstantWalk walk(parsed_, *startDate_, fromDate, calendar);
    return taken(toDate, maxCount, [&] { return walk.next(); });
}

bool XELRRuleMath::isSteady() const {
    // One less than every month has: a skipped time may move an occurrence to the next day.
    constexpr int kSafeDays = 27;
    if (!parsed_) return true;
    if (parsed_->count() != 0) return false;
    if (parsed_->frequency() <= ParsedRule::Frequency::weekly) return true;
    if (parsed_->hasLists() || !startDate_ || !hasIcalTime(*startDate_)) return false;
    return currentCalendar()->fields(*startDate_).day <= kSafeDays;
}

std::optional<Date> XELRRuleMath::lastDate() const {
    if (!parsed_ || parsed_->frequency() == ParsedRule::Frequency::none) return startDate_;
    if (!parsed_->until() || !startDate_ || !hasIcalTime(*startDate_)) return std::nullopt;
    const auto calendar = currentCalendar();
    const auto time = lastOccurrence(parsed_, notz_icaltime(*startDate_, *calendar));
    if (!time) return std::nullopt;
    Date last = notz_dateForICalTime(*time, *calendar);
    // A skipped time may be answered behind the last one of the wall clock.
    if (parsed_->count() != 0 || !answersSkippedTime(last, *calendar)) return last;
    InstantWalk later(parsed_, *startDate_, last, calendar);
    while (const auto date = later.next()) last = *date;
    return last;
}

}  // namespace dayward
