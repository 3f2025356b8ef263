// A background template record of older versions, kept readable and usable.
//
// Archived as "HHBackgroundInfo": "type", "name", "color", "imageData". Immutable; any thread.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "Classes/Category/EventBackgroundTemplate.h"
#include "platform/Color.h"

namespace dayward {

class HHBackgroundInfo final : public EventBackgroundTemplate {
public:
    static constexpr const char* kArchiveClass = "HHBackgroundInfo";
    static constexpr const char* kTypeKey = "type";
    static constexpr const char* kNameKey = "name";
    static constexpr const char* kColorKey = "color";
    static constexpr const char* kImageDataKey = "imageData";

    enum class Type { named = 0, randomNamed = 1, color = 2, randomColor = 3, image = 4 };

    /// A type that is none of them acts as `named`; the number itself is kept.
    HHBackgroundInfo(std::int64_t type, std::optional<std::string> name, std::optional<Color> color,
                     std::shared_ptr<const Image> image)
        : type_(type), name_(std::move(name)), color_(color), image_(std::move(image)) {}

    /// As stored.
    [[nodiscard]] std::int64_t type() const { return type_; }
    /// What the record acts as.
    [[nodiscard]] Type effectiveType() const;
    [[nodiscard]] const std::optional<std::string>& name() const { return name_; }
    [[nodiscard]] const std::optional<Color>& color() const { return color_; }
    [[nodiscard]] const std::shared_ptr<const Image>& image() const { return image_; }

    /// A named or coloured record without its name or colour picks one at each call. One of type
    /// image without an image is corrupt and stops the process.
    [[nodiscard]] std::shared_ptr<EventBackgroundPicture> getPicture() const override;
    [[nodiscard]] std::shared_ptr<const Image> getImage() const override;
    /// True for the two random types alone.
    [[nodiscard]] bool isRandom() const override;

    [[nodiscard]] std::vector<std::string> archiveClassNames() const override { return {kArchiveClass}; }
    void encodeWithCoder(KeyedArchiver& coder) const override;
    /// Same fields.
    [[nodiscard]] bool isEqual(const Archivable& other) const override;
    static std::shared_ptr<Archivable> read(KeyedUnarchiver& coder);

private:
    const std::int64_t type_;
    const std::optional<std::string> name_;
    const std::optional<Color> color_;
    const std::shared_ptr<const Image> image_;
};

}  // namespace dayward
