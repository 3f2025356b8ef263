// A picture in memory and its PNG and JPEG forms. Immutable once shared; any thread.
#pragma once

#include <cstdint>
#include <memory>

#include "platform/Data.h"
#include "platform/PixelSize.h"
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
    /// The same for a place that it is to fill: the picture may come smaller than it is, in its proportions and
    /// at least as large as the place where it was. A JPEG takes less time and memory so.
    static Result<Image> decode(const Data& bytes, PixelSize filling);
    static Result<Image> decodePNG(const Data& bytes);
    static Result<Image> decodeJPEG(const Data& bytes);
    static Result<Image> decodeJPEG(const Data& bytes, PixelSize filling);

    [[nodiscard]] Result<Data> pngData() const;
    /// quality from 0 to 1; alpha is dropped onto white.
    [[nodiscard]] Result<Data> jpegData(double quality) const;

    [[nodiscard]] int width() const { return width_; }
    [[nodiscard]] int height() const { return height_; }
    [[nodiscard]] bool isEmpty() const { return width_ == 0 || height_ == 0; }
    [[nodiscard]] const Data& rgba() const { return rgba_; }

    bool operator==(const Image&) const = default;

private:
    /// No picture fills it.
    static constexpr PixelSize kWholeSize{1 << 30, 1 << 30};

    int width_ = 0;
    int height_ = 0;
    Data rgba_;
};

}  // namespace dayward
