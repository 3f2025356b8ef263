// The MD5 digest of a text (RFC 1321), for names of cache files and the like; no protection.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace dayward {

/// 32 lower-case hexadecimal digits over the UTF-8 bytes; nothing for an empty text.
std::optional<std::string> stringFromMD5(std::string_view text);

}  // namespace dayward
