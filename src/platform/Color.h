// A colour: red, green, blue, alpha from 0 to 1, and its forms in archives and text.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/Archivable.h"

namespace dayward {

struct Color {
    double red = 0, green = 0, blue = 0, alpha = 1;

    static constexpr Color black() { return {0, 0, 0, 1}; }
    static constexpr Color white() { return {1, 1, 1, 1}; }
    /// "#RRGGBB" or "#RRGGBBAA", either case; nothing for anything else.
    static std::optional<Color> fromHex(std::string_view text);
    /// "#RRGGBBAA", each component rounded to the nearest of 256.
    [[nodiscard]] std::string hex() const;

    bool operator==(const Color&) const = default;
};

/// The colour object of archives, class "UIColor": "UIColorComponentCount", "UIRed", "UIGreen",
/// "UIBlue", "UIAlpha", "NSColorSpace"; a grey one has "UIWhite" and "UIAlpha". Immutable.
class ColorRecord final : public Archivable {
public:
    explicit ColorRecord(Color value) : color(value) {}
    const Color color;

    [[nodiscard]] std::vector<std::string> archiveClassNames() const override { return {"UIColor"}; }
    void encodeWithCoder(KeyedArchiver& coder) const override;
    [[nodiscard]] bool isEqual(const Archivable& other) const override;
    static std::shared_ptr<Archivable> read(KeyedUnarchiver& coder);
};

/// A colour as an archive holds it; an absent one is null.
Object colorObject(const std::optional<Color>& color);
/// The colour in an object, nothing where it holds none.
std::optional<Color> colorOf(const Object& object);

/// Makes "UIColor" known.
void registerColorClass(ArchiveClasses& classes);

}  // namespace dayward
