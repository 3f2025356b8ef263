#include "recurrence/XELRRule.h"

namespace dayward {

std::string XELRRule::rruleForFrequency(RuleFrequency frequency) {
    XELRRuleComponents components;
    components.setFrequency(frequency);
    return components.rfc2445String();
}

}  // namespace dayward
