#include <png.h>

#include "platform/Image.h"
#include "platform/ImageCoding.h"

namespace dayward {

namespace {

/// Deflate packs up to 1032 bytes into one, and a byte holds up to 8 pixels.
constexpr std::uint64_t kPixelsPerByte = 1032 * 8;

class PNG {
public:
    PNG() { image.version = PNG_IMAGE_VERSION; }
    ~PNG() { png_image_free(&image); }
    PNG(const PNG&) = delete;
    PNG& operator=(const PNG&) = delete;

    [[nodiscard]] std::unexpected<Error> error() const { return imageFailure(std::string("PNG: ") + image.message); }

    png_image image{};
};

}  // namespace

Result<Image> Image::decodePNG(const Data& bytes) {
    PNG png;
    if (!png_image_begin_read_from_memory(&png.image, bytes.data(), bytes.size())) return png.error();
    TRY_VOID(checkImageSize(png.image.width, png.image.height, bytes.size(), kPixelsPerByte));
    png.image.format = PNG_FORMAT_RGBA;
    Data rgba(PNG_IMAGE_SIZE(png.image));
    if (!png_image_finish_read(&png.image, nullptr, rgba.data(), 0, nullptr)) return png.error();
    return Image(static_cast<int>(png.image.width), static_cast<int>(png.image.height), std::move(rgba));
}

Result<Data> Image::pngData() const {
    if (isEmpty()) return imageFailure("an empty image has no PNG form");
    PNG png;
    png.image.width = static_cast<png_uint_32>(width_);
    png.image.height = static_cast<png_uint_32>(height_);
    png.image.format = PNG_FORMAT_RGBA;
    png_alloc_size_t size = PNG_IMAGE_PNG_SIZE_MAX(png.image);
    Data bytes(size);
    if (!png_image_write_to_memory(&png.image, bytes.data(), &size, 0, rgba_.data(), 0, nullptr)) return png.error();
    bytes.resize(size);
    bytes.shrink_to_fit();
    return bytes;
}

}  // namespace dayward
