// Many pictures small on one.
#pragma once

#include <string>
#include <vector>

namespace dayward {

/// Draws the pictures of `files`, a quarter of their width, in rows of eight, and writes them to `path`.
/// Stops with std::runtime_error where one cannot be read or the sheet not written.
void writeContactSheet(const std::vector<std::string>& files, const std::string& path);

}  // namespace dayward
