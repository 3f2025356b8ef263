#include "recurrence/RuleEvaluation.h"

#include "platform/Calendar.h"

namespace dayward {

namespace {

using Frequency = ParsedRule::Frequency;
using Rule = std::shared_ptr<const ParsedRule>;

/// A jump over whole weeks is taken where it cannot change an answer. Rules of a day and less need
/// none, since their walk skips by itself; days with ordinals shift a weekly rule's first week.
WholeWeeks wholeWeeksFor(const ParsedRule& rule) {
    const bool isSafe = rule.count() == 0 && rule.frequency() == Frequency::weekly && !rule.hasNumberedDays();
    return isSafe ? WholeWeeks::counted : WholeWeeks::ignored;
}

RuleAnswers answersBeforeEnd(const Rule& rule, const IcalTime& start, std::int64_t secondsBeforeEnd) {
    const IcalTime& end = *rule->until();
    return {rule, start, end, WholeWeeks::ignored, icalTimeOfSeconds(secondsOf(end) - secondsBeforeEnd)};
}

/// The last occurrence of a rule of a day or less. A walk can begin anywhere but not go backwards, so
/// the latest beginning that still has an answer is searched, by doubling and then by halves.
std::optional<IcalTime> lastStep(const Rule& rule, const IcalTime& start) {
    const auto hasAnswer = [&](std::int64_t distance) {
        return answersBeforeEnd(rule, start, distance).first().has_value();
    };
    const std::int64_t whole = secondsOf(*rule->until()) - secondsOf(start) + 2;
    std::int64_t without = 0;
    std::int64_t with = 3600;
    while (with < whole && !hasAnswer(with)) {
        without = with;
        with *= 2;
    }
    if (with >= whole && !hasAnswer(with)) return std::nullopt;
    while (with - without > 3600) {
        const std::int64_t middle = (with + without) / 2;
        (hasAnswer(middle) ? with : without) = middle;
    }
    return answersBeforeEnd(rule, start, with).last();
}

}  // namespace

RuleAnswers::RuleAnswers(const Rule& rule, const IcalTime& start, const IcalTime& target, WholeWeeks wholeWeeks,
                         const std::optional<IcalTime>& skipTo)
    : start_(start) {
    if (rule->interval() < 1) return;
    const IcalTime jumped = jumpedStart(*rule, start, target, wholeWeeks);
    // A step back that leaves the calendar's years is not taken; the start is then its own answer.
    const bool canWalk = jumped.year >= 0 && jumped.day <= Calendar::daysInMonth(jumped.year, jumped.month);
    if (canWalk) passedOver_ = jumped;
    walk_ = RuleWalk::from(ParsedRule::anchored(rule, start), canWalk ? jumped : start, skipTo);
}

RuleAnswers RuleAnswers::after(const Rule& rule, const IcalTime& start, const IcalTime& target, const IcalTime& time) {
    return {rule, start, target, wholeWeeksFor(*rule), time};
}

std::optional<IcalTime> RuleAnswers::next() {
    while (walk_) {
        const auto time = walk_->next();
        if (!time) break;
        if (time != passedOver_ && *time >= start_) return time;
    }
    return std::nullopt;
}

std::optional<IcalTime> RuleAnswers::first() {
    passedOver_.reset();
    return next();
}

std::optional<IcalTime> RuleAnswers::last() {
    const auto time = walk_ ? walk_->last() : std::nullopt;
    return time && *time >= start_ ? time : std::nullopt;
}

std::optional<IcalTime> lastOccurrence(const Rule& rule, const IcalTime& start) {
    if (!rule->until()) return std::nullopt;
    if (rule->frequency() <= Frequency::daily) return lastStep(rule, start);
    return RuleAnswers(rule, start, *rule->until(), WholeWeeks::ignored, std::nullopt).last();
}

}  // namespace dayward
