// What the recurrence of an event comes to at a moment, and its keeping: shared by every record of an event.
//
// Occurrences are searched from now minus the duration, so that a running one is still the next, and what is
// kept stays right until its next occurrence has ended. Any thread with a current environment.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/Date.h"
#include "platform/Mutex.h"

namespace dayward {

/// What decides when an event occurs.
struct OccurrenceRule {
    const std::optional<std::string>& rrule;
    Date date;  ///< only its day counts
    const std::vector<std::int64_t>& times;
    TimeInterval duration;
};

struct DatesCalculation {
    std::optional<Date> last;  ///< the latest occurrence, nothing where the series has no last one
    std::optional<Date> next;  ///< the first occurrence that has not ended, nothing if there is none
    TimeInterval duration;     ///< of one occurrence; 0 without a duration

    static DatesCalculation at(Date now, const OccurrenceRule& rule);

    /// The occurrence that is running or comes next, else the last one; nothing where there is none.
    [[nodiscard]] std::optional<Date> occurrence() const { return next ? next : last; }
    /// Whether the occurrence is in progress, its first and last moment excluded.
    [[nodiscard]] bool isRunning(Date now) const {
        const auto begin = occurrence();
        return begin && now > *begin && now < *begin + duration;
    }
    /// A calculation of an earlier moment is that of this one too.
    [[nodiscard]] bool holdsAt(Date now) const { return !next || *next >= now - duration; }
};

/// The calculation as it was made last. It is replaced whole: of two threads that calculate at a time each gets
/// a valid one, and the later stays. Not copied with the record that it belongs to.
class KeptDates {
public:
    /// What is kept where it holds, else a new one, which is kept from now on. `rule` gives an OccurrenceRule.
    template <class Rule>
    [[nodiscard]] std::shared_ptr<const DatesCalculation> shared(Date now, Rule rule) {
        {
            const Lock lock(mutex_);
            if (calculation_ && calculation_->holdsAt(now)) return calculation_;
        }
        return keep(now, rule());
    }
    template <class Rule>
    [[nodiscard]] DatesCalculation at(Date now, Rule rule) {
        {
            const Lock lock(mutex_);
            if (calculation_ && calculation_->holdsAt(now)) return *calculation_;
        }
        return *keep(now, rule());
    }
    void drop() {
        const Lock lock(mutex_);
        calculation_ = nullptr;
    }

private:
    std::shared_ptr<const DatesCalculation> keep(Date now, const OccurrenceRule& rule);

    std::shared_ptr<const DatesCalculation> calculation_ DAYWARD_GUARDED_BY(mutex_);
    SmallMutex mutex_;
};

/// The name of an event, for a plainly yearly one that shows its age with the count of years up to the date:
/// "Name (31)". Empty without a name.
std::string titleToDate(const std::optional<std::string>& name, bool showAge, const std::optional<std::string>& rrule,
                        Date start, std::optional<Date> date);

}  // namespace dayward
