// The calendar interval: years, months, weeks, days, hours, minutes and seconds, each possibly unset.
//
// A plain value. Zero is a value and differs from unset. Fields may hold fractions; the archive and
// the conversion to date components truncate them toward zero.
#pragma once

#include <array>
#include <compare>
#include <memory>
#include <string>
#include <vector>

#include "platform/Archivable.h"
#include "platform/CalendarUnit.h"
#include "platform/Date.h"
#include "platform/DateComponents.h"

namespace dayward {

class XDIDateInterval : public Archivable {
public:
    static constexpr const char* kClassName = "XDIDateInterval";
    static constexpr const char* kYearKey = "Year";
    static constexpr const char* kMonthKey = "Month";
    static constexpr const char* kWeekKey = "Week";
    static constexpr const char* kDayKey = "Day";
    static constexpr const char* kHourKey = "Hour";
    static constexpr const char* kMinuteKey = "Minute";
    static constexpr const char* kSecondKey = "Second";
    static constexpr std::int64_t kArchiveVersion = 0;

    /// What a field that carries nothing holds: 2^63.
    static constexpr double kUnset = 9223372036854775808.0;

    double year = kUnset;
    double month = kUnset;
    double week = kUnset;
    double day = kUnset;
    double hour = kUnset;
    double minute = kUnset;
    double second = kUnset;

    XDIDateInterval() = default;
    explicit XDIDateInterval(const DateComponents& components);
    XDIDateInterval(CalendarUnit unit, double value) { setValue(value, unit); }
    static XDIDateInterval intervalWithComponents(const DateComponents& components) {
        return XDIDateInterval(components);
    }
    static XDIDateInterval intervalWithUnit(CalendarUnit unit, double value) { return {unit, value}; }

    /// Of any unit but the seven (week is the flag 256): reads 0, writes nothing.
    [[nodiscard]] double valueForUnit(CalendarUnit unit) const;
    void setValue(double value, CalendarUnit forUnit);

    [[nodiscard]] bool isSet() const { return !getUnits().isEmpty(); }
    /// The biggest set unit; no unit, the number 0, where none is set.
    [[nodiscard]] CalendarUnit getSingleUnit() const;
    /// The value of that unit, or 0.
    [[nodiscard]] double getSingleValue() const;
    /// The units that are set.
    [[nodiscard]] CalendarUnits getUnits() const;

    [[nodiscard]] DateComponents dateComponents() const { return dateComponentsWithMultiplier(1.0); }
    /// Each set field times the multiplier, truncated toward zero; unset fields stay undefined.
    [[nodiscard]] DateComponents dateComponentsWithMultiplier(double multiplier) const;
    /// The approximate length: with years of 31556926 s and months of 2629743.83 s.
    [[nodiscard]] TimeInterval timeInterval() const;

    /// Field by field from the year down, unset as 0. An order of fields, not of lengths: 1 month is
    /// more than 45 days.
    [[nodiscard]] std::partial_ordering compare(const XDIDateInterval& other) const;
    /// compare() finds no difference: 0 days equals an empty interval.
    bool operator==(const XDIDateInterval& other) const { return compare(other) == 0; }
    /// Stricter: unset is not 0, and what is not a number equals nothing.
    [[nodiscard]] bool hasSameFields(const XDIDateInterval& other) const {
        return minute == other.minute && hour == other.hour && day == other.day && week == other.week &&
               month == other.month && year == other.year && second == other.second;
    }

    [[nodiscard]] std::vector<std::string> archiveClassNames() const override { return {kClassName}; }
    void encodeWithCoder(KeyedArchiver& coder) const override;
    [[nodiscard]] bool isEqual(const Archivable& other) const override;
    /// Null for a version other than 0; a missing key leaves its field unset.
    static std::shared_ptr<Archivable> read(KeyedUnarchiver& coder);
};

}  // namespace dayward
