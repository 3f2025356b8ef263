// A recurrence rule as a short sentence: "Every 2 Weeks (Monday, Friday), Until 1/31/20", and the
// single names that repeat editors show. English or Russian, by the user's language.
//
// Numbers that have no name (a thirteenth month) are left out. One thread at a time.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/CalendarUnit.h"
#include "platform/DateFormatter.h"
#include "recurrence/XELRRuleComponents.h"

namespace dayward {

class XELFormatter {
public:
    /// The table that holds the words.
    static constexpr const char* kTable = "XELLocale";

    /// The length of month and weekday names.
    enum class Style : std::uint64_t { full = 0, short_ = 1, veryShort = 2 };

    Style style = Style::full;

    /// Writes the date of "Until …"; made on first use in the short date style, in the zone of then.
    [[nodiscard]] const DateFormatter& dateFormatter();

    /// "Weekly"; empty for a frequency that is none of the eight.
    [[nodiscard]] std::string stringForFrequency(RuleFrequency frequency) const;
    /// "Weekly" for interval 1, else "Every 2 Weeks"; nothing for interval 0 of a repetition.
    [[nodiscard]] std::optional<std::string> stringForFrequency(RuleFrequency frequency,
                                                                std::int64_t andInterval) const;

    /// The name of a month, a day of the month, a weekday or a week of the month; -1 is the last.
    [[nodiscard]] std::optional<std::string> stringForIndex(std::int64_t index, CalendarUnit atCalendarUnit,
                                                            Style inStyle) const;
    [[nodiscard]] std::optional<std::string> stringForIndex(std::int64_t index, CalendarUnit atCalendarUnit) const;
    [[nodiscard]] std::string stringForIndexes(const std::vector<std::int64_t>& indexes,
                                               CalendarUnit atCalendarUnit) const;

    /// "Friday", or with a week number "Last Friday"; empty for a day that is none.
    [[nodiscard]] std::string stringForDayOfWeek(const XELRecurrenceDayOfWeek& day) const;
    /// One word for Sunday and Saturday, for Monday to Friday and for all seven, in sorted order;
    /// else the name of each.
    [[nodiscard]] std::vector<std::string> namesForDaysOfWeek(const std::vector<XELRecurrenceDayOfWeek>& days) const;
    [[nodiscard]] std::string stringForDaysOfWeek(const std::vector<XELRecurrenceDayOfWeek>& days) const;

    [[nodiscard]] std::string stringForSetPosition(std::int64_t position) const;
    [[nodiscard]] std::string stringForSetPositions(const std::vector<std::int64_t>& positions) const;

    /// The sentence; nothing for no repetition and for an interval that is not positive. Weeks and
    /// days of the year and the count are not told.
    [[nodiscard]] std::optional<std::string> stringForRRule(std::string_view rrule);

    /// The numbers of the range, both ends included.
    [[nodiscard]] static std::vector<std::string> numberArrayFrom(std::int64_t from, std::int64_t to);

private:
    [[nodiscard]] std::vector<std::string> namesForIndexes(const std::vector<std::int64_t>& indexes,
                                                           CalendarUnit unit) const;

    std::optional<DateFormatter> dateFormatter_;
};

}  // namespace dayward
