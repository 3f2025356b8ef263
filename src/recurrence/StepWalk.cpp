#include <algorithm>

#include "platform/CivilDay.h"
#include "recurrence/DayFilter.h"
#include "recurrence/RuleJump.h"
#include "recurrence/RuleWalk.h"

namespace dayward {

namespace {

using Frequency = ParsedRule::Frequency;

constexpr std::int64_t kSecondsPerDay = 86400;
/// Units that are tried between two occurrences before a walk gives up.
constexpr int kMaximumTries = 1'000'000;
/// Occurrences of a counted rule that are walked over before the first that is asked for.
constexpr int kMaximumCounted = 500'000;

bool holds(const ParsedRule::Values& values, int value) {
    return values.empty() || std::ranges::find(values, value) != values.end();
}

/// Steps through the units (days, hours, minutes or seconds since 1970) of a rule of a day or less.
class StepWalk final : public RuleWalk {
public:
    StepWalk(std::shared_ptr<const ParsedRule> rule, const IcalTime& start, const std::optional<IcalTime>& skipTo)
        : rule_(std::move(rule)),
          start_(start),
          offsets_(secondsWithinUnit(*rule_, start)),
          filter_(*rule_),
          lastDay_(dayNumberOf(lastYearOf(*rule_) + 1, 1, 0)) {
        unitSeconds_ = secondsPerUnit(rule_->frequency());
        unit_ = floorDivide(secondsOf(firstTime()), unitSeconds_);
        if (!skipTo) return;
        if (rule_->count() == 0) {
            skipTowards(secondsOf(*skipTo));
        } else {
            askedFrom_ = skipTo;
            if (!rule_->hasLists()) countTowards(secondsOf(*skipTo));
        }
    }

    std::optional<IcalTime> next() override {
        for (int tries = 0; tries < kMaximumTries && !isAtEnd_; ++tries) {
            const auto time = offset_ == 0 && !isUnitAllowed() ? std::nullopt : takeTime();
            if (time) return time;
        }
        isAtEnd_ = true;
        return std::nullopt;
    }

private:
    static int lastYearOf(const ParsedRule& rule) {
        return rule.until() ? std::min(rule.until()->year, kLastRuleYear) : kLastRuleYear;
    }

    /// libical begins at the first of the listed hours and minutes of the start's day, not at the
    /// start's own, and keeps that phase.
    [[nodiscard]] IcalTime firstTime() const {
        IcalTime first = start_;
        if (rule_->frequency() < Frequency::hourly && !rule_->hours().empty()) first.hour = rule_->hours()[0];
        if (rule_->frequency() < Frequency::minutely && !rule_->minutes().empty()) first.minute = rule_->minutes()[0];
        return first;
    }

    /// The rule's list of values for its own unit. It replaces the interval: the units of the list are
    /// taken in each bigger unit, beginning with the start's own unit in place of the first.
    [[nodiscard]] const ParsedRule::Values& ownValues() const {
        static const ParsedRule::Values none;
        switch (rule_->frequency()) {
            case Frequency::secondly: return rule_->seconds();
            case Frequency::minutely: return rule_->minutes();
            case Frequency::hourly: return rule_->hours();
            default: return none;
        }
    }
    [[nodiscard]] int unitsInBigger() const { return rule_->frequency() == Frequency::hourly ? 24 : 60; }

    /// The time at the present unit and offset, and a step to the following one; nothing where that
    /// time does not occur.
    std::optional<IcalTime> takeTime() {
        const IcalTime time = icalTimeOfSeconds(unit_ * unitSeconds_ + offsets_[offset_]);
        if (++offset_ == offsets_.size()) {
            offset_ = 0;
            advance();
        }
        if (isBeyondEnd(time)) isAtEnd_ = true;
        if (isAtEnd_ || time < start_) return std::nullopt;
        if (rule_->count() != 0 && ++occurrences_ >= rule_->count()) isAtEnd_ = true;
        if (askedFrom_ && time < *askedFrom_ && ++walkedOver_ > kMaximumCounted) isAtEnd_ = true;
        return time;
    }

    [[nodiscard]] bool isBeyondEnd(const IcalTime& time) const {
        return time.year > kLastRuleYear || (rule_->until() && time > *rule_->until());
    }

