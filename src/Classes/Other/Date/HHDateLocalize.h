// Localised names of units and of the values of repeat rules.
//
// The unit names are read once for each environment from the main table's texts "DY", "DM", "DW",
// "DD", "Dh", "Dm" and "Ds": each is a JSON object {"symbol": {…}, "short": {…}, "full": {…}} whose
// parts have the names "singular" (the value is exactly 1) and "plural". A name is a text, or, in a
// language whose plural has several, an object of them by the forms of PluralRules with "other" among
// them: {"one": "день", "few": "дня", "many": "дней", "other": "дня"}. Any thread.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "intervals/TextStyle.h"
#include "platform/CalendarUnit.h"
#include "platform/PluralRules.h"

namespace dayward {

class Environment;

class HHDateLocalize {
public:
    enum class Style { symbol = 0, short_ = 1, full = 2, unknown = 3 };

    static Style styleFromString(std::string_view word);
    static std::string_view stringFromStyle(Style style);
    /// The style that goes with a text style; `unknown` for the style `number`.
    static Style styleFromTextStyle(TextStyle style);

    /// The unit's name for that many of it; capitalised unless it is a symbol. A unit or style that
    /// has no name stops the process.
    static const std::string& nameForUnit(CalendarUnit unit, double value, Style style);

    /// The name of a rule's value: years and days as numbers, months (1 to 12) and weekdays (1 to 7,
    /// from Sunday) by their short names, weeks of a month as numbers, -1 being "Last". Any other
    /// unit or value stops the process.
    static std::string nameForUnit(CalendarUnit unit, std::int64_t value);
    /// The values' names in ascending order of the values, joined with ", ".
    static std::string nameForUnit(CalendarUnit unit, std::vector<std::int64_t> values);

    /// Reads the names; use the class operations instead.
    explicit HHDateLocalize(Environment& environment);

private:
    using Forms = std::map<std::string, std::string, std::less<>>;  ///< one alone is "other"

    std::map<std::string, Forms> names_;
    const PluralRules rules_;
};

}  // namespace dayward
