// A date that repeats every so many units of the calendar, without a rule string; what the older
// calendars compute with. A value; any thread. A search tries at most kMaximumTries periods.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "platform/Calendar.h"
#include "platform/CalendarUnit.h"
#include "platform/Date.h"

namespace dayward {

class XELRepeatDate;

class XELRepeatDateDelegate {
public:
    virtual ~XELRepeatDateDelegate() = default;
    /// False rejects the date.
    [[nodiscard]] virtual bool repeatDate(const XELRepeatDate& repeatDate, Date testDate) const = 0;
};

class XELRepeatDate {
public:
    static constexpr int kMaximumTries = 1000;

    /// Repeats every unit; no unit (0) means that the date does not repeat. The calendar is a snapshot
    /// of the current one.
    XELRepeatDate(Date start, CalendarUnit repeatUnit, std::uint64_t repeatValue = 1);

    /// Not owned, and may be null.
    const XELRepeatDateDelegate* delegate = nullptr;

    [[nodiscard]] Date start() const { return start_; }
    [[nodiscard]] CalendarUnit repeatUnit() const { return repeatUnit_; }
    [[nodiscard]] std::uint64_t repeatValue() const { return repeatValue_; }

    /// The start after so many periods; nothing beyond what dates can hold.
    [[nodiscard]] std::optional<Date> dateForPeriod(std::int64_t period) const;
    /// How many whole periods lie between the start and the date; 0 for the value 0.
    [[nodiscard]] std::int64_t periodToDate(Date date) const;
    /// Whether the date is not before the start, within the bounds (both included) and not rejected.
    [[nodiscard]] bool testDate(Date date, std::optional<Date> fromDate, std::optional<Date> toDate) const;

    /// The first date at or after the given one.
    [[nodiscard]] std::optional<Date> nextDateAfter(Date date) const;
    /// The dates from the first to the second, both included, ascending.
    [[nodiscard]] std::vector<Date> nextDatesAfter(Date date, Date to) const;
    /// The last date at or before the given one.
    [[nodiscard]] std::optional<Date> previosDateTo(Date date) const;

private:
    [[nodiscard]] bool repeats() const { return repeatValue_ != 0 && repeatUnit_ != CalendarUnit{}; }
    [[nodiscard]] std::int64_t firstPeriodFor(Date date) const;

    Date start_;
    CalendarUnit repeatUnit_;
    std::uint64_t repeatValue_;
    std::shared_ptr<const Calendar> calendar_;
};

}  // namespace dayward
