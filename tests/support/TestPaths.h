// Where tests find files of the source tree. Functions, not macros on the command line, so that the objects
// of two checkouts are the same to a compiler cache.
#pragma once

#include <string>

namespace dayward {

/// `tests/data`.
[[nodiscard]] std::string testData();
/// `src/resources`.
[[nodiscard]] std::string testResources();

}  // namespace dayward
