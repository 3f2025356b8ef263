// The whole list by date at once. Each event is asked for its dates a single time; the order of dates is
// sorted as numbers, by digits, and names are compared among events of the same second only.
#pragma once

#include <optional>
#include <utility>
#include <vector>

#include "Classes/Interface/List/EventTableManager.h"

namespace dayward {

/// The sections in order, each with its rows in the order of EventDateRank, at this moment in the present
/// environment; equal rows keep their order. The events are moved from. Nothing, and the events untouched,
/// where a date is so far away (2^52 s) that whole seconds do not name it.
std::optional<std::vector<std::pair<EventSection, std::vector<EventRow>>>> arrangedByDate(
    std::vector<EventRow>& events);

}  // namespace dayward
