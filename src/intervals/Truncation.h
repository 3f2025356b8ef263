// The whole part of a number as an integer. Any thread.
#pragma once

#include <cmath>
#include <cstdint>
#include <limits>

namespace dayward {

/// Toward zero; the nearest end of the range for what does not fit, 0 for NaN.
inline std::int64_t truncated(double value) {
    constexpr double kEnd = 9223372036854775808.0;
    if (std::isnan(value)) return 0;
    if (value >= kEnd) return std::numeric_limits<std::int64_t>::max();
    if (value < -kEnd) return std::numeric_limits<std::int64_t>::min();
    return static_cast<std::int64_t>(value);
}

}  // namespace dayward
