// Which form of a word a number asks for, by the rules of a language. Immutable; safe to share between
// threads.
#pragma once

#include <memory>
#include <string>

#include "platform/Locale.h"

namespace dayward {

class PluralRules {
public:
    explicit PluralRules(const Locale& locale);
    /// "zero", "one", "two", "few", "many" or "other", as the CLDR's rules for cardinal numbers name the
    /// forms. The sign does not count. Every language has "other".
    [[nodiscard]] std::string form(double number) const;

private:
    struct Impl;
    std::shared_ptr<const Impl> impl_;  ///< null where the language has no rules: all is "other"
};

}  // namespace dayward
