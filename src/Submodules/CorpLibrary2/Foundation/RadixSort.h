// A stable sort by numbers, digit by digit from the lowest (LSD radix sort): O(n), less where
// digits are the same in all numbers.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>
#include <vector>

namespace dayward {

/// Sorts items by their member `key`, an unsigned 64-bit number.
template <class Item>
void sortByKey(std::vector<Item>& items) {
    constexpr int kDigitBits = 11;
    constexpr std::size_t kDigits = std::size_t{1} << kDigitBits;
    if (items.size() < kDigits / 4) {
        std::ranges::stable_sort(items, {}, &Item::key);
        return;
    }
    std::vector<Item> sorted(items.size());
    for (int shift = 0; shift < 64; shift += kDigitBits) {
        const auto digitOf = [&](const Item& item) { return item.key >> shift & (kDigits - 1); };
        std::array<std::size_t, kDigits> ends{};
        for (const Item& item : items) ++ends[digitOf(item)];
        if (ends[digitOf(items.front())] == items.size()) continue;
        std::size_t start = 0;
        for (std::size_t& end : ends) start += std::exchange(end, start);
        for (const Item& item : items) sorted[ends[digitOf(item)]++] = item;
        items.swap(sorted);
    }
}

}  // namespace dayward
