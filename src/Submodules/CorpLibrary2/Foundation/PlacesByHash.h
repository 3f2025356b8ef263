// A hash table of list places that are chained through their own members `hash` and `nextInChain`, so that
// adding one allocates nothing. Places of equal hash are found together, in no order. One thread at a time.
#pragma once

#include <bit>
#include <cstddef>
#include <utility>
#include <vector>

namespace dayward {

/// A Place has a `value` with the members above.
template <class Place>
class PlacesByHash {
public:
    /// Forgets all places and makes room for so many.
    void reset(std::size_t count) {
        chains_.assign(std::bit_ceil(count + 1), nullptr);
        count_ = 0;
    }
    void add(Place* place) {
        if (count_++ >= chains_.size()) grow();
        link(place);
    }
    /// A place that was added, with the same hash.
    void remove(Place* place) {
        Place** at = &chainOf(place->value.hash);
        while (*at != place) at = &(*at)->value.nextInChain;
        *at = place->value.nextInChain;
        --count_;
    }
    template <class Visit>
    void forEach(std::size_t hash, Visit visit) const {
        for (Place* place = chains_[hash & (chains_.size() - 1)]; place != nullptr; place = place->value.nextInChain)
            if (place->value.hash == hash) visit(place);
    }

private:
    Place*& chainOf(std::size_t hash) { return chains_[hash & (chains_.size() - 1)]; }
    void link(Place* place) {
        Place*& chain = chainOf(place->value.hash);
        place->value.nextInChain = chain;
        chain = place;
    }
    void grow() {
        const std::vector<Place*> old = std::exchange(chains_, std::vector<Place*>(chains_.size() * 2));
        for (Place* place : old) {
            while (place != nullptr) {
                Place* next = place->value.nextInChain;
                link(place);
                place = next;
            }
        }
    }

    std::vector<Place*> chains_ = std::vector<Place*>(1);
    std::size_t count_ = 0;
};

}  // namespace dayward
