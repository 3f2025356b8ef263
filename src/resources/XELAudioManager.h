// Plays the program's sounds, one at a time, on the environment's audio device. Main thread.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace dayward {

class AudioPlayer;
class Environment;

class XELAudioManager {
public:
    /// The name that notifications store for the platform's own sound.
    static constexpr std::string_view kDefaultSoundName = "UILocalNotificationDefaultSoundName";

    explicit XELAudioManager(Environment& environment);
    ~XELAudioManager();
    XELAudioManager(const XELAudioManager&) = delete;
    XELAudioManager& operator=(const XELAudioManager&) = delete;

    /// The one of the current environment.
    static XELAudioManager& sharedManager();

    /// The resource of that name, of which only the last path component counts; kDefaultSoundName and
    /// "Default" mean the default sound. Nothing where there is no such file. Any thread.
    static std::optional<std::string> pathOfSound(std::string_view name);

    /// Stops what is playing; then plays the sound. Nothing plays without a name, where there is no such
    /// file, and where there is no device.
    void playSound(const std::optional<std::string>& name);
    void stopSound();

    /// A sound's title: its last path component without extension, "_" as blank.
    static std::string descriptionAtSoundFile(std::string_view file);

private:
    std::unique_ptr<AudioPlayer> player_;  ///< of the sound that was played last; null when stopped
};

}  // namespace dayward
