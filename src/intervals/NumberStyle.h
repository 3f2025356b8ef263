// The two ways in which intervals write numbers.
#pragma once

#include "platform/NumberFormatter.h"

namespace dayward {

enum class NumberStyle {
    whole = 0,        ///< at most 0 fraction digits
    twoDecimals = 1,  ///< exactly 2 fraction digits
};

/// The current environment's formatter of that style in its locale, made once and kept as long as
/// the environment. Any thread.
const NumberFormatter& sharedNumberFormatter(NumberStyle style);

}  // namespace dayward
