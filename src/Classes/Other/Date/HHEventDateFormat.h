// In which units and words an event's countdown is told; stored with each event.
//
// A copyable value, equal when both fields are. Archived as "HHEventDateFormat" with the version 0
// under the class's own name, then the integers "Units" and "UnitsFormatType".
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "intervals/TextStyle.h"
#include "platform/Archivable.h"
#include "platform/CalendarUnit.h"
#include "platform/Date.h"

namespace dayward {

class HHEventDateFormat final : public Archivable {
public:
    static constexpr const char* kClassName = "HHEventDateFormat";
    static constexpr const char* kUnitsKey = "Units";
    static constexpr const char* kTextStyleKey = "UnitsFormatType";
    static constexpr const char* kMaxUnitsKey = "MaxUnits";  ///< older archives only; never written

    HHEventDateFormat() = default;
    HHEventDateFormat(CalendarUnits units_, TextStyle textStyle_) : units(units_), textStyle(textStyle_) {}

    CalendarUnits units = CalendarUnit::day;
    TextStyle textStyle = TextStyle::full;

    /// The rounded distance from now to the date in these units and words, "2 Days 3 Hours"; nothing
    /// where there is no date. A past date counts in negative numbers.
    [[nodiscard]] std::optional<std::string> countdownToDate(const std::optional<Date>& date) const;

    bool operator==(const HHEventDateFormat& other) const {
        return units == other.units && textStyle == other.textStyle;
    }

    /// Any version is read; a missing or mistyped key leaves its default. Negative units, or a text
    /// style that is none, stop the process: the file is corrupt. An older archive's "MaxUnits" of 1
    /// or more keeps only that many of the biggest units.
    static std::shared_ptr<Archivable> read(KeyedUnarchiver& coder);
    [[nodiscard]] std::vector<std::string> archiveClassNames() const override { return {kClassName}; }
    void encodeWithCoder(KeyedArchiver& coder) const override;
    [[nodiscard]] bool isEqual(const Archivable& other) const override;
};

/// Makes archives of HHEventDateFormat readable.
void registerDateFormatClasses(ArchiveClasses& classes);

}  // namespace dayward
