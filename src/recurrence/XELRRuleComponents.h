// The editable form of a recurrence rule string (RFC 2445, section 4.3.10, the value without the
// property's name): reads the string into fields and writes them back in a fixed order.
//
// A plain value. Reading never fails: what is not understood is dropped. UNTIL is read and written in
// the current environment's zone although its text ends in Z, which keeps it on the wall clock.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Date.h"
#include "platform/DateFormatter.h"
#include "recurrence/CalendarRecurrenceRule.h"
#include "recurrence/XELRecurrenceDayOfWeek.h"

namespace dayward {

/// How often a rule repeats. The numbers are those of the `frequency` field.
enum class RuleFrequency : std::int64_t {
    none = 0,
    secondly = 1,
    minutely = 2,
    hourly = 3,
    daily = 4,
    weekly = 5,
    monthly = 6,
    yearly = 7,
};

class XELRRuleComponents {
public:
    using Numbers = std::vector<std::int64_t>;
    using DaysOfWeek = std::vector<XELRecurrenceDayOfWeek>;

    /// No repetition, interval 1.
    XELRRuleComponents() = default;
    explicit XELRRuleComponents(std::string_view rrule) { setRfc2445String(rrule); }
    /// The fields of another calendar system's rule.
    explicit XELRRuleComponents(const CalendarRecurrenceRule& recurrenceRule);

    /// "FREQ=…;INTERVAL=…" and then the parts that are set. No repetition is "FREQ=NO;INTERVAL=1".
    /// The interval is cut to 16 bits, the count to 32.
    [[nodiscard]] std::string rfc2445String() const;
    /// Replaces every field. Case does not matter; unknown keys and words vanish, a key without a
    /// value counts as absent, a text that is no number is 0.
    void setRfc2445String(std::string_view rrule);
    [[nodiscard]] std::string rrule() const { return rfc2445String(); }
    void setRrule(std::string_view rrule) { setRfc2445String(rrule); }

    /// Any number can be set; only 1 to 7 are written as more than "NO".
    [[nodiscard]] RuleFrequency frequency() const { return frequency_; }
    void setFrequency(RuleFrequency frequency) { frequency_ = frequency; }
    [[nodiscard]] std::int64_t interval() const { return interval_; }
    void setInterval(std::int64_t interval) { interval_ = interval; }

    // The lists are kept sorted (see compareRuleNumbers); nothing means that the part is absent.
    [[nodiscard]] const std::optional<DaysOfWeek>& daysOfWeek() const { return daysOfWeek_; }
    void setDaysOfWeek(std::optional<DaysOfWeek> days);
    [[nodiscard]] const std::optional<Numbers>& daysOfMonth() const { return daysOfMonth_; }
    void setDaysOfMonth(std::optional<Numbers> days);
    [[nodiscard]] const std::optional<Numbers>& monthsOfYear() const { return monthsOfYear_; }
    void setMonthsOfYear(std::optional<Numbers> months);
    [[nodiscard]] const std::optional<Numbers>& daysOfYear() const { return daysOfYear_; }
    void setDaysOfYear(std::optional<Numbers> days);
    [[nodiscard]] const std::optional<Numbers>& weeksOfYear() const { return weeksOfYear_; }
    void setWeeksOfYear(std::optional<Numbers> weeks);
    [[nodiscard]] const std::optional<Numbers>& setPositions() const { return setPositions_; }
    void setSetPositions(std::optional<Numbers> positions);

    /// 0: not limited by count.
    [[nodiscard]] std::uint64_t count() const { return count_; }
    void setCount(std::uint64_t count) { count_ = count; }
    [[nodiscard]] std::optional<Date> until() const { return until_; }
    void setUntil(std::optional<Date> until) { until_ = until; }

    /// The UNTIL format, "yyyyMMdd'T'HHmmss'Z'" in the current environment's zone.
    static DateFormatter dateFormatter();
    static std::optional<Date> dateFromString(std::string_view text);
    static std::string stringFromDate(Date date);

    bool operator==(const XELRRuleComponents&) const = default;

private:
    /// Takes the value where the key is known.
    bool readPart(std::string_view key, std::string_view value);

    RuleFrequency frequency_ = RuleFrequency::none;
    std::int64_t interval_ = 1;
    std::optional<DaysOfWeek> daysOfWeek_;
    std::optional<Numbers> daysOfMonth_;
    std::optional<Numbers> monthsOfYear_;
    std::optional<Numbers> daysOfYear_;
    std::optional<Numbers> weeksOfYear_;
    std::optional<Numbers> setPositions_;
    std::uint64_t count_ = 0;
    std::optional<Date> until_;
};

}  // namespace dayward
