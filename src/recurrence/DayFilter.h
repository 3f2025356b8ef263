// Which days the BY parts of a rule of a day or less let through. Immutable; any thread.
#pragma once

#include <bitset>
#include <cstdint>
#include <optional>

#include "recurrence/ParsedRule.h"

namespace dayward {

class DayFilter {
public:
    /// The rule must be legal (see RuleWalk).
    explicit DayFilter(const ParsedRule& rule);

    [[nodiscard]] bool allows(std::int64_t day) const;
    /// The next allowed day, if it is no later than `last`.
    [[nodiscard]] std::optional<std::int64_t> nextAfter(std::int64_t day, std::int64_t last) const;

private:
    std::uint32_t months_, daysOfMonth_, weekdays_;  ///< a bit for each number
    bool limitsDaysOfYear_;
    std::bitset<367> daysOfYear_;
};

}  // namespace dayward
