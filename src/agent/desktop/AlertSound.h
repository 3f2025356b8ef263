// An alert's sound, for services that play none. One thread.
#pragma once

#include <chrono>
#include <optional>
#include <string>

#include "platform/LocalNotification.h"

namespace dayward {

class AlertSound {
public:
    /// The file, uncompressed where there is one; nothing where the alert has no sound.
    static std::optional<std::string> path(const LocalNotification& notification);
    /// Notification services play uncompressed files; few play others.
    static bool isForServices(const std::string& path);

    /// Plays the file with a player that is installed. What fires in the same moment has one sound.
    void play(const std::string& path);

private:
    std::chrono::steady_clock::time_point silentUntil_;
};

}  // namespace dayward
