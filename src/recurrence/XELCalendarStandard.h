// The older calendar that repeats every so many units, on certain weekdays only where they are given.
// See XELCalendarBase.h.
#pragma once

#include "intervals/XDIDateInterval.h"
#include "recurrence/XELCalendarBase.h"

namespace dayward {

class XELCalendarStandard : public XELCalendarBase {
public:
    static constexpr const char* kClassName = "XELCalendarStandard";
    static constexpr const char* kRepeatIntervalKey = "RepeatInterval";
    static constexpr const char* kDaysOfWeekKey = "DaysOfWeek";

    using XELCalendarBase::XELCalendarBase;

    /// Null for no repetition.
    [[nodiscard]] const std::shared_ptr<XDIDateInterval>& repeatInterval() const { return repeatInterval_; }
    void setRepeatInterval(std::shared_ptr<XDIDateInterval> interval);
    /// 1 Sunday to 7 Saturday.
    [[nodiscard]] const std::optional<Numbers>& daysOfWeek() const { return daysOfWeek_; }
    void setDaysOfWeek(std::optional<Numbers> days);

    [[nodiscard]] std::vector<std::string> archiveClassNames() const override {
        return {kClassName, XELCalendarBase::kClassName};
    }
    void encodeWithCoder(KeyedArchiver& coder) const override;
    static std::shared_ptr<Archivable> read(KeyedUnarchiver& coder);

protected:
    [[nodiscard]] bool decodeStandard(KeyedUnarchiver& coder);
    [[nodiscard]] std::vector<XELRepeatDate> makeRepeatDates() const override;
    [[nodiscard]] bool repeatDate(const XELRepeatDate& repeatDate, Date testDate) const override;

private:
    std::shared_ptr<XDIDateInterval> repeatInterval_;
    std::optional<Numbers> daysOfWeek_;
};

/// The same under another name in old archives.
class HHEventCalendarStandard final : public XELCalendarStandard {
public:
    static constexpr const char* kClassName = "HHEventCalendarStandard";
    using XELCalendarStandard::XELCalendarStandard;

    [[nodiscard]] std::vector<std::string> archiveClassNames() const override {
        return {kClassName, XELCalendarStandard::kClassName, XELCalendarBase::kClassName};
    }
    static std::shared_ptr<Archivable> read(KeyedUnarchiver& coder);
};

}  // namespace dayward
