// A template that gives one colour. Archived as "c009".
#pragma once

#include "Classes/Category/ColorEventBackgroundPicture.h"
#include "Classes/Category/ColorPicture.h"
#include "Classes/Category/EventBackgroundTemplate.h"

namespace dayward {

class ColorEventBackgroundTemplate final : public ColorPicture, public EventBackgroundTemplate {
public:
    static constexpr const char* kArchiveClass = "c009";
    using ColorPicture::ColorPicture;

    [[nodiscard]] std::shared_ptr<const Image> getImage() const override { return imageOfColor(color()); }
    [[nodiscard]] std::shared_ptr<EventBackgroundPicture> getPicture() const override {
        return std::make_shared<ColorEventBackgroundPicture>(color());
    }

    [[nodiscard]] std::vector<std::string> archiveClassNames() const override {
        return {kArchiveClass, kBaseArchiveClass};
    }
    static std::shared_ptr<Archivable> read(KeyedUnarchiver& coder) {
        return readColor<ColorEventBackgroundTemplate>(coder);
    }
};

}  // namespace dayward
