#include "shell/QtImages.h"

#include <utility>

namespace dayward {

QImage qtImage(const Image& image) {
    if (image.isEmpty()) return {};
    const QImage straight(image.rgba().data(), image.width(), image.height(), 4 * image.width(),
                          QImage::Format_RGBA8888);
    return straight.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

Image coreImage(const QImage& image) {
    const QImage straight = image.convertToFormat(QImage::Format_RGBA8888);
    Data bytes;
    bytes.reserve(static_cast<std::size_t>(straight.width()) * static_cast<std::size_t>(straight.height()) * 4);
    for (int line = 0; line < straight.height(); ++line) {
        const uchar* first = straight.constScanLine(line);
        bytes.insert(bytes.end(), first, first + 4 * static_cast<std::ptrdiff_t>(straight.width()));
    }
    return {straight.width(), straight.height(), std::move(bytes)};
}

}  // namespace dayward
