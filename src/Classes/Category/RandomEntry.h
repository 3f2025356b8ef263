// Picks from a catalogue.
#pragma once

#include <stdlib.h>

#include <cstdint>
#include <vector>

namespace dayward {

/// One entry, each as likely; null where the list is empty.
template <class T>
const T* randomEntry(const std::vector<T>& entries) {
    if (entries.empty()) return nullptr;
    return &entries[::arc4random_uniform(static_cast<std::uint32_t>(entries.size()))];
}

}  // namespace dayward
