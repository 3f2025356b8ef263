#include "recurrence/ClosedForm.h"

#include <algorithm>
#include <utility>

#include "platform/CivilDay.h"
#include "recurrence/RuleJump.h"
#include "recurrence/RuleWalk.h"

namespace dayward {

namespace {

using Frequency = ParsedRule::Frequency;

constexpr std::int64_t kSecondsPerDay = 86400;
constexpr std::int64_t kSecondsPerWeek = 7 * kSecondsPerDay;
constexpr std::int64_t kFirstSecond = dayNumberOf(0, 1, 1) * kSecondsPerDay;
constexpr std::int64_t kLastSecond = dayNumberOf(kLastRuleYear + 1, 1, 1) * kSecondsPerDay - 1;
/// Farther back than any step over 29 February can lead.
constexpr int kMostLeapSteps = 400;

bool isOfCalendar(const IcalTime& time) {
    return time.month >= 1 && time.month <= 12 && time.day >= 1 &&
           time.day <= daysInMonthOf(time.year, time.month) && time.hour >= 0 && time.hour < 24 &&
           time.minute >= 0 && time.minute < 60 && time.second >= 0 && time.second < 60;
}

/// Rules of a second to a week: steps of one length.
std::int64_t stepAfter(const ParsedRule& rule, std::int64_t start, std::int64_t after) {
    const std::int64_t step = secondsPerUnit(rule.frequency()) * rule.interval();
    const std::int64_t steps = after < start ? 0 : (after - start) / step + 1;
    if (rule.count() != 0) {
        std::int64_t jumped = start - step < kFirstSecond ? 0 : -1;
        if (start < after) {
            const bool isIgnored = (after - start) % kSecondsPerWeek == 0;
            jumped = isIgnored || steps - 1 < 3 ? 0 : steps - 3;
        }
        if (steps - jumped >= rule.count()) return kNoOccurrence;
    }
    return start + steps * step;
}

/// Steps of months, on one day at one time of day, where the month has that day.
class MonthSteps {
public:
    MonthSteps(const ParsedRule& rule, std::int64_t start)
        : count_(rule.count()),
          start_(start),
          step_(rule.interval() * (rule.frequency() == Frequency::yearly ? 12LL : 1LL)) {
        const std::int64_t day = floorDivide(start, kSecondsPerDay);
        const CivilDay civil = civilDayOf(day);
        secondOfDay_ = start - day * kSecondsPerDay;
        startMonth_ = month_ = civil.year * 12 + civil.month - 1;
        day_ = civil.day;
    }

    /// As jumpedStart does it; the jumped start itself is no answer.
    void jump(Frequency frequency, std::int64_t after) {
        const bool isYearly = frequency == Frequency::yearly;
        std::int64_t intervals = -1;
        if (start_ < after) {
            const CivilDay target = civilDayOf(floorDivide(after, kSecondsPerDay));
            targetMonth_ = target.year * 12 + target.month - 1;
            const std::int64_t years = target.year - startMonth_ / 12;
            const std::int64_t distance = (isYearly ? years * 12 : targetMonth_ - startMonth_) / step_;
            intervals = distance < 3 ? 0 : distance - 2;
        }
        for (int tries = 0; isYearly && tries < kMostLeapSteps && !hasDay(startMonth_ + intervals * step_);
             ++tries) {
            --intervals;
        }
        const std::int64_t jumped = startMonth_ + intervals * step_;
        if (jumped < 0 || (isYearly && !hasDay(jumped))) return;
        month_ = jumped;
        if (day_ > 28) day_ = std::min(day_, lengthOf(jumped));
        passesOver_ = true;
    }

    std::int64_t firstAfter(std::int64_t after) {
        const std::int64_t end = (kLastRuleYear + 1) * 12LL;
        // Without a count there is nothing to look at before the target's month.
        if (count_ == 0 && month_ + step_ <= targetMonth_) {
            month_ += (targetMonth_ - month_) / step_ * step_;
            passesOver_ = false;
        }
        for (std::int64_t occurrences = 0; month_ < end; month_ += step_) {
            if (!hasDay(month_)) continue;
            if (count_ != 0 && ++occurrences > count_) break;
            if (std::exchange(passesOver_, false)) continue;
            const std::int64_t time = timeIn(month_);
            if (time > after && time >= start_) return time;
        }
        return kNoOccurrence;
    }

private:
    static int lengthOf(std::int64_t month) {
        const std::int64_t year = floorDivide(month, 12);
        return daysInMonthOf(year, static_cast<int>(month - year * 12) + 1);
    }
    [[nodiscard]] bool hasDay(std::int64_t month) const { return day_ <= 28 || day_ <= lengthOf(month); }
    [[nodiscard]] std::int64_t timeIn(std::int64_t month) const {
        return dayNumberOf(month / 12, static_cast<int>(month % 12) + 1, day_) * kSecondsPerDay + secondOfDay_;
    }

    std::int64_t count_;
    std::int64_t start_, step_;
    std::int64_t startMonth_, month_;  ///< since the year 0
    std::int64_t targetMonth_ = 0;     ///< 0 where the start is not before the target
    std::int64_t secondOfDay_;
    int day_;
    bool passesOver_ = false;
};

}  // namespace

bool hasClosedForm(const ParsedRule& rule) {
    return rule.canOccur() && rule.count() >= 0 && !rule.hasLists() &&
           (!rule.until() || isOfCalendar(*rule.until()));
}

std::int64_t closedOccurrenceAfter(const ParsedRule& rule, std::int64_t start, std::int64_t after) {
    std::int64_t last = kLastSecond;
    // A date without a time of day ends before that day.
    if (rule.until()) last = std::min(last, secondsOf(*rule.until()) - (rule.until()->hasTime ? 0 : 1));
    if (after >= last) return kNoOccurrence;
    std::int64_t time = 0;
    if (rule.frequency() <= Frequency::weekly) {
        time = stepAfter(rule, start, after);
    } else {
        MonthSteps steps(rule, start);
        steps.jump(rule.frequency(), after);
        time = steps.firstAfter(after);
    }
    return time <= last ? time : kNoOccurrence;
}

}  // namespace dayward
