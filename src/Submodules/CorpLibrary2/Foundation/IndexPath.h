// The place of a row in a sectioned list.
#pragma once

#include <compare>
#include <cstddef>

namespace dayward {

struct IndexPath {
    std::size_t section = 0;
    std::size_t row = 0;
    auto operator<=>(const IndexPath&) const = default;
};

}  // namespace dayward
