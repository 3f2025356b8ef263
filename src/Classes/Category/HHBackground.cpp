#include "Classes/Category/HHBackground.h"

#include "Classes/Category/OlderImages.h"
#include "platform/KeyedArchiver.h"
#include "platform/KeyedUnarchiver.h"

namespace dayward {

void HHBackground::encodeWithCoder(KeyedArchiver& coder) const {
    coder.encodeVersion(kVersion, kArchiveClass);
    coder.encodeObject(dataOfImage(image_), kImageDataKey);
    coder.encodeObject(imageSource_, kImageSourceKey);
    coder.encodeObject(colorObject(color_), kColorKey);
}

bool HHBackground::isEqual(const Archivable& other) const {
    const auto* background = dynamic_cast<const HHBackground*>(&other);
    return background && imageSource_ == background->imageSource_ && color_ == background->color_ &&
           sameImage(image_, background->image_);
}

std::shared_ptr<Archivable> HHBackground::read(KeyedUnarchiver& coder) {
    auto source = coder.decodeString(kImageSourceKey);
    const bool firstFormat = coder.decodeVersion(kArchiveClass).value_or(0) < kVersion;
    if (firstFormat && !source) source = coder.decodeString(kImageNameKey);
    return std::make_shared<HHBackground>(imageFromData(coder.decodeData(kImageDataKey)), std::move(source),
                                          colorOf(coder.decodeObject(kColorKey)));
}

}  // namespace dayward
