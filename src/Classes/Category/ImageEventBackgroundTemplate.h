// A template that gives one image of the user's. Archived as "c008".
#pragma once

#include "Classes/Category/EventBackgroundTemplate.h"
#include "Classes/Category/ImageEventBackgroundPicture.h"
#include "Classes/Category/JPGPicture.h"

namespace dayward {

class ImageEventBackgroundTemplate final : public JPGPicture, public EventBackgroundTemplate {
public:
    static constexpr const char* kArchiveClass = "c008";
    using JPGPicture::JPGPicture;

    [[nodiscard]] std::shared_ptr<const Image> getImage() const override { return image(); }
    /// For a template made of a background.
    explicit ImageEventBackgroundTemplate(const JPGPicture& other) : JPGPicture(other) {}

    [[nodiscard]] std::shared_ptr<EventBackgroundPicture> getPicture() const override {
        return std::make_shared<ImageEventBackgroundPicture>(static_cast<const JPGPicture&>(*this));
    }

    [[nodiscard]] std::vector<std::string> archiveClassNames() const override {
        return {kArchiveClass, kBaseArchiveClass};
    }
    static std::shared_ptr<Archivable> read(KeyedUnarchiver& coder) {
        return readImage<ImageEventBackgroundTemplate>(coder);
    }
};

}  // namespace dayward
