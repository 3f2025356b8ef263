#include "Classes/Settings/InterfaceSettings.h"

#include <algorithm>
#include <cctype>
#include <sstream>
#include <string_view>

#include "platform/Environment.h"
#include "platform/FailedSave.h"
#include "platform/NotificationCenter.h"
#include "platform/UserDefaults.h"

namespace dayward {

namespace {

void set(const char* key, const Object& value) {
    Environment& environment = Environment::current();
    environment.standardDefaults().setObject(value, key);
    saveDefaults(environment, environment.standardDefaults());
    environment.notifications().post(InterfaceSettings::kDidUpdateNotification, nullptr);
}

/// "DE" or "419".
bool isRegion(std::string_view part) {
    const auto isDigit = [](unsigned char c) { return std::isdigit(c) != 0; };
    const auto isLetter = [](unsigned char c) { return std::isalpha(c) != 0; };
    return (part.size() == 2 && std::ranges::all_of(part, isLetter)) ||
           (part.size() == 3 && std::ranges::all_of(part, isDigit));
}

}  // namespace

InterfaceSettings::Theme InterfaceSettings::theme() {
    const std::int64_t stored = Environment::current().standardDefaults().integerForKey(kThemeKey);
    const bool isKnown = stored >= 0 && stored <= static_cast<std::int64_t>(Theme::dark);
    return isKnown ? static_cast<Theme>(stored) : Theme::system;
}

void InterfaceSettings::setTheme(Theme theme) { set(kThemeKey, static_cast<std::int64_t>(theme)); }

const std::vector<std::string>& InterfaceSettings::languages() {
    static const std::vector<std::string> kLanguages{"en", "ru"};
    return kLanguages;
}

std::optional<std::string> InterfaceSettings::language() {
    auto stored = Environment::current().standardDefaults().stringForKey(kLanguageKey);
    const bool isKnown = stored && std::ranges::find(languages(), *stored) != languages().end();
    return isKnown ? stored : std::nullopt;
}

// A script belongs to the language, and a variant to the locale: neither is kept.
Locale InterfaceSettings::localeInLanguage(const Locale& locale, const std::string& language) {
    std::istringstream parts(locale.identifier());
    std::string part;
    std::getline(parts, part, '_');
    while (std::getline(parts, part, '_')) {
        if (isRegion(part)) return Locale(language + "_" + part);
    }
    return Locale(language);
}

void InterfaceSettings::setLanguage(const std::optional<std::string>& language) { set(kLanguageKey, language); }

}  // namespace dayward
