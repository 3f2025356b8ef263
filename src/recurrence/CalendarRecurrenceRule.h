// A recurrence rule as a calendar service hands it out: what an imported event repeats by.
// A plain record; any thread.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "platform/Date.h"

namespace dayward {

struct CalendarRecurrenceRule {
    enum class Frequency { daily = 0, weekly = 1, monthly = 2, yearly = 3 };
    struct DayOfWeek {
        std::int64_t dayOfTheWeek = 0;  ///< 1 Sunday to 7 Saturday
        std::int64_t weekNumber = 0;    ///< 0: every such day
    };
    /// An end by date, or by the number of occurrences (0: none).
    struct End {
        std::optional<Date> endDate;
        std::uint64_t occurrenceCount = 0;
    };
    using Numbers = std::vector<std::int64_t>;

    Frequency frequency = Frequency::daily;
    std::int64_t interval = 1;
    std::optional<std::vector<DayOfWeek>> daysOfTheWeek;
    std::optional<Numbers> daysOfTheMonth;
    std::optional<Numbers> daysOfTheYear;
    std::optional<Numbers> weeksOfTheYear;
    std::optional<Numbers> monthsOfTheYear;
    std::optional<Numbers> setPositions;
    std::optional<End> recurrenceEnd;
};

}  // namespace dayward
