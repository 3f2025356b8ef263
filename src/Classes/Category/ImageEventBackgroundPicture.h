// A background from an image of the user's. Archived as "c005".
#pragma once

#include "Classes/Category/EventBackgroundPicture.h"
#include "Classes/Category/JPGPicture.h"

namespace dayward {

class ImageEventBackgroundPicture final : public JPGPicture, public EventBackgroundPicture {
public:
    static constexpr const char* kArchiveClass = "c005";
    using JPGPicture::JPGPicture;

    [[nodiscard]] std::shared_ptr<const Image> getImage() const override { return image(); }
    /// For a template that hands its own image on.
    explicit ImageEventBackgroundPicture(const JPGPicture& other) : JPGPicture(other) {}

    [[nodiscard]] std::vector<std::string> archiveClassNames() const override {
        return {kArchiveClass, kBaseArchiveClass};
    }
    static std::shared_ptr<Archivable> read(KeyedUnarchiver& coder) {
        return readImage<ImageEventBackgroundPicture>(coder);
    }
};

}  // namespace dayward
