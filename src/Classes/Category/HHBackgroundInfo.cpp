#include "Classes/Category/HHBackgroundInfo.h"

#include "Classes/Category/ColorEventBackgroundPicture.h"
#include "Classes/Category/ColorPicture.h"
#include "Classes/Category/ImageEventBackgroundPicture.h"
#include "Classes/Category/NamedEventBackgroundPicture.h"
#include "Classes/Category/OlderImages.h"
#include "Classes/Category/RColorEventBackgroundTemplate.h"
#include "Classes/Category/RNamedEventBackgroundTemplate.h"
#include "platform/FatalError.h"
#include "platform/KeyedArchiver.h"
#include "platform/KeyedUnarchiver.h"
#include "resources/HHResources.h"

namespace dayward {

HHBackgroundInfo::Type HHBackgroundInfo::effectiveType() const {
    const bool known = type_ >= 0 && type_ <= static_cast<std::int64_t>(Type::image);
    return known ? static_cast<Type>(type_) : Type::named;
}

std::shared_ptr<EventBackgroundPicture> HHBackgroundInfo::getPicture() const {
    switch (effectiveType()) {
        case Type::named:
            if (name_) return std::make_shared<NamedEventBackgroundPicture>(*name_);
            [[fallthrough]];
        case Type::randomNamed: return RNamedEventBackgroundTemplate().getPicture();
        case Type::color:
            if (color_) return std::make_shared<ColorEventBackgroundPicture>(*color_);
            [[fallthrough]];
        case Type::randomColor: return RColorEventBackgroundTemplate().getPicture();
        case Type::image:
            if (image_) return std::make_shared<ImageEventBackgroundPicture>(image_);
    }
    fatalError("HHBackgroundInfo of type image without an image");
}

std::shared_ptr<const Image> HHBackgroundInfo::getImage() const {
    switch (effectiveType()) {
        case Type::named:
            if (name_) return HHResources::image(*name_);
            [[fallthrough]];
        case Type::randomNamed: return RNamedEventBackgroundTemplate().getImage();
        case Type::color:
            if (color_) return ColorPicture::imageOfColor(*color_);
            [[fallthrough]];
        case Type::randomColor: return RColorEventBackgroundTemplate().getImage();
        case Type::image: break;
    }
    return image_ ? image_ : std::make_shared<const Image>();
}

bool HHBackgroundInfo::isRandom() const {
    return effectiveType() == Type::randomNamed || effectiveType() == Type::randomColor;
}

void HHBackgroundInfo::encodeWithCoder(KeyedArchiver& coder) const {
    coder.encodeInteger(type_, kTypeKey);
    coder.encodeObject(name_, kNameKey);
    coder.encodeObject(colorObject(color_), kColorKey);
    coder.encodeObject(dataOfImage(image_), kImageDataKey);
}

bool HHBackgroundInfo::isEqual(const Archivable& other) const {
    const auto* info = dynamic_cast<const HHBackgroundInfo*>(&other);
    return info && type_ == info->type_ && name_ == info->name_ && color_ == info->color_ &&
           sameImage(image_, info->image_);
}

std::shared_ptr<Archivable> HHBackgroundInfo::read(KeyedUnarchiver& coder) {
    return std::make_shared<HHBackgroundInfo>(coder.decodeInteger(kTypeKey).value_or(0), coder.decodeString(kNameKey),
                                              colorOf(coder.decodeObject(kColorKey)),
                                              imageFromData(coder.decodeData(kImageDataKey)));
}

}  // namespace dayward
