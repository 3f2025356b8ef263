// Names of units for picker rows, with all plural forms of a language: 1 год, 2 года, 5 лет.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "intervals/TextStyle.h"
#include "intervals/UnitAgreement.h"
#include "platform/CalendarUnit.h"

namespace dayward {

/// The table that holds them. For a base such as "day", "day-symbol" or "day-short" it is asked in
/// turn for "day##21" (this very number), "day##x1" (the last digit, from 2 up), "day##plural" (from
/// 2 up) and "day". For UnitRole::period in the full style, the base is "day-period" where the table has
/// that for the number.
inline constexpr const char* kXIDLocaleTable = "XIDLocale";

/// The name of the unit for that many of it, the sign aside. Nothing for the value 0, for the style
/// `number` and for a unit without a name of its own.
[[nodiscard]] std::optional<std::string> xidLocaleName(CalendarUnit unit, std::int64_t value, TextStyle style,
                                                       UnitRole role = UnitRole::alone);

}  // namespace dayward
