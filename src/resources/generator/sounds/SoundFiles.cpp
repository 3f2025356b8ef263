#include <lame/lame.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <stdexcept>

#include "resources/generator/sounds/Samples.h"

namespace dayward::generator {
namespace {

void append(Data& data, std::string_view text) { data.insert(data.end(), text.begin(), text.end()); }
void append(Data& data, std::uint32_t value, int bytes) {
    for (int index = 0; index < bytes; ++index) data.push_back(static_cast<std::uint8_t>(value >> (8 * index)));
}

}  // namespace

Data waveFile(const Samples& samples) {
    constexpr int kBytes = 2;
    const auto size = static_cast<std::uint32_t>(samples.size() * kBytes);
    Data file;
    append(file, "RIFF");
    append(file, 36 + size, 4);
    append(file, "WAVEfmt ");
    append(file, 16, 4);
    append(file, 1, 2);  // PCM
    append(file, 1, 2);  // channels
    append(file, kRate, 4);
    append(file, kRate * kBytes, 4);
    append(file, kBytes, 2);
    append(file, kBytes * 8, 2);
    append(file, "data");
    append(file, size, 4);
    for (const float sample : samples) {
        const auto value = static_cast<std::int16_t>(std::lround(std::clamp(sample, -1.0F, 1.0F) * 32767));
        append(file, static_cast<std::uint16_t>(value), kBytes);
    }
    return file;
}

Data mp3File(const Samples& samples) {
    constexpr int kKilobits = 128, kCare = 2;
    const std::unique_ptr<lame_global_flags, int (*)(lame_global_flags*)> encoder(lame_init(), lame_close);
    lame_set_in_samplerate(encoder.get(), kRate);
    lame_set_num_channels(encoder.get(), 1);
    lame_set_mode(encoder.get(), MONO);
    lame_set_brate(encoder.get(), kKilobits);
    lame_set_quality(encoder.get(), kCare);
    if (lame_init_params(encoder.get()) < 0) throw std::runtime_error("the MP3 encoder refuses its settings");
    Data file(samples.size() * 5 / 4 + 7200 * 2);
    const auto room = [&](int used) { return static_cast<int>(file.size()) - used; };
    const int body = lame_encode_buffer_ieee_float(encoder.get(), samples.data(), nullptr,
                                                   static_cast<int>(samples.size()), file.data(), room(0));
    const int tail = body < 0 ? body : lame_encode_flush(encoder.get(), file.data() + body, room(body));
    if (tail < 0) throw std::runtime_error("the MP3 encoder fails");
    file.resize(static_cast<std::size_t>(body) + static_cast<std::size_t>(tail));
    lame_get_lametag_frame(encoder.get(), file.data(), file.size());  // takes the place of the empty first frame
    return file;
}

}  // namespace dayward::generator
