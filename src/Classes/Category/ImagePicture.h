// What the two picture bases with an image of the user's have in common: the image, and where it
// came from.
//
// The bytes that an archive held are written back as they were, so that a JPEG does not lose quality
// each time its record is saved.
#pragma once

#include <cstddef>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

#include "platform/Archivable.h"
#include "platform/Data.h"
#include "platform/Image.h"
#include "platform/KeyedUnarchiver.h"

namespace dayward {

class ImagePicture : public virtual Archivable {
public:
    static constexpr const char* kImageKey = "p001";
    static constexpr const char* kSourceKey = "p002";

    /// `encoded` are the image's bytes in the picture's own format, where they are known.
    explicit ImagePicture(std::shared_ptr<const Image> image, std::optional<std::string> source = {},
                          Data encoded = {});

    /// Never null.
    [[nodiscard]] const std::shared_ptr<const Image>& image() const { return image_; }
    /// A file name or a link.
    [[nodiscard]] const std::optional<std::string>& source() const { return source_; }
    /// The bytes that the image was read from; empty where they are not known.
    [[nodiscard]] const Data& encoded() const { return encoded_; }
    /// The image's bytes in the picture's own format, as an archive would hold them.
    [[nodiscard]] Result<Data> encodedData() const;

    /// The same for pictures of the same pixels; counted when it is first asked for.
    [[nodiscard]] std::size_t pixelsHash() const;

    void encodeWithCoder(KeyedArchiver& coder) const override;
    /// Same class, same pixels, same source.
    [[nodiscard]] bool isEqual(const Archivable& other) const override;

protected:
    /// A new encoding.
    [[nodiscard]] virtual Result<Data> encodedImage() const = 0;

    /// Null where the archive has no readable image.
    template <class Picture>
    static std::shared_ptr<Archivable> readImage(KeyedUnarchiver& coder) {
        auto data = coder.decodeData(kImageKey);
        if (!data) return nullptr;
        auto image = Image::decode(*data);
        if (!image) return nullptr;
        return std::make_shared<Picture>(std::make_shared<const Image>(*std::move(image)),
                                         coder.decodeString(kSourceKey), *std::move(data));
    }

private:
    struct Hash {
        std::once_flag once;
        std::size_t value = 0;
    };

    const std::shared_ptr<Hash> hash_ = std::make_shared<Hash>();
    const std::shared_ptr<const Image> image_;
    const std::optional<std::string> source_;
    const Data encoded_;
};

}  // namespace dayward
