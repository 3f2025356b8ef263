// One move inside a list: the element at `index` is taken out and put in at `newIndex`.
#pragma once

#include <cstddef>

namespace dayward {

struct XXArrayMovedAction {
    std::size_t index = 0;
    std::size_t newIndex = 0;

    static XXArrayMovedAction movedActionAtIndex(std::size_t index, std::size_t toIndex) { return {index, toIndex}; }
    bool operator==(const XXArrayMovedAction&) const = default;
};

}  // namespace dayward
