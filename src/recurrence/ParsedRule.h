// A recurrence rule, read by libical and checked, ready to be walked.
//
// Immutable and shared; any thread. What libical would mis-read or overrun on never reaches it: texts
// beyond kMaximumLength, lists longer than their range of values, calendars other than the Gregorian
// (RSCALE and SKIP are no part of RFC 2445). Such a rule reads as one that cannot be parsed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "recurrence/DateIcal.h"

struct icalrecurrencetype;

namespace dayward {

class ParsedRule {
public:
    /// In libical's order and with its numbers.
    enum class Frequency { secondly, minutely, hourly, daily, weekly, monthly, yearly, none };
    /// Values as libical holds them: in the rule's order (days by weekday), BYDAY as ±(day + 8 * week).
    using Values = std::vector<int>;

    static constexpr std::size_t kMaximumLength = 16384;

    /// Never fails: a text that cannot be read has no frequency. A key without a value at the end
    /// counts as absent.
    static std::shared_ptr<const ParsedRule> parse(std::string_view text);
    /// The same, kept for the next question with this text: the environment holds a small number of
    /// rules, the ones asked for last.
    static std::shared_ptr<const ParsedRule> cached(const std::string& text);

    [[nodiscard]] Frequency frequency() const { return frequency_; }
    /// As the text has it, cut to 16 bits; nothing occurs with one below 1.
    [[nodiscard]] int interval() const { return interval_; }
    /// 0: no limit.
    [[nodiscard]] int count() const { return count_; }
    [[nodiscard]] const std::optional<IcalTime>& until() const { return until_; }

    [[nodiscard]] const Values& seconds() const { return seconds_; }
    [[nodiscard]] const Values& minutes() const { return minutes_; }
    [[nodiscard]] const Values& hours() const { return hours_; }
    [[nodiscard]] const Values& days() const { return days_; }
    [[nodiscard]] const Values& daysOfMonth() const { return daysOfMonth_; }
    [[nodiscard]] const Values& daysOfYear() const { return daysOfYear_; }
    [[nodiscard]] const Values& weeks() const { return weeks_; }
    [[nodiscard]] const Values& months() const { return months_; }
    [[nodiscard]] const Values& setPositions() const { return setPositions_; }

    /// Whether a BYDAY item has an ordinal.
    [[nodiscard]] bool hasNumberedDays() const;

    /// The rule with the weekday of the start where it names weeks of the year but no day. Left alone,
    /// libical writes beyond its table of days for such a rule.
    static std::shared_ptr<const ParsedRule> anchored(std::shared_ptr<const ParsedRule> rule, const IcalTime& start);

    /// What libical made of the text, for its iterators.
    [[nodiscard]] const icalrecurrencetype& recurrence() const { return *recurrence_; }

private:
    ParsedRule() = default;
    void take(const icalrecurrencetype& recurrence);

    Frequency frequency_ = Frequency::none;
    int interval_ = 1;
    int count_ = 0;
    std::optional<IcalTime> until_;
    Values seconds_, minutes_, hours_, days_, daysOfMonth_, daysOfYear_, weeks_, months_, setPositions_;
    std::shared_ptr<const icalrecurrencetype> recurrence_;
};

}  // namespace dayward
