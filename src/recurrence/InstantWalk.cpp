#include "recurrence/InstantWalk.h"

#include <algorithm>
#include <cmath>

#include "platform/CivilDay.h"
#include "recurrence/ClosedForm.h"
#include "recurrence/RuleWalk.h"

namespace dayward {

namespace {

constexpr double kSecondsPerDay = 86400;

Date wholeSeconds(Date date) { return Date::since1970(std::floor(date.secondsSince1970())); }

/// The time that the wall clock shows at the instant; or the skipped time that the instant answers,
/// since the later skipped ones are still to come.
IcalTime timeBehindGap(Date date, const Calendar& calendar) {
    const IcalTime shown = notz_icaltime(date, calendar);
    const TimeZone& zone = calendar.timeZone();
    const std::int64_t gap = zone.secondsFromUTC(date) - zone.secondsFromUTC(date - TimeInterval(kSecondsPerDay));
    if (gap <= 0) return shown;
    const IcalTime earlier = icalTimeOfSeconds(secondsOf(shown) - gap);
    return notz_dateForICalTime(earlier, calendar) == wholeSeconds(date) ? earlier : shown;
}

RuleAnswers answersAfter(const std::shared_ptr<const ParsedRule>& rule, Date startDate, Date after,
                         const Calendar& calendar) {
    const IcalTime time = timeBehindGap(after, calendar);
    // COUNT is counted from where the jump leads, so that the clock's gap must not move it.
    const IcalTime target = rule->count() != 0 ? notz_icaltime(after, calendar) : time;
    return RuleAnswers::after(rule, notz_icaltime(startDate, calendar), target, time);
}

std::int64_t wholeSecondsSince1970(Date date) {
    return static_cast<std::int64_t>(std::floor(date.secondsSince1970()));
}

/// What the wall clock shows, in seconds since 1970.
std::int64_t shownAt(Date date, const TimeZone& zone) {
    return wholeSecondsSince1970(date) + zone.secondsFromUTC(date);
}

bool isYearOfRules(std::int64_t seconds) {
    static constexpr std::int64_t begin = dayNumberOf(0, 1, 1) * 86400,
                                  end = dayNumberOf(kLastRuleYear + 1, 1, 1) * 86400;
    return seconds >= begin && seconds < end;
}

/// The first occurrence after a time, both on the wall clock in seconds since 1970; or kNoOccurrence.
std::int64_t occurrenceAfter(const std::shared_ptr<const ParsedRule>& rule, std::int64_t start,
                             std::int64_t after) {
    if (hasClosedForm(*rule)) return closedOccurrenceAfter(*rule, start, after);
    const IcalTime target = icalTimeOfSeconds(after);
    RuleAnswers answers = RuleAnswers::after(rule, icalTimeOfSeconds(start), target, target);
    while (const auto time = answers.next()) {
        if (*time > target) return secondsOf(*time);
    }
    return kNoOccurrence;
}

/// The answer where it is certain without looking at later occurrences; the outer value is missing
/// where it is not.
std::optional<std::optional<Date>> answerOfStraightClock(const std::shared_ptr<const ParsedRule>& rule,
                                                         Date startDate, Date after, const TimeZone& zone) {
    const std::int64_t offset = zone.secondsFromUTC(after);
    const bool hasGapBefore = offset > zone.secondsFromUTC(after - TimeInterval(kSecondsPerDay));
    if (hasGapBefore) return std::nullopt;
    const std::int64_t start = shownAt(startDate, zone), shown = wholeSecondsSince1970(after) + offset;
    // While the start's hour is shown twice, the order of the clock is not that of the instants.
    if (!isYearOfRules(start) || (after < startDate && shown >= start)) return std::nullopt;
    const std::int64_t time = occurrenceAfter(rule, start, shown);
    if (time == kNoOccurrence) return std::optional<Date>();
    const Date instant = zone.instantOfLocal(static_cast<double>(time) - Date::kReferenceSince1970);
    const bool isSkipped = shownAt(instant, zone) != time;
    if (isSkipped || instant <= after || instant < wholeSeconds(startDate)) return std::nullopt;
    return instant;
}

}  // namespace

std::optional<Date> firstInstantAfter(const std::shared_ptr<const ParsedRule>& rule, Date startDate, Date after,
                                      const std::shared_ptr<const Calendar>& calendar) {
    if (!rule->canOccur()) return std::nullopt;
    const auto answer = answerOfStraightClock(rule, startDate, after, calendar->timeZone());
    return answer ? *answer : InstantWalk(rule, startDate, after, calendar).next();
}

bool answersSkippedTime(Date date, const Calendar& calendar) {
    return timeBehindGap(date, calendar) != notz_icaltime(date, calendar);
}

InstantWalk::InstantWalk(const std::shared_ptr<const ParsedRule>& rule, Date startDate, Date after,
                         std::shared_ptr<const Calendar> calendar)
    : calendar_(std::move(calendar)),
      startDate_(wholeSeconds(startDate)),
      laterPass_(startDate_ - notz_dateForICalTime(notz_icaltime(startDate, *calendar_), *calendar_)),
      last_(after),
      answers_(answersAfter(rule, startDate, after, *calendar_)) {}

std::optional<Date> InstantWalk::next() {
    while (found_.empty()) {
        const auto occurrence = take();
        if (!occurrence) return std::nullopt;
        if (occurrence->isSkipped) {
            takeGap(occurrence->instant);
        } else if (occurrence->instant > last_) {
            found_.push_back(occurrence->instant);
        }
    }
    last_ = found_.front();
    found_.pop_front();
    return last_;
}

std::optional<InstantWalk::Occurrence> InstantWalk::take() {
    const auto time = answers_.next();
    if (!time) return std::nullopt;
    return occurrenceAt(*time);
}

InstantWalk::Occurrence InstantWalk::occurrenceAt(const IcalTime& time) const {
    const Date instant = notz_dateForICalTime(time, *calendar_);
    const double shown =
        instant.secondsSince1970() + static_cast<double>(calendar_->timeZone().secondsFromUTC(instant));
    const bool isSkipped = shown != static_cast<double>(secondsOf(time));
    return {instant < startDate_ ? instant + laterPass_ : instant, isSkipped};
}

/// Skipped times are answered among the times that follow the gap, so both are taken before any is given.
void InstantWalk::takeGap(Date firstInstant) {
    found_.push_back(firstInstant);
    Date latest = firstInstant;
    while (const auto occurrence = take()) {
        found_.push_back(occurrence->instant);
        if (!occurrence->isSkipped && occurrence->instant > latest) break;
        latest = std::max(latest, occurrence->instant);
    }
    std::ranges::sort(found_);
    const auto repeated = std::ranges::unique(found_);
    found_.erase(repeated.begin(), repeated.end());
    std::erase_if(found_, [this](Date date) { return date <= last_; });
}

}  // namespace dayward
