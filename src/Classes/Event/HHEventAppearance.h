// An event's own font and text colour; nothing means the category's.
//
// A copyable value. Archived as "HHEventAppearance" with the version 1 under the class's own name,
// then "FontName" and "FontColor"; reading takes each by itself, and any version.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/Archivable.h"
#include "platform/Color.h"

namespace dayward {

class HHEventAppearance final : public Archivable {
public:
    static constexpr const char* kArchiveClass = "HHEventAppearance";
    static constexpr int kVersion = 1;
    static constexpr const char* kFontNameKey = "FontName";
    static constexpr const char* kFontColorKey = "FontColor";

    std::optional<std::string> fontName;
    std::optional<Color> textColor;

    bool operator==(const HHEventAppearance& other) const {
        return fontName == other.fontName && textColor == other.textColor;
    }

    [[nodiscard]] std::vector<std::string> archiveClassNames() const override { return {kArchiveClass}; }
    void encodeWithCoder(KeyedArchiver& coder) const override;
    /// Same fields.
    [[nodiscard]] bool isEqual(const Archivable& other) const override;
    static std::shared_ptr<Archivable> read(KeyedUnarchiver& coder);
};

}  // namespace dayward
