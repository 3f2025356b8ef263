// Files that hold one keyed archive, whole: reading, replacing, and changing one that other
// processes change too. Any thread.
//
// An archive whose reading once stopped a process reads as a missing file from then on, as long as it
// does not change. Such a file, and one that is no archive when it is replaced, is kept beside
// (unreadableCopyPath), and the log says so.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "platform/Object.h"
#include "platform/Result.h"

namespace dayward {

class Environment;

/// The root object of the archive; nothing where there is no such file. Fails where the file cannot
/// be read or is no archive.
Result<std::optional<Object>> readArchivedFile(Environment& environment, const std::string& path);

/// Replaces the file whole and durably; makes its directory where that is missing.
Result<> writeArchivedFile(Environment& environment, const std::string& path, const Object& root);

/// Reads, changes and replaces the file while no other holder of its lock does the same. `change`
/// gets the present root, or nothing where the file is missing or is no archive, and gives the new
/// one, which is returned. A file that cannot be read because of the device is left as it is.
Result<Object> updateArchivedFile(Environment& environment, const std::string& path,
                                  const std::function<Object(const std::optional<Object>&)>& change);

}  // namespace dayward
