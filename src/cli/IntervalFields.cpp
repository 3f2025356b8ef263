#include "cli/IntervalFields.h"

#include <array>
#include <cmath>
#include <utility>

namespace dayward {

JSON intervalFieldsJSON(const XDIDateInterval& interval) {
    constexpr std::array<std::pair<CalendarUnit, const char*>, 7> kNames{{{CalendarUnit::year, "year"},
                                                                          {CalendarUnit::month, "month"},
                                                                          {CalendarUnit::week, "week"},
                                                                          {CalendarUnit::day, "day"},
                                                                          {CalendarUnit::hour, "hour"},
                                                                          {CalendarUnit::minute, "minute"},
                                                                          {CalendarUnit::second, "second"}}};
    constexpr double kExactIntegers = 9007199254740992.0;
    JSON fields = JSON::object();
    for (const auto& [unit, name] : kNames) {
        if (!interval.getUnits().contains(unit)) continue;
        const double value = interval.valueForUnit(unit);
        const bool whole = std::trunc(value) == value && std::abs(value) <= kExactIntegers;
        fields[name] = whole ? JSON(static_cast<std::int64_t>(value)) : JSON(value);
    }
    return fields;
}

}  // namespace dayward
