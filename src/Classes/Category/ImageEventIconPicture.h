// An icon from an image of the user's. Archived as "c003".
#pragma once

#include "Classes/Category/EventIconPicture.h"
#include "Classes/Category/PNGPicture.h"

namespace dayward {

class ImageEventIconPicture final : public PNGPicture, public EventIconPicture {
public:
    static constexpr const char* kArchiveClass = "c003";
    using PNGPicture::PNGPicture;

    [[nodiscard]] std::shared_ptr<const Image> getImage() const override { return image(); }

    [[nodiscard]] std::vector<std::string> archiveClassNames() const override {
        return {kArchiveClass, kBaseArchiveClass};
    }
    static std::shared_ptr<Archivable> read(KeyedUnarchiver& coder) { return readImage<ImageEventIconPicture>(coder); }
};

}  // namespace dayward
