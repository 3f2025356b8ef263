#include "Classes/Interface/Detail/EventDetailUnits.h"

#include <array>
#include <utility>

#include "intervals/NumberStyle.h"
#include "platform/Strings.h"

namespace dayward {

std::vector<DetailUnitRow> detailUnitRows(const XDIDateInterval& detailInterval) {
    constexpr std::array<std::pair<CalendarUnit, const char*>, 7> kRows{{{CalendarUnit::year, "Years"},
                                                                         {CalendarUnit::month, "Months"},
                                                                         {CalendarUnit::week, "Weeks"},
                                                                         {CalendarUnit::day, "Days"},
                                                                         {CalendarUnit::hour, "Hours"},
                                                                         {CalendarUnit::minute, "Minutes"},
                                                                         {CalendarUnit::second, "Seconds"}}};
    std::vector<DetailUnitRow> rows;
    for (const auto& [unit, label] : kRows) {
        if (!detailInterval.getUnits().contains(unit)) continue;
        const NumberStyle style = unit == CalendarUnit::second ? NumberStyle::whole : NumberStyle::twoDecimals;
        rows.push_back({localized(label), sharedNumberFormatter(style).string(detailInterval.valueForUnit(unit))});
    }
    return rows;
}

}  // namespace dayward
