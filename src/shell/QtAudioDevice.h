// Plays sound files with Qt Multimedia. Main thread only.
#pragma once

#include "platform/Audio.h"

namespace dayward {

class QtAudioDevice final : public AudioDevice {
public:
    std::unique_ptr<AudioPlayer> play(const std::string& path) override;
};

}  // namespace dayward
