// The peer of the rows on rules: the jump straight on libical, without zones. The text is parsed, the
// start is moved to two to three intervals before the target, and libical's iterator does the rest.
#pragma once

#include <libical/ical.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <vector>

#include "recurrence/DateIcal.h"

namespace dayward::bench {

inline icaltimetype libicalTime(const IcalTime& time) {
    icaltimetype result = icaltime_null_time();
    result.year = time.year;
    result.month = time.month;
    result.day = time.day;
    result.hour = time.hour;
    result.minute = time.minute;
    result.second = time.second;
    icaltime_set_timezone(&result, icaltimezone_get_utc_timezone());
    return result;
}

inline IcalTime libicalJump(const icalrecurrencetype& rule, const IcalTime& start, const IcalTime& target) {
    static constexpr std::int64_t seconds[] = {1, 60, 3600, 86400, 7 * 86400};
    const bool hasLength = rule.freq <= ICAL_WEEKLY_RECURRENCE;
    const int months = (target.year - start.year) * 12 + target.month - start.month;
    const std::int64_t units = hasLength ? (secondsOf(target) - secondsOf(start)) / seconds[rule.freq]
                               : rule.freq == ICAL_MONTHLY_RECURRENCE ? months
                                                                      : target.year - start.year;
    const std::int64_t intervals = units / rule.interval;
    if (start < target && intervals < 3) return start;
    const std::int64_t moved = (start < target ? intervals - 2 : -1) * rule.interval;
    if (hasLength) return icalTimeOfSeconds(secondsOf(start) + moved * seconds[rule.freq]);
    const std::int64_t total =
        start.year * 12 + start.month - 1 + moved * (rule.freq == ICAL_MONTHLY_RECURRENCE ? 1 : 12);
    IcalTime result = start;
    result.year = static_cast<int>(total / 12);
    result.month = static_cast<int>(total % 12) + 1;
    result.day = std::min(start.day, icaltime_days_in_month(result.month, result.year));
    return result;
}

/// Occurrences after `from` and not after `to`, at most so many.
inline std::vector<icaltimetype> libicalBetween(const char* text, const IcalTime& start, const IcalTime& from,
                                                const IcalTime& to, std::size_t most) {
    const icalrecurrencetype rule = icalrecurrencetype_from_string(text);
    const icaltimetype jumped = libicalTime(libicalJump(rule, start, from));
    const icaltimetype after = libicalTime(from), until = libicalTime(to), first = libicalTime(start);
    const std::unique_ptr<icalrecur_iterator, void (*)(icalrecur_iterator*)> iterator(
        icalrecur_iterator_new(rule, jumped), icalrecur_iterator_free);
    std::vector<icaltimetype> found;
    while (iterator && found.size() < most) {
        const icaltimetype time = icalrecur_iterator_next(iterator.get());
        if (icaltime_is_null_time(time) || icaltime_compare(time, until) > 0) break;
        const bool isAnswer = icaltime_compare(time, after) > 0 && icaltime_compare(time, first) >= 0;
        if (isAnswer && icaltime_compare(time, jumped) != 0) found.push_back(time);
    }
    return found;
}

}  // namespace dayward::bench
