#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include <bit>
#include <cstring>

#include "platform/PropertyList.h"

namespace dayward {

namespace {

constexpr std::uint64_t kHeaderSize = 8;
constexpr std::uint64_t kTrailerSize = 32;

std::uint64_t bigEndian(const std::uint8_t* bytes, std::uint64_t count) {
    std::uint64_t value = 0;
    for (std::uint64_t i = 0; i < count; ++i) value = value << 8 | bytes[i];
    return value;
}

std::unexpected<Error> damaged(const char* reason) { return failure("keyed archive", 0, {{"reason", reason}}); }

void appendUTF8(std::string& text, char32_t character) {
    char buffer[U8_MAX_LENGTH];
    int length = 0;
    U8_APPEND_UNSAFE(buffer, length, character);
    text.append(buffer, static_cast<std::size_t>(length));
}

}  // namespace

Result<BinaryPropertyList> BinaryPropertyList::open(std::span<const std::uint8_t> bytes) {
    if (bytes.size() < kHeaderSize + kTrailerSize + 2) return damaged("too short for a property list");
    if (std::memcmp(bytes.data(), "bplist0", 7) != 0) return damaged("no property list");
    const std::uint8_t* trailer = bytes.data() + bytes.size() - kTrailerSize;
    BinaryPropertyList list;
    list.bytes_ = bytes.first(bytes.size() - kTrailerSize);
    list.offsetSize_ = trailer[6];
    list.referenceSize_ = trailer[7];
    list.objectCount_ = bigEndian(trailer + 8, 8);
    list.topObject_ = bigEndian(trailer + 16, 8);
    list.tableOffset_ = bigEndian(trailer + 24, 8);
    const auto validSize = [](unsigned size) { return size >= 1 && size <= 8; };
    if (!validSize(list.offsetSize_) || !validSize(list.referenceSize_)) return damaged("bad sizes in the trailer");
    if (list.tableOffset_ < kHeaderSize || list.tableOffset_ > list.bytes_.size()) {
        return damaged("the table of objects lies outside the file");
    }
    if (list.objectCount_ > (list.bytes_.size() - list.tableOffset_) / list.offsetSize_) {
        return damaged("the table of objects is cut off");
    }
    if (list.topObject_ >= list.objectCount_) return damaged("no top object");
    return list;
}

BinaryPropertyList::Item BinaryPropertyList::item(std::uint64_t object) const {
    if (object >= objectCount_) return {};
    const std::uint64_t offset = bigEndian(bytes_.data() + tableOffset_ + object * offsetSize_, offsetSize_);
    if (offset < kHeaderSize || offset >= tableOffset_) return {};
    const std::uint8_t marker = bytes_[offset];
    const unsigned lowBits = marker & 0x0F;
    switch (marker >> 4) {
        case 0x0:
            if (lowBits == 0) return {Kind::null};
            if (lowBits == 8 || lowBits == 9) return {Kind::boolean, lowBits == 9};
            return {};
        case 0x1: return number(offset, lowBits);
        case 0x2: return real(offset, lowBits, Kind::real);
        case 0x3: return lowBits == 3 ? real(offset, lowBits, Kind::date) : Item{};
        case 0x4: return sized({Kind::data}, offset, lowBits, 1);
        case 0x5: return sized({Kind::text}, offset, lowBits, 1);
        case 0x6: return sized({Kind::wideText}, offset, lowBits, 2);
        case 0x8: {
            const std::uint64_t length = lowBits + 1;
            if (length > 8 || length > tableOffset_ - offset - 1) return {};
            return {Kind::uid, static_cast<std::int64_t>(bigEndian(&bytes_[offset] + 1, length))};
        }
        case 0xA:
        case 0xB:
        case 0xC: return sized({Kind::array}, offset, lowBits, referenceSize_);
        case 0xD: return sized({Kind::dictionary}, offset, lowBits, 2 * referenceSize_);
        default: return {};
    }
}

BinaryPropertyList::Item BinaryPropertyList::number(std::uint64_t offset, unsigned lowBits) const {
    if (lowBits > 4) return {};
    const std::uint64_t length = 1ULL << lowBits;
    if (length > tableOffset_ - offset - 1) return {};
    const std::uint8_t* digits = bytes_.data() + offset + 1;
    if (length < 16) return {Kind::integer, static_cast<std::int64_t>(bigEndian(digits, length))};
    const std::uint64_t high = bigEndian(digits, 8);
    const auto low = static_cast<std::int64_t>(bigEndian(digits + 8, 8));
    const bool needsUnsigned = high == 0 && low < 0;
    return {needsUnsigned ? Kind::unsignedInteger : Kind::integer, low};
}

BinaryPropertyList::Item BinaryPropertyList::real(std::uint64_t offset, unsigned lowBits, Kind kind) const {
    if (lowBits != 2 && lowBits != 3) return {};
    const std::uint64_t length = 1ULL << lowBits;
    if (length > tableOffset_ - offset - 1) return {};
    const std::uint64_t bits = bigEndian(bytes_.data() + offset + 1, length);
    Item item{kind};
    item.real = length == 8 ? std::bit_cast<double>(bits) : std::bit_cast<float>(static_cast<std::uint32_t>(bits));
    return item;
}

/// Fills in count and payload of an object whose content is `count` pieces of `unit` bytes.
BinaryPropertyList::Item BinaryPropertyList::sized(Item item, std::uint64_t offset, unsigned lowBits,
                                                   std::uint64_t unit) const {
    std::uint64_t start = offset + 1;
    item.count = lowBits;
    if (lowBits == 0x0F) {
        if (start >= tableOffset_ || bytes_[start] >> 4 != 0x1 || (bytes_[start] & 0x0F) > 3) return {};
        const std::uint64_t length = 1ULL << (bytes_[start] & 0x0F);
        if (length > tableOffset_ - start - 1) return {};
        item.count = bigEndian(bytes_.data() + start + 1, length);
        start += 1 + length;
    }
    if (item.count > (tableOffset_ - start) / unit) return {};
    item.payload = bytes_.data() + start;
    return item;
}

std::uint64_t BinaryPropertyList::reference(const Item& container, std::uint64_t position) const {
    return bigEndian(container.payload + position * referenceSize_, referenceSize_);
}

BinaryPropertyList::Item BinaryPropertyList::element(const Item& container, std::uint64_t index) const {
    const std::uint64_t keys = container.kind == Kind::dictionary ? container.count : 0;
    return item(reference(container, keys + index));
}

BinaryPropertyList::Item BinaryPropertyList::key(const Item& dictionary, std::uint64_t index) const {
    return item(reference(dictionary, index));
}

bool BinaryPropertyList::equals(const Item& item, std::string_view ascii) {
    return item.kind == Kind::text && item.count == ascii.size() &&
           std::memcmp(item.payload, ascii.data(), ascii.size()) == 0;
}

std::string BinaryPropertyList::text(const Item& item) {
    std::string text;
    if (item.kind == Kind::text) {
        text.reserve(item.count);
        for (std::uint64_t i = 0; i < item.count; ++i) {
            if (item.payload[i] < 0x80) {
                text.push_back(static_cast<char>(item.payload[i]));
            } else {
                appendUTF8(text, item.payload[i]);
            }
        }
        return text;
    }
    const auto unit = [&](std::uint64_t i) { return static_cast<char16_t>(bigEndian(item.payload + 2 * i, 2)); };
    text.reserve(item.count * 2);
    for (std::uint64_t i = 0; i < item.count; ++i) {
        char32_t character = unit(i);
        if (U16_IS_LEAD(character) && i + 1 < item.count && U16_IS_TRAIL(unit(i + 1))) {
            character = U16_GET_SUPPLEMENTARY(character, unit(i + 1));
            ++i;
        } else if (U16_IS_SURROGATE(character)) {
            character = 0xFFFD;
        }
        appendUTF8(text, character);
    }
    return text;
}

}  // namespace dayward
