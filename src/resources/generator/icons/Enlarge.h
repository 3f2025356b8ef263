// Enlarging small pictures so that their edges stay clear.
#pragma once

#include "platform/Image.h"
#include "resources/generator/icons/EmojiFont.h"

namespace dayward::generator {

/// The picture without its empty borders, scaled (Lanczos, then sharpened a little) to the middle of a
/// square of `size` pixels with `margin` left free on each side.
Image squareIcon(const ColorBitmap& picture, int size, int margin);

}  // namespace dayward::generator
