#include "Classes/Category/HHAppImage.h"

#include "Classes/Category/ImageEventIconPicture.h"
#include "Classes/Category/ImageObject.h"
#include "Classes/Category/NamedEventIconPicture.h"
#include "Classes/Category/OlderImages.h"
#include "platform/Environment.h"
#include "platform/FileSystem.h"
#include "platform/KeyedArchiver.h"
#include "platform/KeyedUnarchiver.h"
#include "resources/HHResources.h"

namespace dayward {
namespace {

OptionalImage resourceImage(const std::string& name) {
    auto image = HHResources::image(name);
    return image->isEmpty() ? nullptr : image;
}

}  // namespace

std::shared_ptr<HHAppImage> HHAppImage::contentsOfFile(const std::string& path) {
    const auto data = Environment::current().files().readFile(path);
    return std::make_shared<HHAppImage>(data ? imageFromData(*data) : nullptr, lastPathComponent(path));
}

std::shared_ptr<HHAppImage> HHAppImage::named(const std::string& name) {
    return std::make_shared<HHAppImage>(resourceImage(name), name);
}

std::shared_ptr<HHAppImage> HHAppImage::withData(const Data& data) {
    return std::make_shared<HHAppImage>(imageFromData(data));
}

std::shared_ptr<const Image> HHAppImage::getImage() const { return image_ ? image_ : std::make_shared<const Image>(); }

std::shared_ptr<EventIconPicture> HHAppImage::updatedPicture() const {
    if (source_) return std::make_shared<NamedEventIconPicture>(*source_);
    if (image_) return std::make_shared<ImageEventIconPicture>(image_);
    return nullptr;
}

void HHAppImage::encodeWithCoder(KeyedArchiver& coder) const {
    coder.encodeObject(source_, kSourceKey);
    coder.encodeObject(dataOfImage(image_), kImageDataKey);
}

bool HHAppImage::isEqual(const Archivable& other) const {
    const auto* image = dynamic_cast<const HHAppImage*>(&other);
    return image && source_ == image->source_ && sameImage(image_, image->image_);
}

std::shared_ptr<Archivable> HHAppImage::read(KeyedUnarchiver& coder) {
    auto source = coder.decodeString(kSourceKey);
    const auto systemName = coder.decodeString(kSystemNameKey);
    auto image = systemName ? resourceImage(*systemName) : nullptr;
    // The resource's name is the source that it came from, or updatedPicture would copy its pixels.
    if (image && !source) source = systemName;
    if (!image) image = imageFromData(coder.decodeData(kImageDataKey));
    if (const auto object = coder.decodeRecord<ImageObject>(kImageKey); object && !image) {
        image = imageFromData(object->data());
    }
    return std::make_shared<HHAppImage>(std::move(image), std::move(source));
}

}  // namespace dayward
