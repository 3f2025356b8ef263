// The older calendar that repeats on the dates whose fields are in its lists. See XELCalendarBase.h.
#pragma once

#include "recurrence/XELCalendarBase.h"

namespace dayward {

class XELCalendarCustom final : public XELCalendarBase {
public:
    static constexpr const char* kClassName = "XELCalendarCustom";
    static constexpr const char* kYearsKey = "Years";
    static constexpr const char* kMonthsKey = "Monts";  ///< misspelled in every archive
    static constexpr const char* kDayOfMonthKey = "DayOfMonth";
    static constexpr const char* kDayOfWeekKey = "DayOfWeek";
    static constexpr const char* kDayOfWeekInMonthKey = "DayOfWeekInMonth";

    /// The lists; one that is absent or empty lets every value pass.
    struct Lists {
        std::optional<Numbers> years;
        std::optional<Numbers> months;
        std::optional<Numbers> dayOfMonth;
        std::optional<Numbers> dayOfWeek;         ///< 1 Sunday to 7 Saturday
        std::optional<Numbers> dayOfWeekInMonth;  ///< the weekday's ordinal in its month
    };

    using XELCalendarBase::XELCalendarBase;

    [[nodiscard]] const Lists& lists() const { return lists_; }
    void setLists(Lists lists);

    /// The unit in which dates are tried: the smallest whose list is missing; none where the lists fix
    /// day, month and year.
    [[nodiscard]] CalendarUnit periodUnit() const;

    [[nodiscard]] std::vector<std::string> archiveClassNames() const override {
        return {kClassName, XELCalendarBase::kClassName};
    }
    void encodeWithCoder(KeyedArchiver& coder) const override;
    static std::shared_ptr<Archivable> read(KeyedUnarchiver& coder);

protected:
    [[nodiscard]] std::vector<XELRepeatDate> makeRepeatDates() const override {
        return repeatDatesEvery(periodUnit(), 1);
    }
    [[nodiscard]] bool repeatDate(const XELRepeatDate& repeatDate, Date testDate) const override;

private:
    Lists lists_;
};

}  // namespace dayward
