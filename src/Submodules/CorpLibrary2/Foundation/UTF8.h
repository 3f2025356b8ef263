// Whether bytes are text.
#pragma once

#include <string_view>

namespace dayward {

/// Well-formed UTF-8 (RFC 3629): no overlong forms, no surrogates, nothing beyond U+10FFFF.
[[nodiscard]] bool isUTF8(std::string_view bytes);

}  // namespace dayward
