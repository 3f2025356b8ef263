#include "Classes/Settings/InterfaceSettings.h"

#include <algorithm>
#include <tuple>

#include "platform/Environment.h"
#include "platform/NotificationCenter.h"
#include "platform/UserDefaults.h"

namespace dayward {

namespace {

// A failed write is logged by the defaults, which keep the change for the next one.
void set(const char* key, const Object& value) {
    Environment& environment = Environment::current();
    environment.standardDefaults().setObject(value, key);
    std::ignore = environment.standardDefaults().synchronize();
    environment.notifications().post(InterfaceSettings::kDidUpdateNotification, nullptr);
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

void InterfaceSettings::setLanguage(const std::optional<std::string>& language) { set(kLanguageKey, language); }

}  // namespace dayward
