#include "agent/desktop/AlertSound.h"

#include <vector>

#include "platform/Environment.h"
#include "platform/FileSystem.h"
#include "platform/Log.h"
#include "platform/linux/DetachedProcess.h"
#include "resources/XELAudioManager.h"

namespace dayward {

namespace {

/// The first that is installed; the file's path follows.
const std::vector<std::vector<std::string>> kPlayers{{"pw-play", "--media-role=Notification"},
                                                     {"paplay"},
                                                     {"gst-play-1.0", "-q"},
                                                     {"mpg123", "-q"},
                                                     {"canberra-gtk-play", "-f"}};
constexpr std::chrono::seconds kOneMoment{1};

}  // namespace

std::optional<std::string> AlertSound::path(const LocalNotification& notification) {
    auto path = notification.soundName ? XELAudioManager::pathOfSound(*notification.soundName) : std::nullopt;
    if (!path || isForServices(*path)) return path;
    const std::string uncompressed = std::string(deletingPathExtension(*path)) + ".wav";
    return Environment::current().files().exists(uncompressed) ? uncompressed : path;
}

bool AlertSound::isForServices(const std::string& path) {
    const auto kind = pathExtension(path);
    return kind == "wav" || kind == "oga" || kind == "ogg";
}

void AlertSound::play(const std::string& path) {
    const auto now = std::chrono::steady_clock::now();
    if (now < silentUntil_) return;
    for (std::vector<std::string> command : kPlayers) {
        command.front() = programInPath(command.front());
        if (command.front().empty()) continue;
        command.push_back(path);
        const auto started = startDetached(command);
        if (!started) logError("sound: " + started.error().description());
        silentUntil_ = now + kOneMoment;
        return;
    }
}

}  // namespace dayward