    /// Whether the rule's parts let the present unit occur; if not, goes on to where the part that
    /// forbids it changes.
    bool isUnitAllowed() {
        const std::int64_t seconds = unit_ * unitSeconds_;
        const std::int64_t day = floorDivide(seconds, kSecondsPerDay);
        if (day != allowedDay_ && !filter_.allows(day)) {
            const auto next = filter_.nextAfter(day, lastDay_);
            if (next) advanceTo(*next * kSecondsPerDay);
            isAtEnd_ = !next;
            return false;
        }
        allowedDay_ = day;
        const IcalTime time = icalTimeOfSeconds(seconds);
        const Frequency frequency = rule_->frequency();
        std::int64_t length = 0;
        if (frequency <= Frequency::hourly && !holds(rule_->hours(), time.hour)) {
            length = 3600;
        } else if (frequency <= Frequency::minutely && !holds(rule_->minutes(), time.minute)) {
            length = 60;
        } else if (frequency == Frequency::secondly && !holds(rule_->seconds(), time.second)) {
            length = 1;
        } else {
            return true;
        }
        if (isBeyondEnd(time)) isAtEnd_ = true;
        advanceTo((floorDivide(seconds, length) + 1) * length);
        return false;
    }

    void advance() {
        const auto& values = ownValues();
        if (values.empty()) {
            unit_ += rule_->interval();
            return;
        }
        std::int64_t bigger = floorDivide(unit_, unitsInBigger());
        if (++value_ == values.size()) {
            value_ = 0;
            ++bigger;
        }
        unit_ = bigger * unitsInBigger() + values[value_];
    }

    /// At least one step, and on to the last that is not beyond the first at or after that second.
    void advanceTo(std::int64_t seconds) {
        const auto& values = ownValues();
        if (values.empty()) {
            const std::int64_t step = unitSeconds_ * rule_->interval();
            const std::int64_t missing = seconds - unit_ * unitSeconds_;
            unit_ += std::max<std::int64_t>(1, floorDivide(missing + step - 1, step)) * rule_->interval();
            return;
        }
        const std::int64_t bigger = floorDivide(seconds, unitSeconds_ * unitsInBigger());
        if (bigger <= floorDivide(unit_, unitsInBigger())) {
            advance();
            return;
        }
        value_ = 0;
        unit_ = bigger * unitsInBigger() + values[0];
    }

    void skipTowards(std::int64_t seconds) {
        const std::int64_t margin = ownValues().empty() ? 2 * unitSeconds_ * rule_->interval() : 0;
        const std::int64_t length = ownValues().empty() ? margin : unitSeconds_ * unitsInBigger();
        if (seconds - margin - unit_ * unitSeconds_ > length) advanceTo(seconds - margin);
    }

    /// Without lists every step is one occurrence.
    void countTowards(std::int64_t seconds) {
        const std::int64_t step = unitSeconds_ * rule_->interval();
        const std::int64_t steps = floorDivide(seconds - unit_ * unitSeconds_, step) - 2;
        if (steps <= 0) return;
        unit_ += steps * rule_->interval();
        occurrences_ += steps;
        if (occurrences_ >= rule_->count()) isAtEnd_ = true;
    }

    std::shared_ptr<const ParsedRule> rule_;
    IcalTime start_;
    std::vector<int> offsets_;
    std::optional<IcalTime> askedFrom_;  ///< of counted rules
    int walkedOver_ = 0;
    std::int64_t unitSeconds_ = 1;
    std::int64_t unit_ = 0;
    std::size_t offset_ = 0;
    std::size_t value_ = 0;
    std::int64_t occurrences_ = 0;
    bool isAtEnd_ = false;
    DayFilter filter_;
    std::int64_t lastDay_;  ///< of the last year in which anything can occur
    std::int64_t allowedDay_ = INT64_MIN;
};

}  // namespace

std::unique_ptr<RuleWalk> makeStepWalk(std::shared_ptr<const ParsedRule> rule, const IcalTime& start,
                                       const std::optional<IcalTime>& skipTo) {
    return std::make_unique<StepWalk>(std::move(rule), start, skipTo);
}

}  // namespace dayward
