// The core's pictures as Qt's and back; the pixels are copied. Any thread.
#pragma once

#include <QImage>

#include "platform/Image.h"

namespace dayward {

/// Null for the empty picture.
QImage qtImage(const Image& image);
Image coreImage(const QImage& image);

}  // namespace dayward
