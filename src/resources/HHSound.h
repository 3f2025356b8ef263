// The gallery's sounds. Names are file names; see XELAudioManager for what is played.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace dayward {

class HHSound {
public:
    /// Names of the gallery's sounds, from "soundData.json"; made once for each environment. Any thread.
    static const std::vector<std::string>& sounds();
    /// Plays on the environment's one audio manager. Main thread.
    static void playSound(const std::optional<std::string>& name);
    static void stopSound();
};

}  // namespace dayward
