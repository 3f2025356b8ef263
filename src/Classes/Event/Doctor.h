// Looks for every file of a home that cannot be read. Reading happens in child processes, so that a
// file that stops or crashes its reader is found like any other, and nothing is ever written.
#pragma once

#include <string>
#include <vector>

#include "platform/Environment.h"
#include "platform/Result.h"

namespace dayward {

struct Problem {
    std::string path;
    std::string reason;

    bool operator==(const Problem&) const = default;
};

/// Event packages, key storages and settings, user defaults and the category list in them, and what
/// alerts are kept in, in the order of their paths. Forks: call it while the program has one thread.
/// Fails where no child can be made.
Result<std::vector<Problem>> examineHome(Environment& environment);

}  // namespace dayward
