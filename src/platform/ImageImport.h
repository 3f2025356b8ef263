// From the bytes of a picture file of the user's to a picture for keeping: upright, and no larger than
// needed. Pure functions; any thread.
#pragma once

#include "platform/Data.h"
#include "platform/Image.h"
#include "platform/PixelSize.h"
#include "platform/Result.h"

namespace dayward {

/// How a picture is stored, as the tag "Orientation" of Exif 2.3 counts it: where its first row and
/// its first column belong.
enum class ImageOrientation {
    topLeft = 1,
    topRight = 2,
    bottomRight = 3,
    bottomLeft = 4,
    leftTop = 5,
    rightTop = 6,
    rightBottom = 7,
    leftBottom = 8,
};

/// The orientation that a JPEG file tells in its Exif segment; topLeft where it tells none.
ImageOrientation exifOrientation(const Data& jpeg);
/// The picture turned and mirrored so that its first row is on top and its first column at the left.
Image uprightImage(const Image& image, ImageOrientation orientation);
/// The picture with its longer side made `longestSide` pixels, each the mean of those that it stands
/// for; as it is where it is not larger.
Image scaledToFit(const Image& image, int longestSide);
/// The largest part in the middle of the picture that has the shape of the size, made as small as the
/// size where it is larger. A size without pixels gives the empty image.
Image scaledToFill(const Image& image, PixelSize size);

/// All of this with the bytes of a PNG or JPEG file. Fails as Image::decode does.
Result<Image> importImage(const Data& bytes, int longestSide);

}  // namespace dayward
