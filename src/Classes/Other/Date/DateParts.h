// Parts of a date and the bounds of the periods around it, in the current calendar at each call.
//
// year, month, weekday, day, hour and minute of a date are the functions of DateExtensions.h, which
// read the same calendar. Where no calendar day can be built the process stops: that is a fault of
// the caller, since every date has its day. Fractions of a second are dropped. Any thread.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "Submodules/CorpLibrary2/Foundation/DateExtensions.h"
#include "platform/Date.h"
#include "platform/TimeZone.h"

namespace dayward {

/// An instant together with the zone in which it is meant.
struct ZonedDate {
    Date date;
    TimeZone zone;
    bool operator==(const ZonedDate&) const = default;
};

std::int64_t second(Date date);
/// The current calendar's zone.
TimeZone timeZone(Date date);
/// The zone that the date carries.
TimeZone timeZone(const ZonedDate& date);
/// The same instant, carrying the zone.
ZonedDate changeWithTimeZone(Date date, const TimeZone& zone);
/// That weekday (1 Sunday to 7 Saturday) of the date's week from Sunday to Saturday, time of day kept.
Date changeWithWeekday(Date date, int weekday);

/// A field that is not given has the value of now.
Date dateWithYear(std::optional<std::int64_t> year, std::optional<std::int64_t> month, std::optional<std::int64_t> day,
                  std::optional<std::int64_t> hour, std::optional<std::int64_t> minute,
                  std::optional<std::int64_t> second);
/// The same at 00:00:00.
Date dateWithYear(std::optional<std::int64_t> year, std::optional<std::int64_t> month, std::optional<std::int64_t> day);
Date today();
Date yesterday();
Date tomorrow();

// The first and the last second of the period around the date.
Date beginningOfYear(Date date);
Date endOfYear(Date date);
Date beginningOfMonth(Date date);
Date endOfMonth(Date date);
Date beginningOfWeek(Date date);  ///< weeks begin as the user's calendar has it
Date endOfWeek(Date date);
Date beginningOfDay(Date date);
Date endOfDay(Date date);
Date beginningOfHour(Date date);
Date endOfHour(Date date);
Date beginningOfMinute(Date date);
Date endOfMinute(Date date);

/// The date in a pattern (Unicode TR 35), in the current locale and zone.
std::string stringFromFormat(Date date, std::string_view format);
/// The date's day at so many minutes after midnight.
Date dateWithMunitesInDay(Date date, std::int64_t minutes);
/// Minutes after midnight.
std::int64_t munitesInDay(Date date);

}  // namespace dayward
