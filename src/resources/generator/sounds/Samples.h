// A sound in the making: one channel, 44,100 values a second, nominally from -1 to 1.
#pragma once

#include <string>
#include <vector>

#include "platform/Data.h"

namespace dayward::generator {

using Samples = std::vector<float>;

constexpr int kRate = 44100;
constexpr float kTurn = 6.28318531F;

inline std::size_t samplesIn(float seconds) { return static_cast<std::size_t>(seconds * kRate); }

/// Adds the echoes of a room, `share` of the sound's strength; the sound keeps its length.
void addRoom(Samples& samples, float share);

/// The loudest 0.4 seconds as ITU-R BS.1770 weighs them, in LUFS.
float greatestLoudness(const Samples& samples);
/// Brings the greatest loudness to `target` LUFS, as far as the peak stays at `peak` or below; only
/// peaks that stick out are rounded off.
void level(Samples& samples, float target, float peak);

/// RIFF/WAVE, 16-bit PCM, one channel.
Data waveFile(const Samples& samples);
/// MPEG-1 layer III, one channel. Throws std::runtime_error where the encoder fails.
Data mp3File(const Samples& samples);

}  // namespace dayward::generator
