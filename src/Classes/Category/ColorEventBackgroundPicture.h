// A background of one colour. Archived as "c006".
#pragma once

#include "Classes/Category/ColorPicture.h"
#include "Classes/Category/EventBackgroundPicture.h"

namespace dayward {

class ColorEventBackgroundPicture final : public ColorPicture, public EventBackgroundPicture {
public:
    static constexpr const char* kArchiveClass = "c006";
    using ColorPicture::ColorPicture;

    [[nodiscard]] std::shared_ptr<const Image> getImage() const override { return imageOfColor(color()); }

    [[nodiscard]] std::vector<std::string> archiveClassNames() const override {
        return {kArchiveClass, kBaseArchiveClass};
    }
    static std::shared_ptr<Archivable> read(KeyedUnarchiver& coder) {
        return readColor<ColorEventBackgroundPicture>(coder);
    }
};

}  // namespace dayward
