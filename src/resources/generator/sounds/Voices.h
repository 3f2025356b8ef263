// The instruments: each adds one note to a sound. Times in seconds, frequencies in hertz.
#pragma once

#include "resources/generator/Catalogue.h"
#include "resources/generator/Random.h"
#include "resources/generator/sounds/Samples.h"

namespace dayward::generator {

struct Note {
    float start, frequency, strength, length;
};

/// Of a name as "C4" (middle C), "F#5" or "Bb3", or of a number as it is. Throws std::runtime_error.
float frequencyOf(const Json& pitch);

/// Adds the note as the instrument plays it: a JSON object with "kind" struck, plucked, blown, swept
/// or hiss, and the settings that Voices.cpp reads. Throws std::runtime_error for another kind.
void play(Samples& samples, const Json& instrument, const Note& note, Random& random);

}  // namespace dayward::generator
