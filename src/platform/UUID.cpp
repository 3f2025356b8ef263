#include "platform/UUID.h"

#include <stdlib.h>

#include <array>
#include <cstdint>

namespace dayward {

std::string newUUIDString() {
    std::array<std::uint8_t, 16> bytes;
    ::arc4random_buf(bytes.data(), bytes.size());
    bytes[6] = static_cast<std::uint8_t>((bytes[6] & 0x0F) | 0x40);
    bytes[8] = static_cast<std::uint8_t>((bytes[8] & 0x3F) | 0x80);
    std::string text;
    for (std::size_t index = 0; index < bytes.size(); ++index) {
        if (index == 4 || index == 6 || index == 8 || index == 10) text += '-';
        text += "0123456789ABCDEF"[bytes[index] >> 4];
        text += "0123456789ABCDEF"[bytes[index] & 0x0F];
    }
    return text;
}

}  // namespace dayward
