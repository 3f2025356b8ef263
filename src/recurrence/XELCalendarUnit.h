// Tables of the names that repeat rules use: months, days of the month, weekdays and weeks of the
// month, by their numbers. Names are Russian where the user's language is, and otherwise English.
//
// The tables are built once for each environment and then only read; any thread.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/CalendarUnit.h"
#include "platform/DateFormatter.h"

namespace dayward {

class XELCalendarUnit {
public:
    /// One name in its three lengths; `sv` may be a single letter.
    struct Symbols {
        std::string sf;
        std::string ss;
        std::string sv;
        bool operator==(const Symbols&) const = default;
    };
    /// By number; -1 is the last one of its kind.
    using Table = std::map<std::int64_t, Symbols>;

    static const Table& months();        ///< 1 to 12
    static const Table& days();          ///< 1 to 31, and -1
    static const Table& weekdays();      ///< 1 (Sunday) to 7
    static const Table& weekOfMonths();  ///< 1 to 4, and -1

    /// The table of month, day, weekday or weekOfMonth; null for any other unit.
    static const Table* source(CalendarUnit unit);
    /// The table's numbers: the non-negative ones ascending, then the negative ones.
    static std::vector<std::int64_t> indexes(CalendarUnit unit);

    // The name at a number, and for a year the number itself. Nothing where the table has none.
    static std::optional<std::string> symbolAtIndex(std::int64_t index, CalendarUnit forCalendarUnit);
    static std::optional<std::string> shortSymbolAtIndex(std::int64_t index, CalendarUnit forCalendarUnit);
    static std::optional<std::string> veryShortSymbolAtIndex(std::int64_t index, CalendarUnit forCalendarUnit);

    /// The names of months and weekdays in the language of the tables.
    static const DateSymbols& dateFormater();
    /// Russian where the current language is Russian, otherwise English.
    static Locale locale();
};

}  // namespace dayward
