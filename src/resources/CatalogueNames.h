// The names of one catalogue's files. Private to this folder.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace dayward {

/// The file names in the resource "NAME.json", in its order. One without a file is logged after
/// `complaint` with its path and left out.
std::vector<std::string> existingNames(std::string_view catalogue, std::string_view complaint);

}  // namespace dayward
