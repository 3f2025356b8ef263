// What the free-form repeat screen shows of a rule, and the way from a rule to it and back. A plain
// value. Parts of a rule that it has no field for (weeks and days of the year, positions, count) are
// lost on the way back.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/Date.h"
#include "recurrence/XELRRuleComponents.h"

namespace dayward {

struct RRuleState {
    static constexpr std::int64_t kLastInterval = 998;
    /// The place of "Last" among the ordinals of the custom day, behind the first to the fifth.
    static constexpr std::size_t kLastOrdinal = 5;
    /// "The last day" among the days of a month.
    static constexpr std::int64_t kLastDayOfMonth = -1;

    struct CustomDay {
        bool on = false;
        std::size_t ordinal = 0;  ///< 0 the first to 4 the fifth, kLastOrdinal
        std::size_t weekday = 0;  ///< 0 Sunday to 6 Saturday
    };

    RuleFrequency frequency = RuleFrequency::yearly;
    std::int64_t interval = 1;
    std::vector<std::int64_t> monthsOfYear;  ///< ascending
    std::vector<std::int64_t> daysOfMonth;   ///< 1 to 31 ascending, then kLastDayOfMonth
    std::array<bool, 7> daysOfWeek{};        ///< from Sunday
    CustomDay customDay;
    std::optional<Date> until;

    /// The state of a rule; without one, and for one that is finer than a minute, a yearly one.
    static RRuleState ofRule(const std::optional<std::string>& rrule);
    /// The rule of what is shown; always one that repeats. The end is cut to the whole minute.
    [[nodiscard]] std::string rrule() const;

    // Which parts are shown, and so count.
    [[nodiscard]] bool showsMonthsOfYear() const;
    [[nodiscard]] bool showsDaysOfMonth() const;
    [[nodiscard]] bool showsDaysOfWeek() const;
    [[nodiscard]] bool showsCustomDay() const;
    /// Whether the end is a day, not a day and a time.
    [[nodiscard]] bool endsByDay() const { return frequency >= RuleFrequency::daily; }

    /// The custom day as a rule has it; nothing while it is off.
    [[nodiscard]] std::optional<XELRecurrenceDayOfWeek> customDayOfWeek() const;

private:
    void take(const XELRecurrenceDayOfWeek& day);
    [[nodiscard]] XELRRuleComponents::DaysOfWeek chosenDays() const;
};

}  // namespace dayward
