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
    /// The same, kept for this thread's next question with the text, among a few hundred others.
    static std::shared_ptr<const ParsedRule> cached(std::string_view text);

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

    /// WKST: 1 Sunday to 7 Saturday.
    [[nodiscard]] int weekStart() const { return weekStart_; }

    /// False for a text that cannot be read and for an interval that leads nowhere.
    [[nodiscard]] bool canOccur() const { return frequency_ != Frequency::none && interval_ >= 1; }
    /// Whether the rule has any BY part.
    [[nodiscard]] bool hasLists() const { return hasLists_; }
    /// Whether a BYDAY item has an ordinal.
    [[nodiscard]] bool hasNumberedDays() const;

    /// The rule with the weekday of the start where it names weeks of the year but no day.
    static std::shared_ptr<const ParsedRule> anchored(std::shared_ptr<const ParsedRule> rule,
                                                      const IcalTime& start);

private:
    ParsedRule() = default;
    void take(const icalrecurrencetype& recurrence);

    Frequency frequency_ = Frequency::none;
    int interval_ = 1;
    int count_ = 0;
    std::optional<IcalTime> until_;
    Values seconds_, minutes_, hours_, days_, daysOfMonth_, daysOfYear_, weeks_, months_, setPositions_;
    int weekStart_ = 2;
    bool hasLists_ = false;
};

}  // namespace dayward
