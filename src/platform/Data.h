// Bytes of a file or of an archive.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace dayward {

using Data = std::vector<std::uint8_t>;

inline Data dataOf(std::string_view text) { return Data(text.begin(), text.end()); }
inline std::string textOf(const Data& data) { return std::string(data.begin(), data.end()); }

}  // namespace dayward
