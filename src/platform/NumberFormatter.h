// Decimal numbers in the words of a locale. Immutable; safe to share between threads.
#pragma once

#include <memory>
#include <string>

#include "platform/Locale.h"

namespace dayward {

/// Decimal style with grouping as the locale has it. Rounds half to even, as the platform's decimal
/// style does.
class NumberFormatter {
public:
    /// Between `minimum` and `maximum` fraction digits.
    NumberFormatter(const Locale& locale, int minimumFractionDigits, int maximumFractionDigits);
    [[nodiscard]] std::string string(double value) const;

private:
    struct Impl;
    std::shared_ptr<const Impl> impl_;
};

}  // namespace dayward
