#include "platform/Color.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "platform/KeyedArchiver.h"
#include "platform/KeyedUnarchiver.h"

namespace dayward {

namespace {

constexpr std::int64_t kDeviceRGB = 2;

std::optional<double> byteAt(std::string_view digits) {
    unsigned value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + 2, value, 16);
    if (error != std::errc() || end != digits.data() + 2) return std::nullopt;
    return value / 255.0;
}

std::optional<double> component(KeyedUnarchiver& coder, std::string_view key) {
    const auto value = coder.decodeDouble(key);
    return value && !std::isnan(*value) ? std::optional(std::clamp(*value, 0.0, 1.0)) : std::nullopt;
}

}  // namespace

std::optional<Color> Color::fromHex(std::string_view text) {
    if ((text.size() != 7 && text.size() != 9) || text.front() != '#') return std::nullopt;
    const auto redPart = byteAt(text.substr(1));
    const auto greenPart = byteAt(text.substr(3));
    const auto bluePart = byteAt(text.substr(5));
    const auto alphaPart = text.size() == 9 ? byteAt(text.substr(7)) : 1.0;
    if (!redPart || !greenPart || !bluePart || !alphaPart) return std::nullopt;
    return Color{*redPart, *greenPart, *bluePart, *alphaPart};
}

std::string Color::hex() const {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string text = "#";
    for (const double part : {red, green, blue, alpha}) {
        const double bounded = std::isnan(part) ? 0 : std::clamp(part, 0.0, 1.0);
        const auto byte = static_cast<unsigned>(std::lround(bounded * 255));
        text += {kDigits[byte >> 4], kDigits[byte & 0x0F]};
    }
    return text;
}

void ColorRecord::encodeWithCoder(KeyedArchiver& coder) const {
    coder.encodeInteger(4, "UIColorComponentCount");
    coder.encodeDouble(color.red, "UIRed");
    coder.encodeDouble(color.green, "UIGreen");
    coder.encodeDouble(color.blue, "UIBlue");
    coder.encodeDouble(color.alpha, "UIAlpha");
    coder.encodeInteger(kDeviceRGB, "NSColorSpace");
}

bool ColorRecord::isEqual(const Archivable& other) const {
    const auto* record = dynamic_cast<const ColorRecord*>(&other);
    return record && record->color == color;
}

std::shared_ptr<Archivable> ColorRecord::read(KeyedUnarchiver& coder) {
    // In the order of the archive, in which the next one is found at once.
    const auto red = component(coder, "UIRed");
    const auto green = component(coder, "UIGreen");
    const auto blue = component(coder, "UIBlue");
    const double alpha = component(coder, "UIAlpha").value_or(1);
    if (const auto white = component(coder, "UIWhite")) {
        return std::make_shared<ColorRecord>(Color{*white, *white, *white, alpha});
    }
    if (!red || !green || !blue) return nullptr;
    return std::make_shared<ColorRecord>(Color{*red, *green, *blue, alpha});
}

Object colorObject(const std::optional<Color>& color) {
    return color ? Object(std::make_shared<ColorRecord>(*color)) : Object();
}

std::optional<Color> colorOf(const Object& object) {
    const auto record = object.as<ColorRecord>();
    return record ? std::optional(record->color) : std::nullopt;
}

void registerColorClass(ArchiveClasses& classes) { classes.add("UIColor", ColorRecord::read); }

}  // namespace dayward
