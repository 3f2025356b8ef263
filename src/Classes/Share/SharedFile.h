// The files in which something is shared.
#pragma once

#include <string>
#include <string_view>

#include "platform/Data.h"
#include "platform/Result.h"

namespace dayward {

/// A name that any file system takes, as near to the title as can be, with the extension. At most 120 bytes.
std::string sharedFileName(std::string_view title, std::string_view extension);
/// Writes a file of that name among the temporary ones and returns its path. Those older than a day go.
Result<std::string> writeTemporaryFile(const std::string& name, const Data& content);

}  // namespace dayward
