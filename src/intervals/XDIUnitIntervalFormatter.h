// Words for an amount of one unit: "2 Days", "5h". English and Russian; every other language has the
// English words. One form for the value 1.0 and one for all others.
//
// Settings only, no other state; one thread at a time.
#pragma once

#include <optional>
#include <string>

#include "intervals/TextStyle.h"
#include "intervals/XDIUnitInterval.h"
#include "platform/CalendarUnit.h"
#include "platform/Locale.h"
#include "platform/NumberFormatter.h"

namespace dayward {

class XDIUnitIntervalFormatter {
public:
    bool showAlways = false;  ///< in a longer text, the unit is shown even at 0
    TextStyle style = TextStyle::number;
    std::optional<std::string> beforeSeparator;  ///< put before this unit where another unit precedes it

    /// The environment's, where none was set.
    [[nodiscard]] Locale locale() const;
    void setLocale(Locale locale) { locale_ = std::move(locale); }
    /// Whole numbers in the environment's locale, where none was set.
    [[nodiscard]] NumberFormatter numberFormatter() const;
    void setNumberFormatter(NumberFormatter formatter) { numberFormatter_ = std::move(formatter); }

    /// Number and name in this style. A unit without a name shows an empty one.
    [[nodiscard]] std::string stringForUnitInterval(const XDIUnitInterval& interval) const;
    [[nodiscard]] std::string stringForUnit(CalendarUnit unit, double andValue) const;
    /// The name alone: empty in the style `number` and in an unknown style, nothing for an unknown unit.
    [[nodiscard]] std::optional<std::string> nameCalendarUnitForUnitInterval(const XDIUnitInterval& interval) const;
    [[nodiscard]] std::optional<std::string> nameCalendarUnitForUnit(CalendarUnit unit, double andValue) const;

    /// The same through a throw-away formatter of the environment's locale.
    [[nodiscard]] static std::string stringForUnit(CalendarUnit unit, double andValue, TextStyle style);
    [[nodiscard]] static std::optional<std::string> nameCalendarUnitForUnit(CalendarUnit unit, double andValue,
                                                                            TextStyle style);

    [[nodiscard]] static std::optional<std::string> enNameCalendarUnitForUnit(CalendarUnit unit, double andValue,
                                                                              TextStyle style);
    [[nodiscard]] static std::optional<std::string> ruNameCalendarUnitForUnit(CalendarUnit unit, double andValue,
                                                                              TextStyle style);

private:
    std::optional<Locale> locale_;
    std::optional<NumberFormatter> numberFormatter_;
};

}  // namespace dayward
