#include "resources/generator/sounds/Voices.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <map>
#include <stdexcept>
#include <string_view>

namespace dayward::generator {
namespace {

using Voice = void (*)(Samples&, const Json&, const Note&, Random&);

/// Adds wave(seconds since the start) from the note's start on, for `seconds` or to the sound's end.
template <class Wave>
void add(Samples& samples, const Note& note, float seconds, Wave wave) {
    const std::size_t first = samplesIn(note.start);
    const std::size_t last = std::min(samples.size(), first + samplesIn(seconds));
    for (std::size_t index = first; index < last; ++index) {
        samples[index] += note.strength * wave(static_cast<float>(index - first) / kRate);
    }
}

float number(const Json& instrument, const char* key, float standard) { return instrument.value(key, standard); }

/// Bars, bells, glasses and bowls: partial tones [ratio, strength, seconds to a thousandth] that die away
/// each by itself, after the knock of the mallet.
void struck(Samples& samples, const Json& instrument, const Note& note, Random& random) {
    const float attack = number(instrument, "attack", 0.002F), beat = number(instrument, "beat", 0);
    for (const Json& partial : instrument.at("partials")) {
        const float frequency = note.frequency * partial.at(0).get<float>(), strength = partial.at(1);
        const float decay = 6.9F / partial.at(2).get<float>(), phase = kTurn * random.share() * 0.1F;
        if (frequency > kRate * 0.45F) continue;
        add(samples, note, partial.at(2).get<float>() * 1.3F, [=](float t) {
            const float swing = 1 + beat * std::sin(kTurn * 4.3F * t);
            return strength * swing * std::min(1.0F, t / attack) * std::exp(-decay * t) *
                   std::sin(kTurn * frequency * t + phase);
        });
    }
    const float knock = number(instrument, "knock", 0);
    float held = 0;
    if (knock > 0) {
        add(samples, note, 0.03F, [&](float t) {
            held += 0.35F * (random.share() * 2 - 1 - held);
            return knock * held * std::exp(-t * 220);
        });
    }
}

/// Strings: a burst of noise that runs round a delay line and loses its edges (Karplus and Strong).
void plucked(Samples& samples, const Json& instrument, const Note& note, Random& random) {
    const float period = kRate / note.frequency, bright = number(instrument, "bright", 0.5F);
    const float decay = std::pow(0.001F, 1 / (note.frequency * number(instrument, "seconds", 3)));
    Samples line(static_cast<std::size_t>(period) + 1);
    float held = 0, mean = 0;
    for (float& value : line) value = held += bright * (random.share() * 2 - 1 - held), mean += held;
    for (float& value : line) value -= mean / static_cast<float>(line.size());
    const float part = period - 0.5F - std::floor(period - 0.5F);
    const auto delay = static_cast<std::size_t>(period - 0.5F);
    std::size_t at = 0;
    float before = 0;
    add(samples, note, 1e3F, [&](float t) {
        const std::size_t size = line.size();
        const float late = line[(at + size - delay % size) % size],
                    later = line[(at + 2 * size - delay % size - 1) % size];
        const float value = late + (later - late) * part;
        const float out = decay * 0.5F * (value + before);
        before = value;
        line[at] = out;
        at = (at + 1) % size;
        return out * std::min(1.0F, t / 0.001F) * 1.6F;
    });
}

/// Pipes, horns and pads: harmonics of even strength that swell, tremble and end with the note.
void blown(Samples& samples, const Json& instrument, const Note& note, Random& random) {
    const float attack = number(instrument, "attack", 0.05F), release = number(instrument, "release", 0.15F);
    const float vibrato = number(instrument, "vibrato", 0.004F), breath = number(instrument, "breath", 0);
    const std::vector<float> harmonics = instrument.at("harmonics");
    float turn = 0, held = 0;
    add(samples, note, note.length + release, [&](float t) {
        const float sway = 1 + vibrato * std::min(1.0F, t / 0.4F) * std::sin(kTurn * 5.2F * t);
        turn += kTurn * note.frequency * sway / kRate;
        if (turn > kTurn) turn -= kTurn;
        float value = 0;
        for (std::size_t index = 0; index < harmonics.size(); ++index) {
            // Higher harmonics come in later, as when the wind rises.
            const float rise = std::min(1.0F, t / (attack * (1 + 0.4F * static_cast<float>(index))));
            value += harmonics[index] * rise * std::sin(turn * static_cast<float>(index + 1));
        }
        held += 0.2F * (random.share() * 2 - 1 - held);
        const float end = t < note.length ? 1 : std::max(0.0F, 1 - (t - note.length) / release);
        return (value + breath * held) * end * end;
    });
}

/// Birds, drops and drums: a tone that glides by a factor "to" within the note.
void swept(Samples& samples, const Json& instrument, const Note& note, Random&) {
    const float to = number(instrument, "to", 2), tremble = number(instrument, "tremble", 0),
                overtone = number(instrument, "overtone", 0.1F);
    const float speed = number(instrument, "speed", 30), sharp = number(instrument, "sharp", 1);
    const bool isDying = number(instrument, "dying", 0) > 0;
    float turn = 0;
    add(samples, note, note.length, [&](float t) {
        const float share = t / note.length;
        const float glide = std::pow(to, std::pow(share, sharp)) * (1 + tremble * std::sin(kTurn * speed * t));
        turn += kTurn * note.frequency * glide / kRate;
        const float swell = isDying ? std::min(1.0F, share * 40) * std::exp(-5 * share) * (1 - share)
                                    : std::pow(std::sin(kTurn * 0.5F * share), 1.2F);
        return swell * (std::sin(turn) + overtone * std::sin(2 * turn));
    });
}

/// Wind, surf and shakers: noise through a band that moves by a factor "to".
void hiss(Samples& samples, const Json& instrument, const Note& note, Random& random) {
    const float to = number(instrument, "to", 1), narrow = 1 / number(instrument, "narrow", 1.5F),
                peak = number(instrument, "peak", 0.4F);
    float low = 0, band = 0;
    add(samples, note, note.length, [&](float t) {
        const float share = t / note.length;
        const float frequency = std::min(note.frequency * std::pow(to, share), 7000.0F);
        const float pull = 2 * std::sin(kTurn * 0.5F * frequency / kRate);
        low += pull * band;
        const float high = random.share() * 2 - 1 - low - narrow * band;
        band += pull * high;
        const float swell = share < peak ? share / peak : (1 - share) / (1 - peak);
        return band * swell * swell;
    });
}

}  // namespace

float frequencyOf(const Json& pitch) {
    if (pitch.is_number()) return pitch;
    const std::string name = pitch;
    constexpr std::string_view kSteps = "C D EF G A B";
    const auto step = name.size() < 2 || name[0] == ' ' ? std::string_view::npos : kSteps.find(name[0]);
    const int octave = name.empty() ? 0 : name.back() - '0';
    if (step == std::string_view::npos || octave < 0 || octave > 9)
        throw std::runtime_error("'" + name + "' is no note");
    const int shift = name[1] == '#' ? 1 : name[1] == 'b' ? -1 : 0;
    const int fromA4 = static_cast<int>(step) + shift - 9 + 12 * (octave - 4);
    return 440 * std::pow(2.0F, static_cast<float>(fromA4) / 12);
}

void play(Samples& samples, const Json& instrument, const Note& note, Random& random) {
    static const std::map<std::string, Voice> voices = {
        {"struck", struck}, {"plucked", plucked}, {"blown", blown}, {"swept", swept}, {"hiss", hiss}};
    const auto found = voices.find(instrument.at("kind").get<std::string>());
    if (found == voices.end()) throw std::runtime_error("no instrument is of kind " + instrument.at("kind").dump());
    found->second(samples, instrument, note, random);
}

}  // namespace dayward::generator
