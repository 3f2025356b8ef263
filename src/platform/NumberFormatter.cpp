#include "platform/NumberFormatter.h"

#include <algorithm>

#include <unicode/numberformatter.h>

#include "platform/IcuSupport.h"

namespace dayward {

struct NumberFormatter::Impl {
    icu::number::LocalizedNumberFormatter formatter;  // immutable, so that threads may share it
};

NumberFormatter::NumberFormatter(const Locale& locale, int minimumFractionDigits, int maximumFractionDigits) {
    constexpr int kMostDigits = 100;
    const int minimum = std::clamp(minimumFractionDigits, 0, kMostDigits);
    const int maximum = std::clamp(maximumFractionDigits, minimum, kMostDigits);
    impl_ = std::make_shared<const Impl>(icu::number::NumberFormatter::withLocale(icuLocaleOf(locale))
                                             .precision(icu::number::Precision::minMaxFraction(minimum, maximum))
                                             .roundingMode(UNUM_ROUND_HALFEVEN));
}

std::string NumberFormatter::string(double value) const {
    UErrorCode status = U_ZERO_ERROR;
    return textOf(impl_->formatter.formatDouble(value, status).toString(status));
}

}  // namespace dayward
