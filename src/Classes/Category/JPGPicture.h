// Base of the backgrounds with an image of their own. Archived as "c003a": "p001" the JPEG data,
// "p002" the source.
#pragma once

#include "Classes/Category/ImagePicture.h"

namespace dayward {

class JPGPicture : public ImagePicture {
public:
    static constexpr const char* kBaseArchiveClass = "c003a";
    /// Less than in a document's own file, where the image stands alone.
    static constexpr double kQuality = 0.7;
    using ImagePicture::ImagePicture;

protected:
    [[nodiscard]] Result<Data> encodedImage() const override { return image()->jpegData(kQuality); }
};

}  // namespace dayward
