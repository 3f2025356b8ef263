// The compact copy of an event that the widget's process reads: what its dates and texts need, and its icon.
//
// Archived as "c010" with "p001" to "p009"; a field without a value is not written, a missing or mistyped one
// has its default. Dates and title follow the rules of HHEvent. Different threads may read one at a time.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Classes/Other/Date/HHEventDateFormat.h"
#include "platform/Archivable.h"
#include "platform/Data.h"
#include "platform/Date.h"
#include "recurrence/DatesCalculation.h"

namespace dayward {

class WidgetEvent final : public Archivable {
public:
    static constexpr const char* kArchiveClass = "c010";
    static constexpr const char* kKeyKey = "p001";
    static constexpr const char* kIconKey = "p002";
    static constexpr const char* kNameKey = "p003";
    static constexpr const char* kDateKey = "p004";
    static constexpr const char* kTimesKey = "p005";
    static constexpr const char* kRuleKey = "p006";
    static constexpr const char* kDurationKey = "p007";
    static constexpr const char* kShowAgeKey = "p008";
    static constexpr const char* kIntervalFormatKey = "p009";

    using DatesCalculation = dayward::DatesCalculation;

    /// The key is the event's identifier.
    explicit WidgetEvent(std::string key) : key_(std::move(key)) {}

    [[nodiscard]] const std::string& key() const { return key_; }

    /// The bytes of a PNG or JPEG; nothing where the event has no icon.
    std::optional<Data> icon;
    std::optional<std::string> name;
    bool showAge = false;
    HHEventDateFormat intervalFormat;

    /// The day of the first occurrence; its time of day counts for nothing.
    [[nodiscard]] Date date() const { return date_; }
    void setDate(Date date);
    /// Minutes after midnight.
    [[nodiscard]] const std::vector<std::int64_t>& times() const { return times_; }
    void setTimes(std::vector<std::int64_t> times);
    [[nodiscard]] const std::optional<std::string>& rrule() const { return rrule_; }
    void setRrule(std::optional<std::string> rrule);
    /// 0 for an event without one.
    [[nodiscard]] TimeInterval duration() const { return duration_; }
    void setDuration(TimeInterval duration);

    /// Kept until its next occurrence has ended.
    [[nodiscard]] DatesCalculation datesAt(Date now) const;
    /// The occurrence that is running or comes next, else the last one; nothing where there is none.
    [[nodiscard]] std::optional<Date> nextDate() const;
    /// The name, for a yearly event that shows its age with the count of years up to the date. Empty without a name.
    [[nodiscard]] std::string titleToDate(std::optional<Date> date) const;
    /// The distance from now to the date in the event's units and words; nothing where there is no date.
    [[nodiscard]] std::optional<std::string> countdownToDate(std::optional<Date> date) const;
    /// Whether an occurrence is in progress now, its first and last moment excluded.
    [[nodiscard]] bool isComing() const;

    [[nodiscard]] std::vector<std::string> archiveClassNames() const override { return {kArchiveClass}; }
    void encodeWithCoder(KeyedArchiver& coder) const override;
    /// Same fields.
    [[nodiscard]] bool isEqual(const Archivable& other) const override;
    /// Null without a key.
    static std::shared_ptr<Archivable> read(KeyedUnarchiver& coder);

private:
    [[nodiscard]] OccurrenceRule occurrenceRule() const { return {rrule_, date_, times_, duration_}; }

    std::string key_;
    Date date_;
    std::vector<std::int64_t> times_{0};
    std::optional<std::string> rrule_;
    TimeInterval duration_;
    mutable KeptDates dates_;
};

/// Makes archives of WidgetEvent, and of what it holds, readable.
void registerWidgetClasses(ArchiveClasses& classes);

}  // namespace dayward
