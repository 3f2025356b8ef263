#include "platform/Image.h"

#include <algorithm>
#include <array>

#include "platform/FatalError.h"
#include "platform/ImageCoding.h"

namespace dayward {

Image::Image(int width, int height, Data rgba) : width_(width), height_(height), rgba_(std::move(rgba)) {
    const bool isValid = width >= 0 && height >= 0 &&
                         rgba_.size() == 4 * static_cast<std::uint64_t>(width) * static_cast<std::uint64_t>(height);
    if (!isValid) fatalError("an image's pixels do not match its size");
}

Result<Image> Image::decode(const Data& bytes) { return decode(bytes, kWholeSize); }

Result<Image> Image::decode(const Data& bytes, PixelSize filling) {
    constexpr std::array<std::uint8_t, 4> kPNG{0x89, 'P', 'N', 'G'};
    constexpr std::array<std::uint8_t, 3> kJPEG{0xFF, 0xD8, 0xFF};
    const auto beginsWith = [&](const auto& mark) {
        return bytes.size() >= mark.size() && std::equal(mark.begin(), mark.end(), bytes.begin());
    };
    if (beginsWith(kPNG)) return decodePNG(bytes);
    if (beginsWith(kJPEG)) return decodeJPEG(bytes, filling);
    return imageFailure(bytes.empty() ? "empty" : "neither PNG nor JPEG");
}

}  // namespace dayward
