// Plays the sounds of the table into files. Use: dayward-sounds TABLE DIRECTORY
//
// An item has its "seconds", the share of "room", and "parts": each an instrument of the table's
// "instruments" and its notes [start, pitch, strength, length], of which the last two may be left out.
#include <cmath>

#include "resources/generator/Catalogue.h"
#include "resources/generator/sounds/Samples.h"
#include "resources/generator/sounds/Voices.h"

namespace dayward::generator {
namespace {

constexpr float kLoudness = -14, kPeak = 0.89F;
constexpr float kFade = 0.3F;

Note noteOf(const Json& values) {
    return {values.at(0), frequencyOf(values.at(1)), values.size() > 2 ? values[2].get<float>() : 1,
            values.size() > 3 ? values[3].get<float>() : 0.3F};
}

void fadeOut(Samples& samples) {
    const std::size_t count = std::min(samplesIn(kFade), samples.size());
    for (std::size_t index = 0; index < count; ++index) {
        const float share = static_cast<float>(index) / static_cast<float>(count);
        samples[samples.size() - 1 - index] *= 0.5F - 0.5F * std::cos(kTurn / 2 * share);
    }
}

/// Takes away what does not sound: a shift of the middle, and swings below hearing.
void removeDrift(Samples& samples) {
    constexpr float kLowest = 20;
    float drift = 0;
    for (float& sample : samples) {
        drift += (sample - drift) * kTurn * kLowest / kRate;
        sample -= drift;
    }
}

Samples played(const Json& item, const Json& instruments) {
    Samples samples(samplesIn(item.at("seconds")));
    Random random(item.value("seed", 1U));
    for (const Json& part : item.at("parts")) {
        const Json& instrument = instruments.at(part.at("instrument").get<std::string>());
        for (const Json& note : part.at("notes")) play(samples, instrument, noteOf(note), random);
    }
    if (const float room = item.value("room", 0.0F); room > 0) addRoom(samples, room);
    removeDrift(samples);
    fadeOut(samples);
    level(samples, kLoudness, kPeak);
    return samples;
}

void write(const std::string& path, const Data& bytes) { writeFile(path, bytes.data(), bytes.size()); }

/// One that is compressed has an uncompressed one beside it, for those who play no others.
void writeSound(const std::string& directory, const std::string& file, const Samples& samples) {
    constexpr std::string_view kCompressed = ".mp3";
    const std::string path = directory + "/" + file;
    if (!file.ends_with(kCompressed)) return write(path, waveFile(samples));
    write(path, mp3File(samples));
    write(path.substr(0, path.size() - kCompressed.size()) + ".wav", waveFile(samples));
}

void run(const std::vector<std::string>& arguments) {
    const Catalogue catalogue = Catalogue::read(arguments[0]);
    const Json& instruments = catalogue.table.at("instruments");
    catalogue.forEach([&](const Json& item) {
        writeSound(arguments[1], item.at("file"), played(item, instruments));
    });
    catalogue.writeIndex(arguments[1], "sound");
}

}  // namespace
}  // namespace dayward::generator

int main(int count, char** arguments) {
    return dayward::generator::runGenerator(count, arguments, "dayward-sounds TABLE DIRECTORY", 2,
                                            dayward::generator::run);
}
