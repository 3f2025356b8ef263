// What the user chose last in each gallery: the keyed archive "favoriteData.dat" beside the settings, a
// dictionary from a kind to an array, newest first.
//
// Each call reads the file anew. One that is missing or cannot be read counts as empty, and the next
// add replaces it. Main thread.
#pragma once

#include <cstddef>
#include <string>

#include "platform/Object.h"

namespace dayward {

class FavoriteData {
public:
    static constexpr std::size_t kMost = 20;

    /// Puts the object first in its kind's array, out of which an equal one is taken; beyond kMost the
    /// oldest are dropped. A write that fails is logged.
    static void addObject(const Object& object, const std::string& forKey);
    /// The newest objects of the kind, at most `count`.
    static Array getObjectsForKey(const std::string& key, std::size_t count);
};

}  // namespace dayward
