#include "Classes/Category/ImageObject.h"

#include "platform/KeyedArchiver.h"
#include "platform/KeyedUnarchiver.h"

namespace dayward {

void ImageObject::encodeWithCoder(KeyedArchiver& coder) const {
    if (data_) coder.encodeObject(*data_, kImageDataKey);
    if (scale_) coder.encodeDouble(*scale_, kScaleKey);
    if (orientation_) coder.encodeInteger(*orientation_, kOrientationKey);
}

bool ImageObject::isEqual(const Archivable& other) const {
    const auto* image = dynamic_cast<const ImageObject*>(&other);
    return image && data_ == image->data_ && scale_ == image->scale_ && orientation_ == image->orientation_;
}

std::shared_ptr<Archivable> ImageObject::read(KeyedUnarchiver& coder) {
    return std::make_shared<ImageObject>(coder.decodeData(kImageDataKey), coder.decodeDouble(kScaleKey),
                                         coder.decodeInteger(kOrientationKey));
}

}  // namespace dayward
