// The way to the tag "Orientation" in a JPEG file: its segment APP1, in it a TIFF structure, in that
// the first directory (Exif 2.3, sections 4.5 and 4.6).
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "platform/ImageImport.h"

namespace dayward {

namespace {

using Bytes = std::span<const std::uint8_t>;

enum class ByteOrder { little, big };

constexpr std::uint16_t kStartOfImage = 0xFFD8;
constexpr std::uint16_t kStartOfScan = 0xFFDA;
constexpr std::uint16_t kApplication1 = 0xFFE1;
constexpr std::uint16_t kOrientationTag = 0x0112;
constexpr std::uint16_t kTiffMark = 42;
constexpr std::size_t kEntrySize = 12;
constexpr std::size_t kValueInEntry = 8;
constexpr std::string_view kExif("Exif\0\0", 6);

std::optional<std::uint32_t> number(Bytes bytes, std::size_t at, std::size_t size, ByteOrder order) {
    if (at > bytes.size() || bytes.size() - at < size) return std::nullopt;
    std::uint32_t value = 0;
    for (std::size_t index = 0; index < size; ++index) {
        const std::size_t place = order == ByteOrder::big ? index : size - 1 - index;
        value = value << 8U | bytes[at + place];
    }
    return value;
}

/// What stands behind "Exif" in the file's segment of that name.
Bytes tiffOf(Bytes file) {
    constexpr auto big = ByteOrder::big;
    if (number(file, 0, 2, big) != kStartOfImage) return {};
    for (std::size_t at = 2;;) {
        const auto marker = number(file, at, 2, big);
        const auto length = number(file, at + 2, 2, big);
        if (!length || *length < 2 || *marker == kStartOfScan || file.size() - at - 2 < *length) return {};
        const Bytes content = file.subspan(at + 4, *length - 2);
        const bool isExif = *marker == kApplication1 && content.size() >= kExif.size() &&
                            std::string_view(reinterpret_cast<const char*>(content.data()), kExif.size()) == kExif;
        if (isExif) return content.subspan(kExif.size());
        at += 2 + *length;
    }
}

std::optional<std::uint32_t> orientationOf(Bytes tiff) {
    if (tiff.size() < 2) return std::nullopt;
    const ByteOrder order = tiff[0] == 'M' ? ByteOrder::big : ByteOrder::little;
    const auto directory = number(tiff, 4, 4, order);
    if (number(tiff, 2, 2, order) != kTiffMark || !directory) return std::nullopt;
    const auto count = number(tiff, *directory, 2, order);
    for (std::size_t index = 0; count && index < *count; ++index) {
        const std::size_t entry = std::size_t{*directory} + 2 + index * kEntrySize;
        const auto tag = number(tiff, entry, 2, order);
        if (!tag) return std::nullopt;
        if (*tag == kOrientationTag) return number(tiff, entry + kValueInEntry, 2, order);
    }
    return std::nullopt;
}

}  // namespace

ImageOrientation exifOrientation(const Data& jpeg) {
    const auto value = orientationOf(tiffOf(jpeg));
    return value && *value >= 1 && *value <= 8 ? static_cast<ImageOrientation>(*value) : ImageOrientation::topLeft;
}

}  // namespace dayward
