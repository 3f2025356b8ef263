// Times of day as minutes after midnight, on a snapshot of the current calendar that is taken at
// first use in each environment. No lock is needed: calendars are immutable values. Any thread.
#pragma once

#include <cstdint>

#include "platform/Calendar.h"
#include "platform/Date.h"

namespace dayward {

/// Lives as long as the environment.
const Calendar& implCalendar();

/// Minutes after midnight; seconds are dropped.
std::int64_t timeAsMinutes(Date date);
/// That date's day at so many minutes after midnight, second 0.
Date dateWithTimesAsMinutes(Date date, std::int64_t minutes);
/// A date of which only the hour and the minute mean something: its day is the calendar's first.
Date dateWithTimeAsMinutes(std::int64_t minutes);

}  // namespace dayward
