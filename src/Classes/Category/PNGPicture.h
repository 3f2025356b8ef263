// Base of the icons with an image of their own. Archived as "c002a": "p001" the PNG data, "p002" the
// source.
#pragma once

#include "Classes/Category/ImagePicture.h"

namespace dayward {

class PNGPicture : public ImagePicture {
public:
    static constexpr const char* kBaseArchiveClass = "c002a";
    using ImagePicture::ImagePicture;

protected:
    [[nodiscard]] Result<Data> encodedImage() const override { return image()->pngData(); }
};

}  // namespace dayward
