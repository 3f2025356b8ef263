// Steps through the occurrences of one rule, one by one, in true UTC and not on the wall clock.
// One thread.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/Date.h"
#include "recurrence/DateIcal.h"

namespace dayward {

class RuleWalk;

class XELRRuleIterator {
public:
    /// A start whose fields cannot be told, or a rule that cannot be read, has no occurrences.
    XELRRuleIterator(std::string rrule, Date startDate);
    ~XELRRuleIterator();
    XELRRuleIterator(XELRRuleIterator&&) noexcept;
    XELRRuleIterator& operator=(XELRRuleIterator&&) noexcept;

    [[nodiscard]] const std::string& rrule() const { return rrule_; }
    [[nodiscard]] Date startDate() const;

    /// The next occurrence other than the start; nothing at the end, and from then on.
    std::optional<Date> getNextDate();

private:
    std::string rrule_;
    IcalTime start_;
    std::unique_ptr<RuleWalk> walk_;
};

}  // namespace dayward
