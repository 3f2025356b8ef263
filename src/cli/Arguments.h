// What a user types, turned into the system's values. Every failure is one line that quotes the text
// and says what was expected (domain "argument"). Any thread with a current environment.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "intervals/TextStyle.h"
#include "intervals/XDIDateInterval.h"
#include "platform/CalendarUnit.h"
#include "platform/Color.h"
#include "platform/Date.h"
#include "platform/Result.h"

namespace dayward {

/// A local ISO 8601 date or time ("2027-03-14", "2027-03-14T09:00", with or without offset), or
/// "today", "tomorrow", "yesterday" (the start of that day) or "now".
Result<Date> parseMoment(std::string_view text);

/// "HH:MM", 00:00 to 23:59, as minutes after midnight.
Result<std::int64_t> parseTimeOfDay(std::string_view text);

/// The reverse, "09:30".
std::string timeOfDayText(std::int64_t minutes);

/// "daily", "weekly", "monthly", "yearly", "hourly", "never", or a rule string, which comes back in
/// its normal form. "never" is nothing.
Result<std::optional<std::string>> parseRepeat(std::string_view text);

/// Amounts with units: "2 hours", "1 day 12 hours", "1w". Units by name, plural or initial
/// (y, mo, w, d, h, m, s). No unit may stand twice.
Result<XDIDateInterval> parseInterval(std::string_view text);

/// "on event", "1 day before", "2 hours after". The result is an offset before the occurrence:
/// unset for "on event", negative for "after".
Result<XDIDateInterval> parseAlert(std::string_view text);

/// Units by name, separated by commas.
Result<CalendarUnits> parseUnits(std::string_view text);

/// "number", "symbol", "short" or "full" as the text style.
Result<TextStyle> parseTextStyle(std::string_view text);

/// "#RRGGBB" or "#RRGGBBAA".
Result<Color> parseColor(std::string_view text);

/// A whole decimal number in the given range.
Result<std::int64_t> parseInteger(std::string_view text, std::int64_t minimum, std::int64_t maximum);

}  // namespace dayward
