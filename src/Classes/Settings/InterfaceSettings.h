// How this device's application shows itself, beside what AppSettings holds for the events: colour
// scheme and language. In the standard user defaults; a value of a wrong type reads as the default.
// Class operations on the current environment; any thread.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/Locale.h"

namespace dayward {

class InterfaceSettings {
public:
    static constexpr const char* kThemeKey = "interface-theme";
    static constexpr const char* kLanguageKey = "interface-language";
    /// Posted without user info when one of them is set.
    static constexpr const char* kDidUpdateNotification = "InterfaceSettingsDidUpdateNotification";

    enum class Theme : std::int64_t { system = 0, light = 1, dark = 2 };

    static Theme theme();
    static void setTheme(Theme theme);

    /// The languages that there are texts in.
    static const std::vector<std::string>& languages();
    /// One of languages(); nothing means the system's. Takes effect at the next start.
    static std::optional<std::string> language();
    static void setLanguage(const std::optional<std::string>& language);
    /// The user's locale in another language: the customs of the region (first weekday, 12 or 24 hours)
    /// stay.
    static Locale localeInLanguage(const Locale& locale, const std::string& language);
};

}  // namespace dayward
