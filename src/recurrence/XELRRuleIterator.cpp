#include "recurrence/XELRRuleIterator.h"

#include <utility>

#include "recurrence/ParsedRule.h"
#include "recurrence/RuleWalk.h"

namespace dayward {

XELRRuleIterator::XELRRuleIterator(std::string rrule, Date startDate) : rrule_(std::move(rrule)) {
    if (!hasIcalTime(startDate)) return;
    start_ = icaltime(startDate);
    walk_ = RuleWalk::from(ParsedRule::cached(rrule_), start_);
}

XELRRuleIterator::~XELRRuleIterator() = default;
XELRRuleIterator::XELRRuleIterator(XELRRuleIterator&&) noexcept = default;
XELRRuleIterator& XELRRuleIterator::operator=(XELRRuleIterator&&) noexcept = default;

Date XELRRuleIterator::startDate() const { return dateForICalTime(start_); }

std::optional<Date> XELRRuleIterator::getNextDate() {
    if (!walk_) return std::nullopt;
    auto time = walk_->next();
    if (time == start_) time = walk_->next();
    if (!time) return std::nullopt;
    return dateForICalTime(*time);
}

}  // namespace dayward
