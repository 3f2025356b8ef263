#include "Submodules/CorpLibrary2/Foundation/UTF8.h"

#include <cstdint>

namespace dayward {

namespace {

/// Length of the character that a lead byte begins; 0 for a byte that begins none.
std::size_t lengthOf(std::uint8_t lead) {
    if (lead < 0x80) return 1;
    if (lead >= 0xC2 && lead < 0xE0) return 2;
    if (lead >= 0xE0 && lead < 0xF0) return 3;
    if (lead >= 0xF0 && lead < 0xF5) return 4;
    return 0;
}

/// The second byte rules out overlong forms, surrogates and what lies beyond U+10FFFF.
bool isSecondByte(std::uint8_t lead, std::uint8_t second) {
    const std::uint8_t low = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
    const std::uint8_t high = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
    return second >= low && second <= high;
}

}  // namespace

bool isUTF8(std::string_view bytes) {
    while (!bytes.empty()) {
        const auto lead = static_cast<std::uint8_t>(bytes[0]);
        const std::size_t length = lengthOf(lead);
        if (length == 0 || length > bytes.size()) return false;
        if (length > 1 && !isSecondByte(lead, static_cast<std::uint8_t>(bytes[1]))) return false;
        for (std::size_t i = 2; i < length; ++i) {
            if ((static_cast<std::uint8_t>(bytes[i]) & 0xC0) != 0x80) return false;
        }
        bytes.remove_prefix(length);
    }
    return true;
}

}  // namespace dayward
