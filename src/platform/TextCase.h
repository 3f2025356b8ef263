// Letter case of UTF-8 text by the Unicode rules. Any thread.
#pragma once

#include <string>
#include <string_view>

#include "platform/Locale.h"

namespace dayward {

/// Each word with its first letter as a capital and the others small; broken UTF-8 is replaced.
[[nodiscard]] std::string capitalized(std::string_view text, const Locale& locale);

}  // namespace dayward
