// Changes the objects of a binary property list as libFuzzer does, and writes a table and a trailer that
// fit behind them, so that what was changed reaches the readers.
#include <algorithm>
#include <cstring>
#include <vector>

#include "support/Fuzz.h"

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* bytes, std::size_t size, std::size_t maximum);

namespace {

constexpr std::size_t kMagic = 8, kTrailer = 32;

std::uint64_t bigEndian(const std::uint8_t* bytes, std::size_t size) {
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < size; ++i) value = value << 8 | bytes[i];
    return value;
}

/// The bytes of an object after its marker, for references of the size; beyond the end where it has none.
std::size_t lengthOf(const std::uint8_t* object, std::size_t left, std::size_t referenceSize) {
    const unsigned kind = object[0] >> 4;
    std::size_t count = object[0] & 15U;
    std::size_t header = 0;
    if (kind <= 3) return kind == 0 ? 0 : std::size_t{1} << (count & 7);
    if (kind == 8) return count + 1;
    if (count == 15) {
        const std::size_t bytes = left > 1 ? std::size_t{1} << (object[1] & 3) : 0;
        if (bytes == 0 || left < 2 + bytes) return left;
        count = bigEndian(object + 2, bytes);
        header = 1 + bytes;
    }
    const std::size_t unit = kind == 6                  ? 2
                             : kind == 10 || kind == 12 ? referenceSize
                             : kind == 13               ? 2 * referenceSize
                                                        : 1;
    return count > left ? left : header + count * unit;
}

/// Puts the table and the trailer behind the objects that begin at the magic; the size, or 0 where there is no
/// room.
std::size_t closeList(std::uint8_t* bytes, std::size_t size, std::size_t maximum, std::size_t referenceSize,
                      std::uint64_t top) {
    std::vector<std::size_t> offsets;
    for (std::size_t at = kMagic; at < size; at += 1 + lengthOf(bytes + at, size - at, referenceSize))
        offsets.push_back(at);
    const std::size_t whole = size + 2 * offsets.size() + kTrailer;
    if (offsets.empty() || size > 0xFFFF || whole > maximum) return 0;
    std::uint8_t* table = bytes + size;
    for (const std::size_t offset : offsets) {
        *table++ = static_cast<std::uint8_t>(offset >> 8);
        *table++ = static_cast<std::uint8_t>(offset);
    }
    std::memset(table, 0, kTrailer);
    table[6] = 2;
    table[7] = static_cast<std::uint8_t>(referenceSize);
    const std::uint64_t numbers[] = {offsets.size(), top < offsets.size() ? top : 0, size};
    for (unsigned field = 0; field < 3; ++field) {
        for (unsigned i = 0; i < 8; ++i)
            table[8 + 8 * field + i] = static_cast<std::uint8_t>(numbers[field] >> (56 - 8 * i));
    }
    return whole;
}

}  // namespace

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* bytes, std::size_t size, std::size_t maximum,
                                               unsigned seed) {
    const bool isList = size > kMagic + kTrailer && std::memcmp(bytes, "bplist0", 7) == 0;
    if (!isList || seed % 8 == 0) return LLVMFuzzerMutate(bytes, size, maximum);
    const std::uint8_t* trailer = bytes + size - kTrailer;
    const std::size_t referenceSize = std::clamp<std::size_t>(trailer[7], 1, 8);
    const std::uint64_t top = bigEndian(trailer + 16, 8);
    const std::uint64_t tableOffset = bigEndian(trailer + 24, 8);
    if (tableOffset < kMagic || tableOffset > size - kTrailer) return LLVMFuzzerMutate(bytes, size, maximum);
    const std::vector<std::uint8_t> old(bytes, bytes + size);
    const std::size_t mutated =
        LLVMFuzzerMutate(bytes + kMagic, tableOffset - kMagic, maximum - kMagic - kTrailer);
    const std::size_t whole = closeList(bytes, kMagic + mutated, maximum, referenceSize, top);
    if (whole != 0) return whole;
    std::ranges::copy(old, bytes);
    return LLVMFuzzerMutate(bytes, size, maximum);
}
