// The platform's image object, which the oldest icon records hold. Archived as "UIImage":
// "UIImageData" the encoded image, "UIScale", "UIImageOrientation". Immutable; any thread.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "platform/Archivable.h"
#include "platform/Data.h"

namespace dayward {

class ImageObject final : public Archivable {
public:
    static constexpr const char* kArchiveClass = "UIImage";
    static constexpr const char* kImageDataKey = "UIImageData";
    static constexpr const char* kScaleKey = "UIScale";
    static constexpr const char* kOrientationKey = "UIImageOrientation";

    ImageObject(std::optional<Data> data, std::optional<double> scale, std::optional<std::int64_t> orientation)
        : data_(std::move(data)), scale_(scale), orientation_(orientation) {}

    [[nodiscard]] const std::optional<Data>& data() const { return data_; }

    [[nodiscard]] std::vector<std::string> archiveClassNames() const override { return {kArchiveClass}; }
    void encodeWithCoder(KeyedArchiver& coder) const override;
    /// Same fields.
    [[nodiscard]] bool isEqual(const Archivable& other) const override;
    static std::shared_ptr<Archivable> read(KeyedUnarchiver& coder);

private:
    const std::optional<Data> data_;
    const std::optional<double> scale_;
    const std::optional<std::int64_t> orientation_;
};

}  // namespace dayward
