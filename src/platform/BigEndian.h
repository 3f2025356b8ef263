// Numbers and texts as property lists have them in memory. Private to their readers and writers.
#pragma once

#include <bit>
#include <cstdint>
#include <cstring>
#include <string_view>

#include <unicode/utf8.h>

namespace dayward {

template <class Number>
Number bigEndianNumber(const std::uint8_t* bytes) {
    Number number;
    std::memcpy(&number, bytes, sizeof number);
    return std::endian::native == std::endian::big ? number : std::byteswap(number);
}

/// `count` is 1 to 8.
inline std::uint64_t bigEndian(const std::uint8_t* bytes, unsigned count) {
    switch (count) {
        case 1: return *bytes;
        case 2: return bigEndianNumber<std::uint16_t>(bytes);
        case 4: return bigEndianNumber<std::uint32_t>(bytes);
        case 8: return bigEndianNumber<std::uint64_t>(bytes);
        default: break;
    }
    std::uint64_t number = 0;
    for (unsigned i = 0; i < count; ++i) number = number << 8 | bytes[i];
    return number;
}

template <class Number>
std::uint8_t* putBigEndianNumber(std::uint8_t* bytes, Number number) {
    if constexpr (std::endian::native != std::endian::big) number = std::byteswap(number);
    std::memcpy(bytes, &number, sizeof number);
    return bytes + sizeof number;
}

/// `count` is 1, 2, 4 or 8. Gives the place behind.
inline std::uint8_t* putBigEndian(std::uint8_t* bytes, std::uint64_t number, unsigned count) {
    switch (count) {
        case 1: *bytes = static_cast<std::uint8_t>(number); return bytes + 1;
        case 2: return putBigEndianNumber(bytes, static_cast<std::uint16_t>(number));
        case 4: return putBigEndianNumber(bytes, static_cast<std::uint32_t>(number));
        default: return putBigEndianNumber(bytes, number);
    }
}

inline bool isASCII(const void* text, std::size_t length) {
    constexpr std::uint64_t kHighBits = 0x8080808080808080;
    const auto* bytes = static_cast<const std::uint8_t*>(text);
    std::uint64_t bits = 0;
    for (; length >= 8; bytes += 8, length -= 8) {
        std::uint64_t word;
        std::memcpy(&word, bytes, 8);
        bits |= word;
    }
    for (; length > 0; ++bytes, --length) bits |= *bytes;
    return (bits & kHighBits) == 0;
}

/// Visits the characters; bytes that are no UTF-8 are replacement characters.
template <class Visit>
void forEachCharacterOfUTF8(std::string_view text, Visit visit) {
    const auto length = static_cast<std::int64_t>(text.size());
    for (std::int64_t i = 0; i < length;) {
        UChar32 character = 0;
        U8_NEXT_OR_FFFD(text.data(), i, length, character);
        visit(character);
    }
}

}  // namespace dayward
