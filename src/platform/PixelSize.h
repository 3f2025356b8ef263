// How large a picture is, in pixels of the device.
#pragma once

#include <compare>

namespace dayward {

struct PixelSize {
    int width = 0;
    int height = 0;
    auto operator<=>(const PixelSize&) const = default;
};

}  // namespace dayward
