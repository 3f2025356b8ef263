#include "recurrence/XELCalendarBase.h"

#include <algorithm>
#include <utility>

#include "intervals/XELDateTime.h"
#include "platform/Environment.h"
#include "platform/KeyedArchiver.h"
#include "platform/KeyedUnarchiver.h"
#include "recurrence/DateIcal.h"

namespace dayward {

void XELCalendarBase::setDate(std::optional<Date> date) {
    date_ = date;
    fieldsChanged();
}

void XELCalendarBase::setTimes(Numbers times) {
    times_ = std::move(times);
    fieldsChanged();
}

void XELCalendarBase::fieldsChanged() {
    repeatDates_.reset();
    clearCache();
}

std::optional<Date> XELCalendarBase::nextDate() { return nextDateFromDate(Environment::current().now()); }

std::optional<Date> XELCalendarBase::previousDate() { return previousDateToDate(Environment::current().now()); }

std::optional<Date> XELCalendarBase::nextDateFromDate(Date fromDate) {
    if (const auto known = cacheNextDateFromDate(fromDate)) return known;
    std::optional<Date> earliest;
    for (const XELRepeatDate& repeatDate : getRepeatDates()) {
        const auto date = repeatDate.nextDateAfter(fromDate);
        if (date && (!earliest || *date < *earliest)) earliest = date;
    }
    // A search that gave up proves nothing about the dates behind it, so only a date is kept.
    if (earliest) setCacheDate(earliest, fromDate, earliest);
    return earliest;
}

std::optional<Date> XELCalendarBase::previousDateToDate(Date toDate) {
    if (const auto known = cachePreviousDateToDate(toDate)) return known;
    std::optional<Date> latest;
    for (const XELRepeatDate& repeatDate : getRepeatDates()) {
        const auto date = repeatDate.previosDateTo(toDate);
        if (date && (!latest || *date > *latest)) latest = date;
    }
    if (latest) setCacheDate(latest, latest, toDate);
    return latest;
}

std::vector<Date> XELCalendarBase::nextDatesFromDate(Date fromDate, Date toDate) {
    std::vector<Date> dates;
    for (const XELRepeatDate& repeatDate : getRepeatDates()) {
        const auto found = repeatDate.nextDatesAfter(fromDate, toDate);
        dates.insert(dates.end(), found.begin(), found.end());
    }
    std::ranges::sort(dates);
    dates.erase(std::unique(dates.begin(), dates.end()), dates.end());
    return dates;
}

std::optional<Date> XELCalendarBase::cacheNextDateFromDate(Date fromDate) const {
    if (!cacheDates_ || fromDate < cacheDates_->fromDate || fromDate > cacheDates_->toDate) return std::nullopt;
    const auto found = std::ranges::lower_bound(cacheDates_->result, fromDate);
    return found == cacheDates_->result.end() ? std::nullopt : std::optional(*found);
}

std::optional<Date> XELCalendarBase::cachePreviousDateToDate(Date toDate) const {
    if (!cacheDates_ || toDate < cacheDates_->fromDate || toDate > cacheDates_->toDate) return std::nullopt;
    const auto found = std::ranges::upper_bound(cacheDates_->result, toDate);
    return found == cacheDates_->result.begin() ? std::nullopt : std::optional(*std::prev(found));
}

void XELCalendarBase::setCacheDate(std::optional<Date> cacheDate, std::optional<Date> fromDate,
                                   std::optional<Date> toDate) {
    setCacheDates(cacheDate ? std::vector<Date>{*cacheDate} : std::vector<Date>{}, fromDate, toDate);
}

void XELCalendarBase::setCacheDates(std::vector<Date> cacheDates, std::optional<Date> fromDate,
                                    std::optional<Date> toDate) {
    const auto from = fromDate ? fromDate : cacheMinDate;
    const auto to = toDate ? toDate : cacheMaxDate;
    if (!from || !to || *from > *to) return;
    std::ranges::sort(cacheDates);
    if (!cacheDates_ || *from > cacheDates_->toDate || *to < cacheDates_->fromDate) {
        cacheDates_ = KnownRange{*from, *to, std::move(cacheDates)};
        return;
    }
    cacheDates_->fromDate = std::min(cacheDates_->fromDate, *from);
    cacheDates_->toDate = std::max(cacheDates_->toDate, *to);
    std::vector<Date> merged;
    std::ranges::set_union(cacheDates_->result, cacheDates, std::back_inserter(merged));
    cacheDates_->result = std::move(merged);
}

void XELCalendarBase::clearCache() { cacheDates_.reset(); }

const std::vector<XELRepeatDate>& XELCalendarBase::getRepeatDates() {
    if (!repeatDates_) repeatDates_ = makeRepeatDates();
    return *repeatDates_;
}

std::vector<XELRepeatDate> XELCalendarBase::repeatDatesEvery(CalendarUnit unit, std::uint64_t value) const {
    std::vector<XELRepeatDate> dates;
    if (!date_ || !hasIcalTime(*date_)) return dates;
    for (const std::int64_t minutes : times_) {
        const Date start = dateWithTimesAsMinutes(*date_, minutes);
        if (!hasIcalTime(start)) continue;
        dates.emplace_back(start, unit, value);
        dates.back().delegate = this;
    }
    return dates;
}

void XELCalendarBase::encodeWithCoder(KeyedArchiver& coder) const {
    coder.encodeVersion(kArchiveVersion, kClassName);
    if (date_) coder.encodeObject(*date_, kDateKey);
    encodeNumbers(coder, times_, kTimesKey);
}

bool XELCalendarBase::decode(KeyedUnarchiver& coder) {
    for (const std::string& name : archiveClassNames()) {
        if (coder.decodeVersion(name).value_or(kArchiveVersion) != kArchiveVersion) return false;
    }
    date_ = coder.decodeDate(kDateKey);
    times_ = decodeNumbers(coder, kTimesKey).value_or(Numbers());
    return true;
}

std::shared_ptr<Archivable> XELCalendarBase::read(KeyedUnarchiver& coder) {
    auto calendar = std::make_shared<XELCalendarBase>();
    return calendar->decode(coder) ? calendar : nullptr;
}

std::optional<std::vector<std::int64_t>> decodeNumbers(KeyedUnarchiver& coder, std::string_view forKey) {
    const Object stored = coder.decodeObject(forKey);
    if (stored.array() == nullptr) return std::nullopt;
    std::vector<std::int64_t> numbers;
    for (const Object& item : *stored.array()) {
        if (const auto number = item.integer()) numbers.push_back(*number);
    }
    return numbers;
}

void encodeNumbers(KeyedArchiver& coder, const std::optional<std::vector<std::int64_t>>& numbers,
                   std::string_view forKey) {
    if (!numbers) return;
    coder.encodeObject(Array(numbers->begin(), numbers->end()), forKey);
}

}  // namespace dayward
