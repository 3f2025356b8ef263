#include "platform/BinaryPropertyList.h"

#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <array>
#include <bit>
#include <limits>

namespace dayward {

namespace {

constexpr std::uint64_t kTrailerSize = 32;

std::unexpected<Error> damaged(const char* reason) { return failure("keyed archive", 0, {{"reason", reason}}); }

/// Visits the characters of UTF-16; a half of a pair alone is a replacement character.
template <class Visit>
void forEachCharacter(const BinaryPropertyList::Item& item, Visit visit) {
    const auto unit = [&](std::uint64_t i) { return bigEndianNumber<std::uint16_t>(item.payload + 2 * i); };
    for (std::uint64_t i = 0; i < item.count; ++i) {
        UChar32 character = unit(i);
        if (U16_IS_LEAD(character) && i + 1 < item.count && U16_IS_TRAIL(unit(i + 1))) {
            character = U16_GET_SUPPLEMENTARY(character, unit(i + 1));
            ++i;
        } else if (U16_IS_SURROGATE(character)) {
            character = 0xFFFD;
        }
        visit(character);
    }
}

/// The text of the characters that `forEach` visits, in no more memory than it needs.
template <class ForEach>
std::string utf8(ForEach forEach) {
    std::size_t size = 0;
    forEach([&](UChar32 character) { size += static_cast<std::size_t>(U8_LENGTH(character)); });
    std::string text(size, '\0');
    std::size_t length = 0;
    forEach([&](UChar32 character) { U8_APPEND_UNSAFE(text.data(), length, character); });
    return text;
}

}  // namespace

template <unsigned offsetSize>
void BinaryPropertyList::readTable(std::uint64_t objectCount) {
    starts_.resize(objectCount);
    const std::uint64_t end = bytesFrom(bytes_.data());
    for (std::uint64_t i = 0; i < objectCount; ++i) {
        const std::uint64_t offset = bigEndian(table_ + i * offsetSize, offsetSize);
        const bool isPlace = offset >= kHeaderSize && offset < end;
        starts_[i] = isPlace ? static_cast<std::uint32_t>(offset) : 0;
    }
}

Result<BinaryPropertyList> BinaryPropertyList::open(std::span<const std::uint8_t> bytes) {
    if (bytes.size() < kHeaderSize + kTrailerSize + 2) return damaged("too short for a property list");
    if (bytes.size() > std::numeric_limits<std::uint32_t>::max()) return damaged("too long for a property list");
    if (std::memcmp(bytes.data(), "bplist0", 7) != 0) return damaged("no property list");
    const std::uint8_t* trailer = bytes.data() + bytes.size() - kTrailerSize;
    BinaryPropertyList list;
    list.bytes_ = bytes.first(bytes.size() - kTrailerSize);
    list.referenceSize_ = trailer[7];
    list.topObject_ = bigEndian(trailer + 16, 8);
    const unsigned offsetSize = trailer[6];
    const std::uint64_t objectCount = bigEndian(trailer + 8, 8);
    const std::uint64_t tableOffset = bigEndian(trailer + 24, 8);
    const auto validSize = [](unsigned size) { return size >= 1 && size <= 8; };
    if (!validSize(offsetSize) || !validSize(list.referenceSize_)) return damaged("bad sizes in the trailer");
    if (tableOffset < kHeaderSize || tableOffset > list.bytes_.size()) {
        return damaged("the table of objects lies outside the file");
    }
    if (objectCount > (list.bytes_.size() - tableOffset) / offsetSize)
        return damaged("the table of objects is cut off");
    if (list.topObject_ >= objectCount) return damaged("no top object");
    list.table_ = bytes.data() + tableOffset;
    constexpr std::array kReadTables{&BinaryPropertyList::readTable<1>, &BinaryPropertyList::readTable<2>,
                                     &BinaryPropertyList::readTable<3>, &BinaryPropertyList::readTable<4>,
                                     &BinaryPropertyList::readTable<5>, &BinaryPropertyList::readTable<6>,
                                     &BinaryPropertyList::readTable<7>, &BinaryPropertyList::readTable<8>};
    (list.*kReadTables[offsetSize - 1])(objectCount);
    return list;
}

BinaryPropertyList::Item BinaryPropertyList::item(std::uint64_t object) const {
    const std::uint8_t* marker = start(object);
    if (marker == nullptr) return {};
    const unsigned lowBits = *marker & 0x0F;
    switch (*marker >> 4) {
        case 0x0:
            if (lowBits == 0) return {Kind::null};
            if (lowBits == 8 || lowBits == 9) return {Kind::boolean, lowBits == 9};
            return {};
        case 0x1: return number(marker);
        case 0x2: return real(marker, Kind::real);
        case 0x3: return lowBits == 3 ? real(marker, Kind::date) : Item{};
        case 0x4: return sized({Kind::data}, marker, 1);
        case 0x5: return sized({Kind::text}, marker, 1);
        case 0x6: return sized({Kind::wideText}, marker, 2);
        case 0x8: {
            const unsigned length = lowBits + 1;
            if (length > 8 || bytesFrom(marker) <= length) return {};
            return {Kind::uid, static_cast<std::int64_t>(bigEndian(marker + 1, length))};
        }
        case 0xA:
        case 0xB:
        case 0xC: return sized({Kind::array}, marker, referenceSize_);
        case 0xD: return sized({Kind::dictionary}, marker, 2 * referenceSize_);
        default: return {};
    }
}

inline BinaryPropertyList::Item BinaryPropertyList::number(const std::uint8_t* marker) const {
    const unsigned exponent = *marker & 0x0F;
    const unsigned length = 1U << exponent;
    if (exponent > 4 || bytesFrom(marker) <= length) return {};
    if (exponent < 4) return {Kind::integer, static_cast<std::int64_t>(bigEndian(marker + 1, length))};
    const std::uint64_t high = bigEndian(marker + 1, 8);
    const auto low = static_cast<std::int64_t>(bigEndian(marker + 9, 8));
    const bool needsUnsigned = high == 0 && low < 0;
    return {needsUnsigned ? Kind::unsignedInteger : Kind::integer, low};
}

inline BinaryPropertyList::Item BinaryPropertyList::real(const std::uint8_t* marker, Kind kind) const {
    const unsigned exponent = *marker & 0x0F;
    const unsigned length = 1U << exponent;
    if ((exponent != 2 && exponent != 3) || bytesFrom(marker) <= length) return {};
    const std::uint64_t bits = bigEndian(marker + 1, length);
    Item item{kind};
    item.real = length == 8 ? std::bit_cast<double>(bits) : std::bit_cast<float>(static_cast<std::uint32_t>(bits));
    return item;
}

/// Fills in count and payload of an object whose content is `count` pieces of `unit` bytes.
inline BinaryPropertyList::Item BinaryPropertyList::sized(Item item, const std::uint8_t* marker,
                                                          std::uint64_t unit) const {
    std::uint64_t count = *marker & 0x0F;
    item.payload = marker + 1;
    if (count == kCountApart) {
        const std::uint8_t* counter = marker + 1;
        if (bytesFrom(counter) == 0 || *counter >> 4 != 0x1 || (*counter & 0x0F) > 3) return {};
        const unsigned length = 1U << (*counter & 0x0F);
        if (bytesFrom(counter) <= length) return {};
        count = bigEndian(counter + 1, length);
        item.payload = counter + 1 + length;
    }
    // Most are so small that a product tells, without a division.
    const std::uint64_t room = bytesFrom(item.payload);
    const bool fits = count <= 0xFFFFFFFF ? count * unit <= room : count <= room / unit;
    if (!fits) return {};
    item.count = count;
    return item;
}

std::uint64_t BinaryPropertyList::keyKinds(const Item& dictionary) const {
    std::uint64_t kinds = 0;
    for (std::uint64_t i = 0; i < dictionary.count; ++i) {
        const std::uint8_t* marker = start(reference(dictionary, i));
        if (marker == nullptr) continue;
        // The byte behind a marker is always there: the trailer follows.
        if (*marker > 0x50 && *marker < 0x5F) {
            kinds |= kindOfShortKey(*marker & 0x0F, marker[1]);
        } else {
            kinds |= *marker >> 4 == 0x6 ? kAnyKey : kOtherKey;
        }
    }
    return kinds;
}

template <class IsKey>
std::uint64_t BinaryPropertyList::pairWhere(const Item& dictionary, std::uint64_t first, IsKey isKey) const {
    std::uint64_t index = first;
    for (std::uint64_t left = dictionary.count; left > 0; --left) {
        const std::uint64_t object = reference(dictionary, index);
        const std::uint8_t* marker = start(object);
        if (marker != nullptr && isKey(marker, object)) return index;
        if (++index == dictionary.count) index = 0;
    }
    return dictionary.count;
}

std::uint64_t BinaryPropertyList::pairWithKey(const Item& dictionary, std::string_view key, std::uint64_t first) const {
    const auto isWide = [](const std::uint8_t* marker) { return *marker >> 4 == 0x6; };
    if (key.size() >= kCountApart) {
        return pairWhere(dictionary, first, [&](const std::uint8_t* marker, std::uint64_t object) {
            return (*marker == 0x5F || isWide(marker)) && isText(item(object), key);
        });
    }
    return pairWhere(dictionary, first, [&](const std::uint8_t* marker, std::uint64_t object) {
        return isShortText(marker, key) || (isWide(marker) && isText(item(object), key));
    });
}

/// Wide texts are compared where they may be the same: not more units than bytes.
bool BinaryPropertyList::isText(const Item& item, std::string_view text) {
    if (item.kind == Kind::wideText && item.count <= text.size()) return BinaryPropertyList::text(item) == text;
    return equals(item, text);
}

std::string BinaryPropertyList::text(const Item& item) {
    if (item.kind == Kind::wideText) return utf8([&](auto visit) { forEachCharacter(item, visit); });
    if (isASCII(item.payload, item.count)) return std::string(reinterpret_cast<const char*>(item.payload), item.count);
    // Not as published, but read as Latin-1.
    return utf8([&](auto visit) { std::for_each_n(item.payload, item.count, visit); });
}

std::string BinaryPropertyList::textOfUTF8(const Item& data) {
    const std::string_view bytes = bytesOf(data);
    return utf8([&](auto visit) { forEachCharacterOfUTF8(bytes, visit); });
}

}  // namespace dayward
