// Numbers of things that are kept elsewhere, found by what the things are: one open hash table, without an
// allocation for each. For things that are added and never removed. One thread.
#pragma once

#include <cstdint>
#include <cstring>
#include <utility>
#include <vector>

namespace dayward {

class HashIndex {
public:
    /// `places` is a power of two; the table doubles when half of them are taken.
    explicit HashIndex(std::size_t places) : entries_(places) {}

    /// The number of the thing with that hash which `isSame(number)` tells to be the same; where there is
    /// none, `number`, under which it is found from then on.
    template <class IsSame>
    std::uint32_t findOrAdd(std::uint64_t hash, std::uint32_t number, IsSame isSame) {
        const auto folded = static_cast<std::uint32_t>(hash ^ hash >> 32);
        Entry* place = placeOf(folded);
        for (; place->numberAbove != 0; place = after(place)) {
            if (place->hash == folded && isSame(place->numberAbove - 1)) return place->numberAbove - 1;
        }
        *place = {folded, number + 1};
        if (2 * ++count_ > entries_.size()) grow();
        return number;
    }

    static std::uint64_t mixed(std::uint64_t state, std::uint64_t word) {
        const std::uint64_t product = (state ^ word) * 0x9E3779B97F4A7C15;
        return product ^ product >> 29;
    }
    /// Reads up to seven bytes behind the last one, which count for nothing.
    static std::uint64_t hash(const std::uint8_t* bytes, std::size_t count) {
        std::uint64_t state = count;
        std::uint64_t word = 0;
        for (; count >= 8; bytes += 8, count -= 8) {
            std::memcpy(&word, bytes, 8);
            state = mixed(state, word);
        }
        if (count == 0) return state;
        std::memcpy(&word, bytes, 8);
        return mixed(state, word & ((std::uint64_t{1} << (8 * count)) - 1));
    }

private:
    struct Entry {
        std::uint32_t hash = 0;
        std::uint32_t numberAbove = 0;  ///< the thing's number + 1; 0 where the place is free
    };

    Entry* placeOf(std::uint32_t hash) { return &entries_[hash & (entries_.size() - 1)]; }
    Entry* after(Entry* place) { return place == &entries_.back() ? entries_.data() : place + 1; }

    void grow() {
        const std::vector<Entry> before = std::exchange(entries_, std::vector<Entry>(2 * entries_.size()));
        for (const Entry& entry : before) {
            if (entry.numberAbove == 0) continue;
            Entry* place = placeOf(entry.hash);
            while (place->numberAbove != 0) place = after(place);
            *place = entry;
        }
    }

    std::vector<Entry> entries_;
    std::size_t count_ = 0;
};

}  // namespace dayward
