// A sort for predicates that are no proper order.
//
// "Is a before b" of a list may answer true both ways for equals, or contradict itself. Any such
// predicate gives some arrangement of the same elements, in O(n log n) calls. Elements that are before
// each other both ways, or neither way, count as equal and keep their places; so a list that stands in
// order is left as it is.
#pragma once

#include <algorithm>
#include <utility>
#include <vector>

namespace dayward {

/// Whether `a` has to stand before `b`: the predicate says so, and not the contrary as well.
template <class T, class Before>
bool isStrictlyBefore(const T& a, const T& b, const Before& before) {
    return before(a, b) && !before(b, a);
}

template <class T, class Before>
void stableMergeSort(std::vector<T>& items, const Before& before) {
    const std::size_t count = items.size();
    std::vector<T> merged;
    merged.reserve(count);
    for (std::size_t width = 1; width < count; width *= 2) {
        merged.clear();
        for (std::size_t start = 0; start < count; start += 2 * width) {
            const std::size_t middle = std::min(start + width, count);
            const std::size_t end = std::min(start + 2 * width, count);
            std::size_t left = start;
            std::size_t right = middle;
            while (left < middle || right < end) {
                const bool takesRight =
                    left == middle || (right < end && isStrictlyBefore(items[right], items[left], before));
                merged.push_back(std::move(items[takesRight ? right++ : left++]));
            }
        }
        items.swap(merged);
    }
}

}  // namespace dayward
