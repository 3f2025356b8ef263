#include "resources/generator/backgrounds/Raster.h"

#include <charconv>
#include <stdexcept>
#include <string>

#include "resources/generator/Random.h"

namespace dayward::generator {

Paint Paint::fromHex(std::string_view text) {
    unsigned value = 0;
    const char* const end = text.data() + text.size();
    if (text.size() != 7 || text[0] != '#' || std::from_chars(text.data() + 1, end, value, 16).ptr != end) {
        throw std::runtime_error("'" + std::string(text) + "' is no colour");
    }
    const auto channel = [value](int shift) { return static_cast<float>(value >> shift & 0xFF) / 255.0F; };
    return {channel(16), channel(8), channel(0)};
}

Paint colorAt(const std::vector<Paint>& scale, float share) {
    const float place = std::clamp(share, 0.0F, 1.0F) * static_cast<float>(scale.size() - 1);
    const auto index = std::min(static_cast<std::size_t>(place), scale.size() - 1);
    const auto next = std::min(index + 1, scale.size() - 1);
    return mix(scale[index], scale[next], place - static_cast<float>(index));
}

Image Raster::image() const {
    Data rgba;
    rgba.reserve(pixels_.size() * 4);
    Random random(1);
    for (const Paint& paint : pixels_) {
        // The rounding is scattered, so that no bands show in slow gradients.
        const float shift = random.share();
        for (const float channel : {paint.red, paint.green, paint.blue}) {
            rgba.push_back(static_cast<std::uint8_t>(std::clamp(channel, 0.0F, 1.0F) * 254.99F + shift * 0.999F));
        }
        rgba.push_back(255);
    }
    return Image(size_, size_, std::move(rgba));
}

}  // namespace dayward::generator
