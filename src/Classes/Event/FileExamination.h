// Finds the files of a home that the program reads, and tries to read one. Reading may stop the
// process: whoever examines files that may be corrupt does it in a process of its own.
#pragma once

#include <string>
#include <vector>

#include "platform/Environment.h"

namespace dayward {

/// The paths of all packages, key storages and defaults suites that exist, sorted. A directory that
/// cannot be listed stands in the list itself, so that examining it tells why.
std::vector<std::string> filesToExamine(Environment& environment);

/// What keeps the file from being read; empty for a sound one. Reads with the current environment.
std::vector<std::string> faultsOfFile(const std::string& path);

}  // namespace dayward
