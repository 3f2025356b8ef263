#include "platform/Locale.h"

#include <algorithm>
#include <cstdlib>
#include <memory>

#include <unicode/calendar.h>

#include "platform/IcuSupport.h"

namespace dayward {

namespace {

bool isOfIdentifier(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}

/// "ru-RU.UTF-8@euro" is "ru_RU".
std::string normalized(std::string identifier) {
    identifier.resize(std::min(identifier.find_first_of(".@"), identifier.size()));
    std::ranges::replace(identifier, '-', '_');
    const bool isSound = identifier.size() < 64 && std::ranges::all_of(identifier, isOfIdentifier);
    const bool isPosix = identifier.empty() || identifier == "C" || identifier == "POSIX";
    return isPosix || !isSound ? "en_US_POSIX" : identifier;
}

}  // namespace

Locale::Locale(std::string identifier) : identifier_(normalized(std::move(identifier))) {
    const icu::Locale locale = icuLocaleOf(*this);
    languageCode_ = *locale.getLanguage() == '\0' ? "en" : locale.getLanguage();
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::Calendar> calendar(icu::Calendar::createInstance(locale, status));
    if (U_FAILURE(status)) return;
    const int firstWeekday = calendar->getFirstDayOfWeek(status);
    if (U_SUCCESS(status)) firstWeekday_ = firstWeekday;
    minimumDaysInFirstWeek_ = calendar->getMinimalDaysInFirstWeek();
}

Locale Locale::system() {
    for (const char* name : {"LC_ALL", "LC_TIME", "LANG"}) {
        const char* value = std::getenv(name);
        if (value != nullptr && *value != '\0') return Locale(value);
    }
    return Locale("");
}

}  // namespace dayward
