// How a picture wants to be drawn: a plain value that a shell turns into its toolkit's view.
#pragma once

#include <memory>

#include "platform/Image.h"

namespace dayward {

struct ImageView {
    /// Keeps the proportions and fills the bounds; what stands over is cut off.
    static constexpr int kScaleAspectFill = 2;

    std::shared_ptr<const Image> image;
    int contentMode = kScaleAspectFill;
    bool clipsToBounds = true;
};

}  // namespace dayward
