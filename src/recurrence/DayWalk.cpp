#include <libical/ical.h>

#include <algorithm>
#include <tuple>
#include <utility>

#include "recurrence/DaysOnly.h"
#include "recurrence/RuleWalk.h"

namespace dayward {

namespace {

using Frequency = ParsedRule::Frequency;

/// Days that are tried between two occurrences before a walk gives up.
constexpr int kMaximumTries = 60'000;
/// More years than can be walked, and years alike: the calendar repeats after 400.
constexpr short kLongestYearInterval = 2800;

struct IteratorDeleter {
    void operator()(icalrecur_iterator* iterator) const { icalrecur_iterator_free(iterator); }
};
using Iterator = std::unique_ptr<icalrecur_iterator, IteratorDeleter>;

/// The days of a weekly, monthly or yearly rule as libical finds them, each at the rule's times.
class DayWalk final : public RuleWalk {
public:
    DayWalk(std::shared_ptr<const ParsedRule> rule, const IcalTime& start, const std::optional<IcalTime>& skipTo)
        : rule_(std::move(rule)), start_(start), skipTo_(skipTo), offsets_(secondsWithinUnit(*rule_, start)) {
        icalrecurrencetype days = daysOnly(*rule_);
        if (days.freq == ICAL_YEARLY_RECURRENCE) days.interval = std::min(days.interval, kLongestYearInterval);
        iterator_.reset(icalrecur_iterator_new(days, midnight(start)));
    }

    std::optional<IcalTime> next() override {
        int tries = 0;
        while (iterator_) {
            if (offset_ == offsets_.size() && !takeDay(tries)) break;
            const IcalTime time = icalTimeOfSeconds(daySeconds_ + offsets_[offset_++]);
            if (isBeyondEnd(time)) break;
            if (time < start_) continue;
            if (rule_->count() != 0 && occurrences_++ >= rule_->count()) break;
            return time;
        }
        iterator_.reset();
        return std::nullopt;
    }

    /// Looks at the times of the last two days only: on the very last, the end may come before them.
    std::optional<IcalTime> last() override {
        if (!rule_->until()) return std::nullopt;
        std::optional<std::int64_t> days[2];
        int tries = 0;
        while (iterator_ && takeDay(tries) && !isBeyondEnd(icalTimeOfSeconds(daySeconds_))) {
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
        iterator_.reset();
        return result;
    }

private:
    static icaltimetype midnight(const IcalTime& day) {
        icaltimetype time = icaltime_null_time();
        time.year = day.year;
        time.month = day.month;
        time.day = day.day;
        icaltime_set_timezone(&time, icaltimezone_get_utc_timezone());
        return time;
    }

    [[nodiscard]] bool isBeyondEnd(const IcalTime& time) const { return rule_->until() && time > *rule_->until(); }

    /// Goes to the next day whose times are asked for; false at the end.
    bool takeDay(int& tries) {
        while (tries++ < kMaximumTries) {
            const icaltimetype day = icalrecur_iterator_next(iterator_.get());
            if (icaltime_is_null_time(day)) return false;
            const IcalTime date{day.year, day.month, day.day, true, 0, 0, 0};
            daySeconds_ = secondsOf(date);
            if (!isSkipped(date)) {
                offset_ = 0;
                return true;
            }
            if (isBeyondEnd(date)) return false;
            occurrences_ += static_cast<std::int64_t>(offsets_.size());
            if (rule_->count() != 0 && occurrences_ >= rule_->count()) return false;
        }
        return false;
    }

    /// Whether all times of the day come before those that are asked for. The first day is never
    /// skipped, since not all of its times need count.
    [[nodiscard]] bool isSkipped(const IcalTime& date) const {
        const auto isBefore = [&date](const IcalTime& other) {
            return std::tie(date.year, date.month, date.day) < std::tie(other.year, other.month, other.day);
        };
        return skipTo_ && isBefore(*skipTo_) && date > start_;
    }

    std::shared_ptr<const ParsedRule> rule_;
    IcalTime start_;
    std::optional<IcalTime> skipTo_;
    std::vector<int> offsets_;
    Iterator iterator_;
    std::int64_t daySeconds_ = 0;
    std::size_t offset_ = offsets_.size();
    std::int64_t occurrences_ = 0;
};

}  // namespace

std::unique_ptr<RuleWalk> makeDayWalk(std::shared_ptr<const ParsedRule> rule, const IcalTime& start,
                                      const std::optional<IcalTime>& skipTo) {
    return std::make_unique<DayWalk>(std::move(rule), start, skipTo);
}

}  // namespace dayward
