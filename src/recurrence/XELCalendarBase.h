// A repeating event as documents stored it before rule strings: a day, times of day, and in the
// subclasses how they repeat. Old documents still hold them; XELUpdater turns them into rules.
//
// Archive: version 0 under "XELCalendarBase", "Date", "Times", then the subclass's keys; a foreign
// version is no object. One thread at a time, since answers are kept: one range of dates in which
// every date is known.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/Archivable.h"
#include "platform/Date.h"
#include "recurrence/XELRepeatDate.h"

namespace dayward {

class XELCalendarBase : public Archivable, protected XELRepeatDateDelegate {
public:
    static constexpr const char* kClassName = "XELCalendarBase";
    static constexpr const char* kDateKey = "Date";
    static constexpr const char* kTimesKey = "Times";
    static constexpr std::int64_t kArchiveVersion = 0;
    using Numbers = std::vector<std::int64_t>;

    XELCalendarBase() = default;
    XELCalendarBase(std::optional<Date> startDate, Numbers timesOfDay) : date_(startDate), times_(std::move(timesOfDay)) {}
    // The repeating dates point to their calendar.
    XELCalendarBase(const XELCalendarBase&) = delete;
    XELCalendarBase& operator=(const XELCalendarBase&) = delete;

    /// The start day, and minutes after midnight. Setting either drops what is known.
    [[nodiscard]] std::optional<Date> date() const { return date_; }
    void setDate(std::optional<Date> date);
    [[nodiscard]] const Numbers& times() const { return times_; }
    void setTimes(Numbers times);

    /// From now.
    [[nodiscard]] std::optional<Date> nextDate();
    [[nodiscard]] std::optional<Date> previousDate();
    /// The first date at or after the given one; asks the cache first and keeps what it finds.
    [[nodiscard]] std::optional<Date> nextDateFromDate(Date fromDate);
    /// The last date at or before the given one.
    [[nodiscard]] std::optional<Date> previousDateToDate(Date toDate);
    /// Ascending, without equal dates, both ends included.
    [[nodiscard]] std::vector<Date> nextDatesFromDate(Date fromDate, Date toDate);

    /// What the range that is known answers; nothing where it does not reach.
    [[nodiscard]] std::optional<Date> cacheNextDateFromDate(Date fromDate) const;
    [[nodiscard]] std::optional<Date> cachePreviousDateToDate(Date toDate) const;
    /// Tells every date of a range, widening the known one where they touch and else replacing it.
    /// An absent bound is cacheMinDate or cacheMaxDate; without that either, nothing is kept.
    void setCacheDate(std::optional<Date> cacheDate, std::optional<Date> fromDate, std::optional<Date> toDate);
    void setCacheDates(std::vector<Date> cacheDates, std::optional<Date> fromDate, std::optional<Date> toDate);
    void clearCache();

    std::optional<Date> cacheMinDate;
    std::optional<Date> cacheMaxDate;

    /// One repeating date for each time of day, built on first use; none in the base class.
    [[nodiscard]] const std::vector<XELRepeatDate>& getRepeatDates();

    [[nodiscard]] std::vector<std::string> archiveClassNames() const override { return {kClassName}; }
    void encodeWithCoder(KeyedArchiver& coder) const override;
    static std::shared_ptr<Archivable> read(KeyedUnarchiver& coder);

protected:
    /// Drops what was derived from the fields; for the setters of subclasses.
    void fieldsChanged();
    /// Reads the base's keys; false for a foreign version.
    [[nodiscard]] bool decode(KeyedUnarchiver& coder);

    /// What getRepeatDates keeps.
    [[nodiscard]] virtual std::vector<XELRepeatDate> makeRepeatDates() const { return {}; }
    [[nodiscard]] std::vector<XELRepeatDate> repeatDatesEvery(CalendarUnit unit, std::uint64_t value) const;
    [[nodiscard]] bool repeatDate(const XELRepeatDate&, Date) const override { return true; }

private:
    struct KnownRange {
        Date fromDate;
        Date toDate;
        std::vector<Date> result;
    };

    std::optional<Date> date_;
    Numbers times_;
    std::optional<std::vector<XELRepeatDate>> repeatDates_;
    std::optional<KnownRange> cacheDates_;
};

/// The numbers of an archived array; what is no number is left out.
std::optional<std::vector<std::int64_t>> decodeNumbers(KeyedUnarchiver& coder, std::string_view forKey);
void encodeNumbers(KeyedArchiver& coder, const std::optional<std::vector<std::int64_t>>& numbers,
                   std::string_view forKey);

}  // namespace dayward
