// Where a key storage keeps its dictionary: a file of its own, or one key of the standard defaults.
#pragma once

#include <string>

namespace dayward {

struct KeyStorageFile {
    std::string path;  ///< absolute
};

struct KeyStorageDefaultsKey {
    std::string key;
};

}  // namespace dayward
