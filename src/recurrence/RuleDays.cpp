#include "recurrence/RuleDays.h"

#include <algorithm>
#include <bit>
#include <bitset>
#include <cstdlib>
#include <utility>

#include "platform/CivilDay.h"
#include "recurrence/RuleWalk.h"

namespace dayward {

namespace {

using Frequency = ParsedRule::Frequency;
using Values = ParsedRule::Values;

bool holds(const Values& values, int value) { return std::ranges::find(values, value) != values.end(); }

/// The farthest position that a legal rule lists (see RuleWalk), from either end.
constexpr int kMostPositions = 366;

int daysInYear(int year) { return isLeapYear(year) ? 366 : 365; }

/// An item of BYDAY: 1 Sunday to 7 Saturday, and its ordinal, 0 for every one.
int weekdayOf(int item) { return std::abs(item) % 8; }
int ordinalOf(int item) { return item / 8; }

/// The number of a day's week among its year's, whose first week has four days of it or more. Days
/// beyond the year's own weeks bear a neighbouring year's number.
int weekOf(int year, int dayOfYear, int weekStart) {
    const auto number = [weekStart](int ofYear, int day) {
        const auto firstDay = weekdayIndexOf(dayNumberOf(ofYear, 1, 1)) + 1;
        const int into = (firstDay - weekStart + 7) % 7;
        return (day - 1 + into) / 7 + (7 - into >= 4 ? 1 : 0);
    };
    const int week = number(year, dayOfYear);
    if (week == 0) return number(year - 1, dayOfYear + daysInYear(year - 1));
    const int inNext = dayOfYear - daysInYear(year);
    return inNext > -6 && number(year + 1, inNext + 7) > 1 ? 1 : week;
}

/// By weeks from Monday, whatever the rule's own weeks begin with.
int weeksInYear(int year) {
    const int firstDay = weekdayIndexOf(dayNumberOf(year, 1, 1));
    return firstDay == 4 || (firstDay == 3 && isLeapYear(year)) ? 53 : 52;
}

/// The weeks of the year that the rule lists, a bit each; all of them where it lists none.
std::uint64_t listedWeeks(const ParsedRule& rule, int year) {
    if (rule.weeks().empty()) return ~0ULL;
    std::uint64_t weeks = 0;
    for (const int listed : rule.weeks()) weeks |= 1ULL << (listed < 0 ? listed + weeksInYear(year) + 1 : listed);
    return weeks;
}

}  // namespace

PeriodDays::Part PeriodDays::month(int year, int month) {
    const std::int64_t first = dayNumberOf(year, month, 1);
    const int length = daysInMonthOf(year, month);
    return {year, static_cast<int>(first - dayNumberOf(year, 1, 1)), length, weekdayIndexOf(first) + 1,
            weekdayIndexOf(first + length - 1) + 1};
}

PeriodDays::Part PeriodDays::wholeYear(int year) {
    const std::int64_t first = dayNumberOf(year, 1, 1);
    const int length = daysInYear(year);
    return {year, 0, length, weekdayIndexOf(first) + 1, weekdayIndexOf(first + length - 1) + 1};
}

/// libical's own length, which is up to six days off the last week's end.
PeriodDays::Part PeriodDays::weeksOf(int year, int weekStart) {
    const int into = (weekdayIndexOf(dayNumberOf(year, 1, 1)) + 8 - weekStart) % 7;
    const int before = (weekOf(year, 1, weekStart) > 1 ? 7 : 0) - into;
    return {year, before, 7 * weeksInYear(year) - before - 1, weekStart, weekStart + 6};
}

PeriodDays::PeriodDays(const ParsedRule& rule, const IcalTime& start, int year, int month) {
    if (month != 0) {
        expandMonth(rule, start, PeriodDays::month(year, month));
    } else {
        expandYear(rule, start, year);
    }
    if (!rule.setPositions().empty()) keepPositions(rule, month != 0 ? daysInMonthOf(year, month) : daysInYear(year));
}

int PeriodDays::after(int day) const {
    const std::size_t next = indexOf(day + 1);
    std::size_t word = next / 64;
    if (word >= words_.size()) return kEnd;
    std::uint64_t rest = words_[word] >> (next % 64) << (next % 64);
    while (rest == 0) {
        if (++word == words_.size()) return kEnd;
        rest = words_[word];
    }
    return kFirst + static_cast<int>(word * 64) + std::countr_zero(rest);
}

void PeriodDays::expandMonth(const ParsedRule& rule, const IcalTime& start, Part part) {
    part.before = 0;
    if (rule.days().empty() || !rule.daysOfMonth().empty()) addDaysOfMonth(rule, start, part);
    if (rule.days().empty()) return;
    total_ = 0;
    takeWeekdays(rule, part, !rule.daysOfMonth().empty());
}

/// The combinations that libical refuses in a year do not come here (see RuleWalk).
void PeriodDays::expandYear(const ParsedRule& rule, const IcalTime& start, int year) {
    const auto forEachMonth = [&](auto take) {
        if (rule.months().empty()) take(month(year, start.month));
        for (const int listed : rule.months()) take(month(year, listed));
    };
    const bool hasDays = !rule.days().empty(), hasDaysOfMonth = !rule.daysOfMonth().empty();
    if (!rule.daysOfYear().empty()) {
        addDaysOfYear(rule, daysInYear(year));
    } else if (!hasDays || hasDaysOfMonth) {
        forEachMonth([&](const Part& part) { addDaysOfMonth(rule, start, part); });
    }
    if (!hasDays) return;
    total_ = 0;
    const bool limits = !rule.daysOfYear().empty() || hasDaysOfMonth;
    if (!rule.months().empty()) {
        forEachMonth([&](const Part& part) { takeWeekdays(rule, part, limits); });
    } else {
        takeWeekdays(rule, rule.weeks().empty() ? wholeYear(year) : weeksOf(year, rule.weekStart()), limits);
    }
}

void PeriodDays::addDaysOfMonth(const ParsedRule& rule, const IcalTime& start, const Part& part) {
    const auto take = [&](int day) {
        if (std::abs(day) > part.length) return;
        add(part.before + (day > 0 ? day : part.length + 1 + day));
        ++total_;
    };
    if (rule.daysOfMonth().empty()) take(start.day);
    for (const int day : rule.daysOfMonth()) take(day);
}

void PeriodDays::addDaysOfYear(const ParsedRule& rule, int length) {
    for (const int day : rule.daysOfYear()) {
        if (std::abs(day) > length) continue;
        add(day > 0 ? day : length + 1 + day);
        ++total_;
    }
}

/// The part's weekdays of BYDAY; where they limit, those alone that were found before.
void PeriodDays::takeWeekdays(const ParsedRule& rule, const Part& part, bool limits) {
    const PeriodDays found = *this;
    for (int day = 1; day <= part.length; ++day) remove(part.before + day);
    const std::uint64_t weeks = listedWeeks(rule, part.year);
    for (const int item : rule.days()) addWeekdays(rule, part, item, weeks);
    const int end = part.before + part.length;
    for (int day = part.before; (day = after(day)) <= end;) {
        if (limits && !found.contains(day)) {
            remove(day);
        } else {
            ++total_;
        }
    }
}

void PeriodDays::addWeekdays(const ParsedRule& rule, const Part& part, int item, std::uint64_t weeks) {
    const int weekday = weekdayOf(item), ordinal = ordinalOf(item);
    const int earliest = (weekday + 7 - part.firstWeekday) % 7 + 1;
    const int latest = part.length - (part.lastWeekday + 7 - weekday) % 7;
    int day = ordinal < 0 ? latest + (ordinal + 1) * 7 : earliest + std::max(ordinal - 1, 0) * 7;
    if (ordinal != 0 && (day > latest || day < earliest)) return;
    // libical knows the week of the first one and counts up from there.
    int week = 1;
    if (part.before >= 0 && !rule.weeks().empty()) {
        week = weekOf(part.year, part.before + day, rule.weekStart());
        yearsBeyond_ = part.before + day > daysInYear(part.year) ? 1 : 0;
    }
    const int last = ordinal == 0 ? part.length : day;
    for (; day <= last; day += 7, ++week) {
        if ((weeks >> week & 1) != 0) add(part.before + day);
    }
}

/// Days of the neighbouring years have no position: those before fall out, those behind stay where any
/// other does.
void PeriodDays::keepPositions(const ParsedRule& rule, int length) {
    const PeriodDays all = *this;
    for (int day = kFirst; day < 1; ++day) remove(day);
    std::bitset<2 * kMostPositions + 1> listed;
    for (const int position : rule.setPositions()) listed.set(static_cast<std::size_t>(position + kMostPositions));
    const auto isListed = [&listed](int position) {
        return std::abs(position) <= kMostPositions && listed[static_cast<std::size_t>(position + kMostPositions)];
    };
    int position = 0;
    for (int day = 0; (day = all.after(day)) <= length; ++position) {
        if (!isListed(position + 1) && !isListed(position - total_)) remove(day);
    }
    if (after(0) > length) words_ = {};
}

RuleDays::RuleDays(const ParsedRule& rule, const IcalTime& start)
    : rule_(rule),
      start_(start),
      day_(dayNumberOf(start.year, start.month, start.day)),
      months_(start.year * 12LL + (rule.frequency() == Frequency::monthly ? start.month - 1 : 0)) {
    if (rule.frequency() == Frequency::weekly) beginWeeks();
}

std::optional<std::int64_t> RuleDays::next(std::int64_t skipTo) {
    static constexpr std::int64_t end = dayNumberOf(kLastRuleYear + 1, 1, 1);
    const auto day = rule_.frequency() == Frequency::weekly ? nextOfWeeks(skipTo) : nextOfPeriods();
    return day && *day < end ? day : std::nullopt;
}

bool RuleDays::isMonthListed(int month) const { return rule_.months().empty() || holds(rule_.months(), month); }

int RuleDays::daysIntoWeek(std::int64_t day) const { return (weekdayIndexOf(day) + 8 - rule_.weekStart()) % 7; }

/// libical moves the start to the first day of BYDAY. It takes the whole item for the weekday, so that
/// ordinals lead further, and a week from Monday for one from Sunday where the list has Sundays alone.
void RuleDays::beginWeeks() {
    if (rule_.days().empty()) return;
    const int weekday = weekdayIndexOf(day_) + 1;
    const int first = rule_.days()[0];
    int shift = first - weekday;
    if (shift != 0 && weekday < rule_.weekStart()) shift -= 7;
    if (shift < 0 || weekday < first) day_ += shift;
}

std::optional<std::int64_t> RuleDays::nextOfWeeks(std::int64_t skipTo) {
    CivilDay civil;
    do {
        if (std::exchange(hasBegun_, true)) goToNextInWeek(skipTo);
        if (rule_.months().empty()) break;
        civil = civilDayOf(day_);
    } while (civil.year <= kLastRuleYear && !isMonthListed(civil.month));
    return day_;
}

void RuleDays::goToNextInWeek(std::int64_t skipTo) {
    const std::int64_t step = 7LL * rule_.interval();
    const auto& days = rule_.days();
    if (days.empty()) {
        day_ += std::max<std::int64_t>(1, (skipTo - day_) / step) * step;
        return;
    }
    const std::int64_t week = day_ - daysIntoWeek(day_);
    while (++index_ < days.size()) {
        const std::int64_t day = week + (weekdayOf(days[index_]) + 7 - rule_.weekStart()) % 7;
        // libical passes over a day that lies in the year before.
        if (day < day_ && civilDayOf(day).year < civilDayOf(day_).year) continue;
        day_ = day;
        return;
    }
    index_ = 0;
    const std::int64_t first = week + (weekdayOf(days[0]) + 7 - rule_.weekStart()) % 7;
    day_ = first + std::max<std::int64_t>(1, (skipTo - first) / step) * step;
}

std::optional<std::int64_t> RuleDays::nextOfPeriods() {
    for (;;) {
        if (period_) {
            const bool isFirst = dayInPeriod_ < PeriodDays::kFirst;
            dayInPeriod_ = period_->after(dayInPeriod_);
            if (dayInPeriod_ != PeriodDays::kEnd) {
                return isFirst ? firstOfPeriod(dayInPeriod_) : periodStart_ + dayInPeriod_ - 1;
            }
            if (isFirst) months_ += period_->yearsBeyond() * 12LL;
        }
        if (!goToNextPeriod()) return std::nullopt;
    }
}

/// libical takes the first day of a set in the year to which its search has led, and in the set that it
/// begins with a day of the year before for one of the year itself.
std::int64_t RuleDays::firstOfPeriod(int day) {
    const auto year = static_cast<int>(months_ / 12) + period_->yearsBeyond();
    const bool isLater = std::exchange(isFirstPeriod_, false) && day < 1;
    const std::int64_t begin = period_->yearsBeyond() == 0 ? periodStart_ : dayNumberOf(year, 1, 1);
    return begin + day - 1 + (isLater ? daysInYear(year) : 0);
}

bool RuleDays::goToNextPeriod() {
    const bool isMonthly = rule_.frequency() == Frequency::monthly;
    do {
        if (std::exchange(hasBegun_, true)) months_ += rule_.interval() * (isMonthly ? 1LL : 12LL);
        if (months_ / 12 > kLastRuleYear) {
            months_ = (kLastRuleYear + 1) * 12LL;
            period_.reset();
            return false;
        }
    } while (isMonthly && !isMonthListed(static_cast<int>(months_ % 12) + 1));
    const int year = static_cast<int>(months_ / 12);
    const int month = static_cast<int>(months_ % 12) + 1;
    periodStart_ = dayNumberOf(year, month, 1);
    dayInPeriod_ = PeriodDays::kFirst - 1;
    period_.emplace(rule_, start_, year, isMonthly ? month : 0);
    return true;
}

}  // namespace dayward
