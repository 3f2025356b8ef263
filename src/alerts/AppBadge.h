// The number on the program's icon: what the user wants it to be, and what it is.
//
// The choice lies in the standard user defaults. The number must change while the program does not run:
// silentNotifications() are what sets it then. Class operations act on the current environment. Any thread.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/Date.h"
#include "platform/LocalNotification.h"

namespace dayward {

class HHEvent;

/// The stored numbers.
enum class BadgeType : std::int64_t {
    none = 0,
    missedEvents = 1,
    daysBeforeNextEvent = 2,
    daysBeforeEvent = 3,
    daysAfterEvent = 4,
};

class AppBadge {
public:
    using Events = std::vector<std::shared_ptr<HHEvent>>;

    static constexpr const char* kTypeKey = "k008";
    static constexpr const char* kEventKeyKey = "k009";
    /// How far ahead the number is worked out.
    static constexpr TimeInterval kWindow{30 * 86400.0};
    static constexpr std::array kTypes{BadgeType::none, BadgeType::missedEvents, BadgeType::daysBeforeNextEvent,
                                       BadgeType::daysBeforeEvent, BadgeType::daysAfterEvent};

    /// A number that is no type reads as none. Without a stored one an older switch decides, which is on
    /// where it was never used: missed events, or none.
    static BadgeType type();
    /// Writes the defaults through, as setEventKey() does. The number is another with the next refresh of
    /// the notifications.
    static void setType(BadgeType type);
    /// Whether the type counts days to or from an event.
    static bool countsDays(BadgeType type) { return type == BadgeType::daysBeforeNextEvent || needsEvent(type); }
    /// Whether that is the chosen event.
    static bool needsEvent(BadgeType type);

    /// The identifier of the chosen event; it may have been removed.
    static std::optional<std::string> eventKey();
    static void setEventKey(const std::optional<std::string>& identifier);

    /// The type in words of the user's language.
    static std::string displayName(BadgeType type);

    /// The number of that moment. Nothing where the chosen event is none of these: the number stays.
    static std::optional<std::int64_t> currentNumber(const Events& events, Date now);
    /// Sets the device's number to that one, where it is another.
    static void showCurrentNumber(const Events& events, Date now);
    /// One for each change of the number in the time ahead, by fire date; kWindow says how long that is. They
    /// belong to no event, are instants, and only set the number.
    static std::vector<LocalNotification> silentNotifications(const Events& events, Date now);
};

}  // namespace dayward
