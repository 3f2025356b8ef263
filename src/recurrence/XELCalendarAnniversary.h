// The older calendar that repeats every year. See XELCalendarBase.h.
#pragma once

#include "recurrence/XELCalendarBase.h"

namespace dayward {

class XELCalendarAnniversary final : public XELCalendarBase {
public:
    static constexpr const char* kClassName = "XELCalendarAnniversary";
    using XELCalendarBase::XELCalendarBase;

    [[nodiscard]] std::vector<std::string> archiveClassNames() const override {
        return {kClassName, XELCalendarBase::kClassName};
    }
    static std::shared_ptr<Archivable> read(KeyedUnarchiver& coder);

protected:
    [[nodiscard]] std::vector<XELRepeatDate> makeRepeatDates() const override {
        return repeatDatesEvery(CalendarUnit::year, 1);
    }
};

}  // namespace dayward
