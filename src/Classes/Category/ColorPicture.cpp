#include "Classes/Category/ColorPicture.h"

#include <algorithm>
#include <cmath>
#include <typeinfo>

#include "platform/KeyedArchiver.h"

namespace dayward {
namespace {

std::uint8_t byteOf(double component) {
    // Archives hold any number; one that is none is dark.
    if (!(component > 0)) return 0;
    return static_cast<std::uint8_t>(std::lround(std::min(component, 1.0) * 255));
}

}  // namespace

void ColorPicture::encodeWithCoder(KeyedArchiver& coder) const { coder.encodeObject(colorObject(color_), kColorKey); }

bool ColorPicture::isEqual(const Archivable& other) const {
    return typeid(*this) == typeid(other) && color_ == dynamic_cast<const ColorPicture&>(other).color_;
}

std::shared_ptr<const Image> ColorPicture::imageOfColor(const Color& color) {
    return std::make_shared<const Image>(
        1, 1, Data{byteOf(color.red), byteOf(color.green), byteOf(color.blue), byteOf(color.alpha)});
}

}  // namespace dayward
