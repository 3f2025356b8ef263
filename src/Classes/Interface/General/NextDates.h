// The next occurrences of a rule, as rows under its editor.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "Classes/Interface/Screens/TableRow.h"
#include "platform/Date.h"

namespace dayward {

/// The first day of an event and its times of day.
struct EventStart {
    Date date;
    std::vector<std::int64_t> times{0};
};

inline constexpr std::size_t kNextDatesCount = 5;

/// The next kNextDatesCount occurrences after now, fewer where the rule ends; ascending.
std::vector<Date> nextDates(const std::optional<std::string>& rrule, const EventStart& start);
/// A section with a row for each of them, headed "Next dates"; nothing where there is none.
std::optional<TableSection> nextDatesSection(const std::optional<std::string>& rrule, const EventStart& start);

}  // namespace dayward
