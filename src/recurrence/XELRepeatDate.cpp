#include "recurrence/XELRepeatDate.h"

#include <algorithm>

#include "platform/Environment.h"
#include "recurrence/DateIcal.h"

namespace dayward {

namespace {

/// More periods than any date can be away, and few enough to count with.
constexpr std::int64_t kMostUnits = 100'000'000'000'000;

}  // namespace

XELRepeatDate::XELRepeatDate(Date start, CalendarUnit repeatUnit, std::uint64_t repeatValue)
    : start_(start),
      repeatUnit_(repeatUnit),
      repeatValue_(repeatValue),
      calendar_(Environment::current().calendar()) {}

std::optional<Date> XELRepeatDate::dateForPeriod(std::int64_t period) const {
    std::int64_t units = 0;
    if (repeatValue_ > static_cast<std::uint64_t>(kMostUnits)) {
        if (period != 0) return std::nullopt;
    } else if (__builtin_mul_overflow(period, static_cast<std::int64_t>(repeatValue_), &units)) {
        return std::nullopt;
    }
    if (units > kMostUnits || units < -kMostUnits || !hasIcalTime(start_)) return std::nullopt;
    return calendar_->dateByAddingUnit(repeatUnit_, units, start_);
}

std::int64_t XELRepeatDate::periodToDate(Date date) const {
    if (!repeats() || repeatValue_ > static_cast<std::uint64_t>(kMostUnits)) return 0;
    if (!hasIcalTime(start_) || !hasIcalTime(date)) return 0;
    const DateComponents distance = calendar_->components(repeatUnit_, start_, date);
    const auto* units = distance.field(repeatUnit_);
    return units == nullptr ? 0 : units->value_or(0) / static_cast<std::int64_t>(repeatValue_);
}

bool XELRepeatDate::testDate(Date date, std::optional<Date> fromDate, std::optional<Date> toDate) const {
    if (date < start_ || (fromDate && date < *fromDate) || (toDate && date > *toDate)) return false;
    return delegate == nullptr || delegate->repeatDate(*this, date);
}

std::int64_t XELRepeatDate::firstPeriodFor(Date date) const {
    return std::max<std::int64_t>(periodToDate(date) - 1, 0);
}

std::optional<Date> XELRepeatDate::nextDateAfter(Date date) const {
    const Date from = std::max(date, start_);
    if (!repeats()) return testDate(start_, from, std::nullopt) ? std::optional(start_) : std::nullopt;
    const std::int64_t first = firstPeriodFor(from);
    for (int i = 0; i < kMaximumTries; ++i) {
        const auto candidate = dateForPeriod(first + i);
        if (!candidate) break;
        if (testDate(*candidate, from, std::nullopt)) return candidate;
    }
    return std::nullopt;
}

std::vector<Date> XELRepeatDate::nextDatesAfter(Date date, Date to) const {
    std::vector<Date> dates;
    const Date from = std::max(date, start_);
    if (from > to) return dates;
    if (!repeats()) {
        if (testDate(start_, from, to)) dates.push_back(start_);
        return dates;
    }
    const std::int64_t first = firstPeriodFor(from);
    for (int i = 0; i < kMaximumTries; ++i) {
        const auto candidate = dateForPeriod(first + i);
        if (!candidate || *candidate > to) break;
        if (testDate(*candidate, from, to)) dates.push_back(*candidate);
    }
    return dates;
}

std::optional<Date> XELRepeatDate::previosDateTo(Date date) const {
    if (!repeats()) return testDate(start_, std::nullopt, date) ? std::optional(start_) : std::nullopt;
    const std::int64_t last = periodToDate(date) + 1;
    for (std::int64_t period = last; period >= 0 && period > last - kMaximumTries; --period) {
        const auto candidate = dateForPeriod(period);
        if (candidate && testDate(*candidate, std::nullopt, date)) return candidate;
    }
    return std::nullopt;
}

}  // namespace dayward
