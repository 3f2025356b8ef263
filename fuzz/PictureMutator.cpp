// Changes pictures as libFuzzer does, and makes the checksums of PNG chunks right again, so that what was
// changed reaches the decoder.
#include <zlib.h>

#include <cstring>

#include "support/Fuzz.h"

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* bytes, std::size_t size, std::size_t maximum);

namespace {

std::uint32_t bigEndian(const std::uint8_t* bytes) {
    return std::uint32_t{bytes[0]} << 24 | std::uint32_t{bytes[1]} << 16 | std::uint32_t{bytes[2]} << 8 | bytes[3];
}

void mendChecksums(std::uint8_t* bytes, std::size_t size) {
    for (std::size_t at = 8; at + 12 <= size;) {
        const std::uint32_t length = bigEndian(bytes + at);
        if (length > size - at - 12) return;
        const auto sum = static_cast<std::uint32_t>(crc32(0, bytes + at + 4, length + 4));
        for (unsigned i = 0; i < 4; ++i)
            bytes[at + 8 + length + i] = static_cast<std::uint8_t>(sum >> (24 - 8 * i));
        at += 12 + length;
    }
}

}  // namespace

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* bytes, std::size_t size, std::size_t maximum,
                                               unsigned seed) {
    size = LLVMFuzzerMutate(bytes, size, maximum);
    if (seed % 8 != 0 && size > 8 && std::memcmp(bytes, "\x89PNG", 4) == 0) mendChecksums(bytes, size);
    return size;
}
