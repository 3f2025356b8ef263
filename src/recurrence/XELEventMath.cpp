#include "recurrence/XELEventMath.h"

#include <algorithm>
#include <utility>

#include "intervals/XELDateTime.h"
#include "platform/Environment.h"
#include "recurrence/DateIcal.h"
#include "recurrence/ParsedRule.h"
#include "recurrence/XELRRuleMath.h"

namespace dayward {

XELEventMath::XELEventMath(std::optional<std::string> rrule, std::optional<Date> startDateDay,
                           std::vector<std::int64_t> startDateTimes)
    : startDateDay_(startDateDay) {
    setRrule(std::move(rrule));
    setStartDateTimes(std::move(startDateTimes));
}

void XELEventMath::setRrule(std::optional<std::string> rrule) {
    rrule_ = std::move(rrule);
    parsed_ = rrule_ ? ParsedRule::cached(*rrule_) : nullptr;
}

void XELEventMath::setStartDateTimes(std::vector<std::int64_t> times) {
    std::ranges::sort(times);
    startDateTimes_ = std::move(times);
}

std::vector<Date> XELEventMath::getStartDates() const {
    std::vector<Date> dates;
    if (!startDateDay_ || !hasIcalTime(*startDateDay_)) return dates;
    for (const std::int64_t minutes : startDateTimes_) {
        const Date date = dateWithTimesAsMinutes(*startDateDay_, minutes);
        if (hasIcalTime(date)) dates.push_back(date);
    }
    return dates;
}

std::optional<Date> XELEventMath::dateAfterDate(Date date) const {
    std::optional<Date> earliest;
    for (const Date start : getStartDates()) {
        const auto next = XELRRuleMath(parsed_, start).dateAfterDate(date);
        if (next && (!earliest || *next < *earliest)) earliest = next;
    }
    return earliest;
}

std::optional<Date> XELEventMath::dateAfterDate(Date date, std::optional<std::string> rrule,
                                                std::optional<Date> startDateDay,
                                                std::vector<std::int64_t> startDateTimes) {
    return XELEventMath(std::move(rrule), startDateDay, std::move(startDateTimes)).dateAfterDate(date);
}

std::vector<Date> XELEventMath::datesFromDate(Date fromDate, Date toDate, std::size_t maxCount) const {
    const auto starts = getStartDates();
    std::vector<Date> dates;
    if (starts.empty()) return dates;
    const std::size_t limit = maxCount / starts.size() + (maxCount % starts.size() != 0 ? 1 : 0);
    for (const Date start : starts) {
        const auto found = XELRRuleMath(parsed_, start).datesFromDate(fromDate, toDate, limit);
        dates.insert(dates.end(), found.begin(), found.end());
    }
    std::ranges::sort(dates);
    dates.erase(std::unique(dates.begin(), dates.end()), dates.end());
    return dates;
}

bool XELEventMath::isSteady() const {
    // One less than every month has: a skipped time may move an occurrence to the next day.
    constexpr int kSafeDays = 27;
    if (!parsed_) return true;
    if (parsed_->count() != 0) return false;
    if (parsed_->frequency() <= ParsedRule::Frequency::weekly) return true;
    if (parsed_->hasLists() || !startDateDay_ || !hasIcalTime(*startDateDay_)) return false;
    return Environment::current().calendar()->fields(*startDateDay_).day <= kSafeDays;
}

std::optional<Date> XELEventMath::lastDate() const {
    std::optional<Date> latest;
    for (const Date start : getStartDates()) {
        const auto last = XELRRuleMath(parsed_, start).lastDate();
        if (last && (!latest || *last > *latest)) latest = last;
    }
    return latest;
}

}  // namespace dayward
