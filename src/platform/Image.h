// A picture in memory and its PNG and JPEG forms. Immutable once shared; any thread.
#pragma once

#include <cstdint>
#include <memory>

#include "platform/Data.h"
#include "platform/Result.h"

namespace dayward {

/// Straight (not premultiplied) RGBA, 8 bits a channel, rows from the top without padding.
class Image {
public:
    Image() = default;  ///< the empty image, 0 by 0
    Image(int width, int height, Data rgba);

    /// Decodes PNG or JPEG, told apart by their first bytes. Domain "image" on failure: unknown
    /// format, broken data, or more than 100 million pixels.
    static Result<Image> decode(const Data& bytes);
    static Result<Image> decodePNG(const Data& bytes);
    static Result<Image> decodeJPEG(const Data& bytes);

    [[nodiscard]] Result<Data> pngData() const;
    /// quality from 0 to 1; alpha is dropped onto white.
    [[nodiscard]] Result<Data> jpegData(double quality) const;

    [[nodiscard]] int width() const { return width_; }
    [[nodiscard]] int height() const { return height_; }
    [[nodiscard]] bool isEmpty() const { return width_ == 0 || height_ == 0; }
    [[nodiscard]] const Data& rgba() const { return rgba_; }

    bool operator==(const Image&) const = default;

private:
    int width_ = 0;
    int height_ = 0;
    Data rgba_;
};

}  // namespace dayward
