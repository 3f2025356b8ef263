// Texts as the content of markup elements. Any thread.
#pragma once

#include <string>
#include <string_view>

namespace dayward {

/// The text with its "&", "<" and ">" as entities: read as markup it is what it was. Not for attributes.
[[nodiscard]] std::string markupOfText(std::string_view text);

}  // namespace dayward
