#include "Classes/Category/ImagePicture.h"

#include <functional>
#include <string_view>
#include <typeinfo>

#include "platform/KeyedArchiver.h"
#include "platform/Log.h"

namespace dayward {

ImagePicture::ImagePicture(std::shared_ptr<const Image> image, std::optional<std::string> source, Data encoded)
    : image_(image ? std::move(image) : std::make_shared<const Image>()),
      source_(std::move(source)),
      encoded_(std::move(encoded)) {}

Result<Data> ImagePicture::encodedData() const {
    if (!encoded_.empty()) return encoded_;
    return encodedImage();
}

std::size_t ImagePicture::pixelsHash() const {
    std::call_once(hash_->once, [this] {
        const Data& pixels = image_->rgba();
        hash_->value = std::hash<std::string_view>{}({reinterpret_cast<const char*>(pixels.data()), pixels.size()});
    });
    return hash_->value;
}

void ImagePicture::encodeWithCoder(KeyedArchiver& coder) const {
    if (auto data = encodedData()) {
        coder.encodeObject(*std::move(data), kImageKey);
    } else {
        logError("picture without image data: " + data.error().description());
        coder.encodeObject(nullptr, kImageKey);
    }
    coder.encodeObject(source_, kSourceKey);
}

bool ImagePicture::isEqual(const Archivable& other) const {
    if (typeid(*this) != typeid(other)) return false;
    const auto& picture = dynamic_cast<const ImagePicture&>(other);
    return source_ == picture.source_ && (image_ == picture.image_ || *image_ == *picture.image_);
}

}  // namespace dayward
