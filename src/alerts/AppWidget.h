// What the application and the widget's process share, in the defaults of their group: which events the widget
// shows, and the copy of them.
//
// Class operations act on the current environment. A change is written through at once; what the other process
// wrote is seen after the group defaults were synchronized or reloaded. Any thread.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace dayward {

class WidgetEvent;

enum class WidgetType : std::int64_t { todaysEvents = 0, selectedEvents = 1 };

/// The type or the chosen events changed. No object, no user info.
inline constexpr const char* AppWidgetDidUpdateNotification = "AppWidgetDidUpdateNotification";

class AppWidget {
public:
    static constexpr const char* kTypeKey = "k005";
    static constexpr const char* kEventsKey = "k006";
    static constexpr const char* kEventsKeysKey = "k007";
    /// The interface's language where the user chose one: the widget speaks it too.
    static constexpr const char* kLanguageKey = "language";
    static constexpr std::array kTypes{WidgetType::todaysEvents, WidgetType::selectedEvents};

    /// Today's events where there is no value, or none that is known.
    static WidgetType type();
    static void setType(WidgetType type);
    /// In the user's language.
    static std::string displayName(WidgetType type);

    /// The identifiers chosen for the widget, in its order; nothing where none were ever chosen, or where the
    /// value is no array. Entries that are no texts are left out.
    static std::optional<std::vector<std::string>> eventsKeys();
    static void setEventsKeys(const std::vector<std::string>& eventsKeys);

    /// The copy; empty where there is none, and, with a line in the log, where it cannot be read.
    static std::vector<std::shared_ptr<WidgetEvent>> events();
    /// Writes the copy, and nothing where it is the same as the one that is there. A failed write is logged.
    static void setEvents(const std::vector<std::shared_ptr<WidgetEvent>>& events);

    static std::optional<std::string> language();
    static void setLanguage(const std::optional<std::string>& language);
};

}  // namespace dayward
