#include "Submodules/CorpLibrary2/Foundation/RadixSort.h"

#include <gtest/gtest.h>

#include <random>

namespace dayward {
namespace {

struct Numbered {
    std::uint64_t key = 0;
    std::size_t place = 0;
    bool operator==(const Numbered&) const = default;
};

TEST(RadixSort, IsAStableSort) {
    std::mt19937_64 random(1);
    for (const std::size_t count : {0, 1, 511, 512, 5000}) {
        for (const std::uint64_t varying : {~0ULL, 0xFFULL, 0x7FFULL << 44, 0xFFULL << 54, 1ULL << 63, 0ULL}) {
            std::vector<Numbered> items(count);
            for (std::size_t place = 0; place < count; ++place)
                items[place] = {0x5555555555555555 ^ (random() & varying), place};
            auto sorted = items;
            std::ranges::stable_sort(sorted, {}, &Numbered::key);
            sortByKey(items);
            ASSERT_EQ(items, sorted) << count << " with " << varying;
        }
    }
}

}  // namespace
}  // namespace dayward
