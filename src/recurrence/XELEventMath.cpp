#include "recurrence/XELEventMath.h"

#include <algorithm>
#include <utility>

#include "intervals/XELDateTime.h"
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
    findStartDates();
}

void XELEventMath::setStartDateDay(std::optional<Date> day) {
    startDateDay_ = day;
    findStartDates();
}

void XELEventMath::findStartDates() {
    startDates_.clear();
    if (!startDateDay_ || !hasIcalTime(*startDateDay_)) return;
    startDates_.reserve(startDateTimes_.size());
    for (const std::int64_t minutes : startDateTimes_) {
        const Date date = dateWithTimesAsMinutes(*startDateDay_, minutes);
        if (hasIcalTime(date)) startDates_.push_back(date);
    }
}

std::optional<Date> XELEventMath::dateAfterDate(Date date) const {
    std::optional<Date> earliest;
    for (const Date start : startDates_) {
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
    std::vector<Date> dates;
    if (startDates_.empty()) return dates;
    const std::size_t limit = maxCount / startDates_.size() + (maxCount % startDates_.size() != 0 ? 1 : 0);
    for (const Date start : startDates_) {
        const auto found = XELRRuleMath(parsed_, start).datesFromDate(fromDate, toDate, limit);
        dates.insert(dates.end(), found.begin(), found.end());
    }
    std::ranges::sort(dates);
    dates.erase(std::unique(dates.begin(), dates.end()), dates.end());
    return dates;
}

bool XELEventMath::isSteady() const { return !parsed_ || XELRRuleMath(parsed_, startDateDay_).isSteady(); }

std::optional<Date> XELEventMath::lastDate() const {
    std::optional<Date> latest;
    for (const Date start : startDates_) {
        const auto last = XELRRuleMath(parsed_, start).lastDate();
        if (last && (!latest || *last > *latest)) latest = last;
    }
    return latest;
}

}  // namespace dayward
