#include "recurrence/XELRecurrenceDayOfWeek.h"

namespace dayward {

std::strong_ordering compareRuleNumbers(std::int64_t left, std::int64_t right) {
    if (left >= 0 && right >= 0) return left <=> right;
    if (left < 0 && right < 0) return right <=> left;
    return left >= 0 ? std::strong_ordering::less : std::strong_ordering::greater;
}

std::strong_ordering XELRecurrenceDayOfWeek::compare(const XELRecurrenceDayOfWeek& other) const {
    const auto byWeek = compareRuleNumbers(weekNumber_, other.weekNumber_);
    return byWeek != 0 ? byWeek : compareRuleNumbers(dayOfWeek_, other.dayOfWeek_);
}

}  // namespace dayward
