// Pictures: what decodes has the pixels that it claims, lives through both of our own encoders, and can be imported.
#include <algorithm>

#include "platform/Image.h"
#include "platform/ImageImport.h"
#include "support/Fuzz.h"

namespace {

/// Encoding more would cost the fuzzer more than it can find.
constexpr std::uint64_t kMostPixelsEncoded = 1 << 16;

void checkCopies(const dayward::Image& image) {
    const auto png = image.pngData();
    dayward::require(png.has_value(), "a decoded picture has a PNG form");
    const auto same = dayward::Image::decode(*png);
    dayward::require(same && *same == image, "PNG keeps every pixel");
    const auto jpeg = image.jpegData(0.8);
    if (!jpeg)
        return dayward::require(image.width() > 65500 || image.height() > 65500, "a picture has a JPEG form");
    const auto similar = dayward::Image::decode(*jpeg);
    dayward::require(similar && similar->width() == image.width() && similar->height() == image.height(),
                     "JPEG keeps the size");
}

/// Turned back it is the same; made smaller it fits, whichever way the file wants it turned.
void checkImport(const dayward::Data& bytes, const dayward::Image& image) {
    using enum dayward::ImageOrientation;
    constexpr dayward::ImageOrientation kBack[] = {topLeft, topRight,   bottomRight, bottomLeft,
                                                   leftTop, leftBottom, rightBottom, rightTop};
    constexpr int kLongestSide = 16;
    const auto orientation = dayward::exifOrientation(bytes);
    const auto back = kBack[static_cast<int>(orientation) - 1];
    dayward::require(uprightImage(uprightImage(image, orientation), back) == image, "a picture can be turned back");
    const auto small = dayward::importImage(bytes, kLongestSide);
    const int longer = std::max(image.width(), image.height());
    dayward::require(
        small && !small->isEmpty() && std::max(small->width(), small->height()) == std::min(longer, kLongestSide),
        "an imported picture fits");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const dayward::Data data(bytes, bytes + size);
    (void)dayward::exifOrientation(data);
    const auto image = dayward::Image::decode(data);
    if (!image) {
        dayward::require(!image.error().description().empty(), "an error says why");
        return 0;
    }
    const auto pixels = static_cast<std::uint64_t>(image->width()) * static_cast<std::uint64_t>(image->height());
    dayward::require(!image->isEmpty() && image->rgba().size() == 4 * pixels, "a picture has its pixels");
    if (pixels > kMostPixelsEncoded) return 0;
    checkCopies(*image);
    checkImport(data, *image);
    return 0;
}
