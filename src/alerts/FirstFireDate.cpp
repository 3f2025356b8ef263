#include "alerts/FirstFireDate.h"

#include <algorithm>

#include "Classes/Event/HHEvent.h"
#include "platform/Environment.h"
#include "recurrence/DateIcal.h"
#include "recurrence/XELEventMath.h"

namespace dayward {

namespace {

constexpr std::size_t kMostKnown = 64;
/// The clock goes forward by no more, where an island changes the side of the date line.
constexpr TimeInterval kLongerThanAnyGap{25 * 3600.0};
/// The last of a month may have an hour more.
constexpr TimeInterval kLongestDay{25 * 3600.0};

XELEventMath mathOf(const HHEvent& event) { return {event.rrule(), event.date(), event.times()}; }

std::optional<Date> earlier(std::optional<Date> one, std::optional<Date> other) {
    if (!one || !other) return one ? one : other;
    return std::min(*one, *other);
}

}  // namespace

FirstFireDate::FirstFireDate() : calendar_(Environment::current().calendar()), now_(Environment::current().now()) {
    known_.reserve(kMostKnown);
}

std::optional<FirstFireDate::Answer> FirstFireDate::of(const HHEvent& event) {
    if (!event.alerts().list) return std::nullopt;
    setOffsets(*event.alerts().list);
    std::optional<Date> earliestFrom;
    for (const Offset& offset : offsets_) earliestFrom = earlier(earliestFrom, offset.from);
    if (!earliestFrom) return std::nullopt;
    const XELEventMath math = mathOf(event);
    if (!math.isSteady() || !hasIcalTime(*earliestFrom)) return Answer{now_, false};
    const auto first = math.dateAfterDate(*earliestFrom);
    if (!first) return std::nullopt;
    std::optional<Date> begin;
    for (const Offset& offset : offsets_) {
        if (!offset.from) continue;
        // The first occurrence for this alert is a later one, and its fire date may be any.
        if (*first <= *offset.from) return Answer{now_, false, first};
        begin = earlier(begin, bound(offset, *first));
    }
    return Answer{*begin};
}

std::optional<Date> FirstFireDate::sharpened(const HHEvent& event, const Answer& answer) {
    const XELEventMath math = mathOf(event);
    setOffsets(*event.alerts().list);
    std::optional<Date> begin;
    for (const Offset& offset : offsets_) {
        if (!offset.from) continue;
        const auto& known = answer.firstOccurrence;
        const auto first = known && *known > *offset.from ? known : math.dateAfterDate(*offset.from);
        if (first) begin = earlier(begin, bound(offset, *first));
    }
    return begin;
}

void FirstFireDate::setOffsets(const std::vector<XDIDateInterval>& alerts) {
    const auto isOf = [](const Offset& offset, const XDIDateInterval& alert) { return offset.alert.hasSameFields(alert); };
    if (std::ranges::equal(offsets_, alerts, isOf)) return;
    offsets_.clear();
    for (const XDIDateInterval& alert : alerts) offsets_.push_back(offsetOf(alert));
}

const FirstFireDate::Offset& FirstFireDate::offsetOf(const XDIDateInterval& alert) {
    const auto found = std::ranges::find_if(known_, [&](const Offset& one) { return one.alert.hasSameFields(alert); });
    if (found != known_.end()) return *found;
    if (known_.size() == kMostKnown) known_.pop_back();
    return known_.emplace_back(makeOffset(alert));
}

FirstFireDate::Offset FirstFireDate::makeOffset(const XDIDateInterval& alert) const {
    Offset offset;
    offset.alert = alert;
    offset.from = calendar_->dateByAddingComponents(alert.dateComponents(), now_);
    const DateComponents back = alert.dateComponentsWithMultiplier(-1.0);
    offset.calendarBack.year = back.year;
    offset.calendarBack.month = back.month;
    offset.calendarBack.week = back.week;
    offset.calendarBack.day = back.day;
    offset.hasMonths = back.year || back.month;
    offset.hasCalendarPart = offset.hasMonths || back.week || back.day;
    const auto length = [](const std::optional<std::int64_t>& count, double seconds) {
        return static_cast<double>(count.value_or(0)) * seconds;
    };
    offset.lengthBack = TimeInterval(length(back.hour, 3600) + length(back.minute, 60) + length(back.second, 1));
    return offset;
}

// A later occurrence has no earlier fire date, with two exceptions: a fire date whose time the clock skips comes
// later by the gap's length, behind those of times after the gap; and the last days of a long month become one
// day of a short one, where only the time of day counts.
Date FirstFireDate::bound(const Offset& offset, Date firstOccurrence) const {
    Date fires = firstOccurrence;
    if (offset.hasCalendarPart) {
        const auto day = calendar_->dateByAddingComponents(offset.calendarBack, firstOccurrence);
        if (!day) return now_;
        const TimeZone& zone = calendar_->timeZone();
        const std::int64_t gap = zone.secondsFromUTC(*day) - zone.secondsFromUTC(*day - kLongerThanAnyGap);
        fires = gap > 0 ? *day - TimeInterval(static_cast<double>(gap)) : *day;
        if (offset.hasMonths) fires = fires - kLongestDay;
    }
    return std::max(fires + offset.lengthBack, now_);
}

}  // namespace dayward
