// A background record of older versions, kept readable.
//
// Archived as "HHBackground", version 1: "imageData", "imageSource", "color". The first format,
// version 0 or none, has the resource's name under "imageName". Immutable; any thread.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/Archivable.h"
#include "platform/Color.h"
#include "platform/Image.h"

namespace dayward {

class HHBackground final : public Archivable {
public:
    static constexpr const char* kArchiveClass = "HHBackground";
    static constexpr int kVersion = 1;
    static constexpr const char* kImageDataKey = "imageData";
    static constexpr const char* kImageSourceKey = "imageSource";
    static constexpr const char* kImageNameKey = "imageName";
    static constexpr const char* kColorKey = "color";

    HHBackground(std::shared_ptr<const Image> image, std::optional<std::string> imageSource, std::optional<Color> color)
        : image_(std::move(image)), imageSource_(std::move(imageSource)), color_(color) {}

    /// Null where the record has none.
    [[nodiscard]] const std::shared_ptr<const Image>& image() const { return image_; }
    [[nodiscard]] const std::optional<std::string>& imageSource() const { return imageSource_; }
    [[nodiscard]] const std::optional<Color>& color() const { return color_; }

    [[nodiscard]] std::vector<std::string> archiveClassNames() const override { return {kArchiveClass}; }
    void encodeWithCoder(KeyedArchiver& coder) const override;
    /// Same pixels, same source, same colour.
    [[nodiscard]] bool isEqual(const Archivable& other) const override;
    static std::shared_ptr<Archivable> read(KeyedUnarchiver& coder);

private:
    const std::shared_ptr<const Image> image_;
    const std::optional<std::string> imageSource_;
    const std::optional<Color> color_;
};

}  // namespace dayward
