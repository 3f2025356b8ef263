// An icon record of older versions, kept readable.
//
// Archived as "HHAppImage": "Source", "SystemName", "ImageData", "Image". Immutable; any thread.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "Classes/Category/EventIconPicture.h"
#include "platform/Archivable.h"
#include "platform/Data.h"
#include "platform/Image.h"

namespace dayward {

class HHAppImage final : public Archivable {
public:
    static constexpr const char* kArchiveClass = "HHAppImage";
    static constexpr const char* kSourceKey = "Source";
    static constexpr const char* kSystemNameKey = "SystemName";
    static constexpr const char* kImageDataKey = "ImageData";
    static constexpr const char* kImageKey = "Image";

    explicit HHAppImage(std::shared_ptr<const Image> image, std::optional<std::string> source = {})
        : image_(std::move(image)), source_(std::move(source)) {}
    /// The file's name is the source; the image is nothing where the file cannot be read.
    static std::shared_ptr<HHAppImage> contentsOfFile(const std::string& path);
    /// A resource by its file name, which is the source.
    static std::shared_ptr<HHAppImage> named(const std::string& name);
    /// The image is nothing where the data is none.
    static std::shared_ptr<HHAppImage> withData(const Data& data);

    /// Null where the record has none.
    [[nodiscard]] const std::shared_ptr<const Image>& image() const { return image_; }
    [[nodiscard]] const std::optional<std::string>& source() const { return source_; }

    /// Never null: the empty image where there is none.
    [[nodiscard]] std::shared_ptr<const Image> getImage() const;
    /// The record of today: named where there is a source, else with the image; null with neither.
    [[nodiscard]] std::shared_ptr<EventIconPicture> updatedPicture() const;

    [[nodiscard]] std::vector<std::string> archiveClassNames() const override { return {kArchiveClass}; }
    void encodeWithCoder(KeyedArchiver& coder) const override;
    /// Same pixels and same source.
    [[nodiscard]] bool isEqual(const Archivable& other) const override;
    static std::shared_ptr<Archivable> read(KeyedUnarchiver& coder);

private:
    const std::shared_ptr<const Image> image_;
    const std::optional<std::string> source_;
};

}  // namespace dayward
