// Reading the fields of a dictionary. Any thread.
#pragma once

#include <string_view>

#include "platform/Object.h"

namespace dayward {

/// A null object where the dictionary has no such key. Good as long as the dictionary is.
[[nodiscard]] inline const Object& valueOfKey(const Dictionary& dictionary, std::string_view key) {
    static const Object kNone;
    const auto found = dictionary.find(key);
    return found == dictionary.end() ? kNone : found->second;
}

}  // namespace dayward
