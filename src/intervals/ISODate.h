// Dates as ISO 8601 texts, the form of the command line and of events in JSON. Pure functions.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/Calendar.h"
#include "platform/Date.h"

namespace dayward {

/// "2027-03-14T09:00:00+03:00": the calendar's local time, without fractions of a second, and the
/// zone's offset. Years beyond four digits have a sign.
std::string isoText(Date date, const Calendar& calendar);
/// The same in the current environment's calendar.
std::string isoText(Date date);

/// The instant of "2027-03-14", "2027-03-14T09:00" or "2027-03-14T09:00:00.5", with a blank in place of
/// the T and with an offset ("Z", "+03:00") or without, which means the calendar's local time.
/// Nothing for a field out of range or anything before or behind.
std::optional<Date> dateFromISOText(std::string_view text, const Calendar& calendar);
/// The same in the current environment's calendar.
std::optional<Date> dateFromISOText(std::string_view text);

}  // namespace dayward
