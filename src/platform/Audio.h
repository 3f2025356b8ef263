// Playing sound files: what the logic asks of the device that makes them heard. Main thread.
#pragma once

#include <memory>
#include <string>

namespace dayward {

/// One sound while it plays. Destroying it silences it.
class AudioPlayer {
public:
    virtual ~AudioPlayer() = default;
};

class AudioDevice {
public:
    virtual ~AudioDevice() = default;
    /// Starts the WAVE or MP3 file and returns at once; the sound ends by itself or with the player.
    /// Null where it cannot be played, which is logged.
    virtual std::unique_ptr<AudioPlayer> play(const std::string& path) = 0;
};

}  // namespace dayward
