// What the image codecs share. Private to Image.
#pragma once

#include <cstdint>
#include <string>

#include "platform/Result.h"

namespace dayward {

inline std::unexpected<Error> imageFailure(std::string reason) {
    return failure("image", 0, {{"reason", std::move(reason)}});
}

/// A picture needs a byte for each `pixelsPerByte` pixels at the least; one that claims more is cut off
/// or made to exhaust memory.
inline Result<> checkImageSize(std::uint64_t width, std::uint64_t height, std::uint64_t bytes,
                               std::uint64_t pixelsPerByte) {
    constexpr std::uint64_t kMostPixels = 100'000'000;
    constexpr std::uint64_t kAlwaysRead = 65536;
    if (width == 0 || height == 0) return imageFailure("no pixels");
    if (width > kMostPixels / height) return imageFailure("too many pixels");
    if (width * height > kAlwaysRead + bytes * pixelsPerByte) return imageFailure("the data end early");
    return {};
}

}  // namespace dayward
