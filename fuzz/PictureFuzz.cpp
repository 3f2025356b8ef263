// Pictures: what decodes has the pixels that it claims, and lives through both of our own encoders.
#include "platform/Image.h"
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

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const auto image = dayward::Image::decode(dayward::Data(bytes, bytes + size));
    if (!image) {
        dayward::require(!image.error().description().empty(), "an error says why");
        return 0;
    }
    const auto pixels = static_cast<std::uint64_t>(image->width()) * static_cast<std::uint64_t>(image->height());
    dayward::require(!image->isEmpty() && image->rgba().size() == 4 * pixels, "a picture has its pixels");
    if (pixels <= kMostPixelsEncoded) checkCopies(*image);
    return 0;
}
