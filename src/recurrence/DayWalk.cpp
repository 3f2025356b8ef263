#include <utility>

#include "platform/CivilDay.h"
#include "recurrence/RuleDays.h"
#include "recurrence/RuleWalk.h"

namespace dayward {

namespace {

constexpr std::int64_t kSecondsPerDay = 86400;
/// Days that are tried between two occurrences before a walk gives up.
constexpr int kMaximumTries = 60'000;

/// The days of a weekly, monthly or yearly rule, each at the rule's times.
class DayWalk final : public RuleWalk {
public:
    DayWalk(std::shared_ptr<const ParsedRule> rule, const IcalTime& start, const std::optional<IcalTime>& skipTo)
        : rule_(std::move(rule)),
          start_(start),
          startDay_(dayOf(start)),
          skipTo_(skipTo ? dayOf(*skipTo) : startDay_),
          offsets_(secondsWithinUnit(*rule_, start)),
          days_(*rule_, start) {}

    std::optional<IcalTime> next() override {
        int tries = 0;
        while (!isAtEnd_) {
            if (offset_ == offsets_.size() && !takeDay(tries)) break;
            const IcalTime time = icalTimeOfSeconds(daySeconds_ + offsets_[offset_++]);
            if (isBeyondEnd(time)) break;
            if (time < start_) continue;
            if (rule_->count() != 0 && occurrences_++ >= rule_->count()) break;
            return time;
        }
        isAtEnd_ = true;
        return std::nullopt;
    }

    /// Looks at the times of the last two days only: on the very last, the end may come before them.
    std::optional<IcalTime> last() override {
        if (!rule_->until()) return std::nullopt;
        std::optional<std::int64_t> days[2];
        int tries = 0;
        while (!isAtEnd_ && takeDay(tries) && !isBeyondEnd(icalTimeOfSeconds(daySeconds_))) {
            days[0] = std::exchange(days[1], daySeconds_);
            tries = 0;
        }
        std::optional<IcalTime> result;
        for (const auto& day : days) {
            for (std::size_t i = 0; day && i < offsets_.size(); ++i) {
                const IcalTime time = icalTimeOfSeconds(*day + offsets_[i]);
                if (isBeyondEnd(time)) break;
                if (time >= start_) result = time;
            }
        }
        isAtEnd_ = true;
        return result;
    }

private:
    static std::int64_t dayOf(const IcalTime& time) { return dayNumberOf(time.year, time.month, time.day); }

    [[nodiscard]] bool isBeyondEnd(const IcalTime& time) const { return rule_->until() && time > *rule_->until(); }

    /// Goes to the next day whose times are asked for; false at the end. The first day is never left
    /// out, since not all of its times need count.
    bool takeDay(int& tries) {
        while (tries++ < kMaximumTries) {
            const auto day = days_.next(rule_->count() == 0 ? skipTo_ : startDay_);
            if (!day) return false;
            daySeconds_ = *day * kSecondsPerDay;
            if (*day >= skipTo_ || *day <= startDay_) {
                offset_ = 0;
                return true;
            }
            if (rule_->until() && isBeyondEnd(icalTimeOfSeconds(daySeconds_))) return false;
            occurrences_ += static_cast<std::int64_t>(offsets_.size());
            if (rule_->count() != 0 && occurrences_ >= rule_->count()) return false;
        }
        return false;
    }

    std::shared_ptr<const ParsedRule> rule_;
    IcalTime start_;
    std::int64_t startDay_;
    std::int64_t skipTo_;  ///< the first day that is asked for
    std::vector<int> offsets_;
    RuleDays days_;
    std::int64_t daySeconds_ = 0;
    std::size_t offset_ = offsets_.size();
    std::int64_t occurrences_ = 0;
    bool isAtEnd_ = false;
};

}  // namespace

std::unique_ptr<RuleWalk> makeDayWalk(std::shared_ptr<const ParsedRule> rule, const IcalTime& start,
                                      const std::optional<IcalTime>& skipTo) {
    return std::make_unique<DayWalk>(std::move(rule), start, skipTo);
}

}  // namespace dayward
