// Ready-made rule strings.
#pragma once

#include <string>

#include "recurrence/XELRRuleComponents.h"

namespace dayward {

class XELRRule {
public:
    /// The rule of that frequency with interval 1: "FREQ=DAILY;INTERVAL=1".
    static std::string rruleForFrequency(RuleFrequency frequency);
};

}  // namespace dayward
