// Which event a notification belongs to: its identifier in the notification's user info.
#pragma once

#include <optional>
#include <string>

#include "platform/LocalNotification.h"

namespace dayward {

inline constexpr const char* kNotificationObjectKey = "objectKey";

/// Nothing where it belongs to no event, as the badge's silent ones do.
inline std::optional<std::string> eventIdentifier(const LocalNotification& notification) {
    const auto found = notification.userInfo.find(kNotificationObjectKey);
    const std::string* text = found == notification.userInfo.end() ? nullptr : found->second.string();
    return text != nullptr ? std::optional(*text) : std::nullopt;
}

/// Nothing removes it. What else is in the user info stays.
inline void setEventIdentifier(LocalNotification& notification, const std::optional<std::string>& identifier) {
    if (identifier) {
        notification.userInfo.insert_or_assign(kNotificationObjectKey, *identifier);
    } else {
        notification.userInfo.erase(kNotificationObjectKey);
    }
}

}  // namespace dayward
