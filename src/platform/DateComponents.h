// Calendar fields, each possibly undefined.
#pragma once

#include <cstdint>
#include <optional>

#include "platform/CalendarUnit.h"

namespace dayward {

/// The fields of a date, or an amount of each unit to add. A plain value; an empty field is
/// undefined. Weekdays count from 1 (Sunday) to 7 (Saturday), months from 1.
struct DateComponents {
    std::optional<std::int64_t> era;
    std::optional<std::int64_t> year;
    std::optional<std::int64_t> month;
    std::optional<std::int64_t> week;  ///< the older week unit (flag 256): in differences and additions, weeks of 7 days; as a field, the week of the year
    std::optional<std::int64_t> day;
    std::optional<std::int64_t> hour;
    std::optional<std::int64_t> minute;
    std::optional<std::int64_t> second;
    std::optional<std::int64_t> weekday;
    std::optional<std::int64_t> weekdayOrdinal;
    std::optional<std::int64_t> quarter;
    std::optional<std::int64_t> weekOfMonth;
    std::optional<std::int64_t> weekOfYear;
    std::optional<std::int64_t> yearForWeekOfYear;
    std::optional<std::int64_t> nanosecond;

    bool operator==(const DateComponents&) const = default;

    /// The field of any one unit flag; null for a flag that has no field.
    [[nodiscard]] const std::optional<std::int64_t>* field(CalendarUnit unit) const;
    [[nodiscard]] std::optional<std::int64_t>* field(CalendarUnit unit);
};

}  // namespace dayward
