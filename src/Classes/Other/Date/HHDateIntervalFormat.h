// Words for an interval with the names of HHDateLocalize: "2 Days, 3 Hours".
//
// Settings only, no other state; one thread at a time, but the shared default may be used from any.
#pragma once

#include <map>
#include <optional>
#include <string>

#include "intervals/NumberStyle.h"
#include "intervals/TextStyle.h"
#include "intervals/XDIDateInterval.h"

namespace dayward {

class HHDateIntervalFormat {
public:
    HHDateIntervalFormat() = default;
    HHDateIntervalFormat(TextStyle textStyle_, NumberStyle numberStyle_)
        : textStyle(textStyle_), numberStyle(numberStyle_) {}

    TextStyle textStyle = TextStyle::full;
    NumberStyle numberStyle = NumberStyle::whole;
    std::string separator = ", ";

    /// The style that was set for one unit, or the common one.
    [[nodiscard]] NumberStyle numberStyleForUnit(CalendarUnit unit) const;
    void setNumberStyle(NumberStyle style, CalendarUnit forUnit);

    /// The set units from years to seconds, joined. A unit at 0 is left out, but seconds are kept.
    [[nodiscard]] std::string resultForDateInterval(const XDIDateInterval& interval) const;
    /// The same for a detail interval, in which every unit tells the whole distance.
    [[nodiscard]] std::string resultForDetailDateInterval(const XDIDateInterval& interval) const;
    /// resultForDateInterval of a shared format as the plain constructor makes it.
    [[nodiscard]] static std::string defaultResultForDateInterval(const XDIDateInterval& interval);
    /// One unit: "2 Days".
    [[nodiscard]] std::string resultForUnit(CalendarUnit unit, double value) const;

private:
    std::map<CalendarUnit, NumberStyle> unitNumberStyles_;
};

}  // namespace dayward
