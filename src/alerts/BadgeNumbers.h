// Numbers of days to or from an event, as of a moment and for the time after it.
//
// Days before: a day is 86400 seconds, a begun one counts whole, and so does a begun second: exactly 24 hours
// before it is 1, a moment earlier 2. Without an occurrence ahead it is 0.
// Days after: whole days on the wall clock since the latest occurrence; 0 until the first one.
// Any thread with a current environment, whose zone's wall clock counts.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "platform/Date.h"

namespace dayward {

class HHEvent;

using Events = std::vector<std::shared_ptr<HHEvent>>;

/// From that moment on the number is this one.
struct BadgeChange {
    Date date;
    std::int64_t number = 0;
    bool operator==(const BadgeChange&) const = default;
};

/// To the nearest coming occurrence of all these events.
std::int64_t daysBefore(const Events& events, Date now);
/// Every change after now and not after `until`, in order.
std::vector<BadgeChange> changesOfDaysBefore(const Events& events, Date now, Date until);

/// From the latest occurrence that has begun.
std::int64_t daysAfter(const HHEvent& event, Date now);
std::vector<BadgeChange> changesOfDaysAfter(const HHEvent& event, Date now, Date until);

}  // namespace dayward
