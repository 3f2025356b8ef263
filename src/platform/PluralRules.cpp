#include "platform/PluralRules.h"

#include <cmath>

#include <unicode/plurrule.h>

#include "platform/IcuSupport.h"

namespace dayward {

struct PluralRules::Impl {
    std::unique_ptr<icu::PluralRules> rules;
};

PluralRules::PluralRules(const Locale& locale) {
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::PluralRules> rules(icu::PluralRules::forLocale(icuLocaleOf(locale), status));
    if (U_SUCCESS(status) && rules) impl_ = std::make_shared<const Impl>(Impl{std::move(rules)});
}

std::string PluralRules::form(double number) const {
    return impl_ ? textOf(impl_->rules->select(std::abs(number))) : "other";
}

}  // namespace dayward
