// Watches directories with inotify(7), each watch on a thread of its own.
//
// Told are direct entries of the directory: created, replaced (also by an exchange of two names),
// removed, files written and closed, and the same one level down, under the direct entry's name.
// The program's own temporary names are not told. Changes are gathered until none has come for 50
// milliseconds, at most for half a second. Where the kernel lost events, or the directory itself
// went, the list is empty.
#pragma once

#include "platform/DirectoryWatch.h"

namespace dayward {

class InotifyWatcher final : public DirectoryWatcher {
public:
    /// The handler runs with the environment of this call. Destroying the watch waits for a handler
    /// that is running, unless the handler itself destroys it. Fails where there is no directory or
    /// the system's limit of watches is reached; entries beyond the limit are told only when they are
    /// replaced, and the log says so once.
    Result<std::unique_ptr<DirectoryWatch>> watch(const std::string& directory,
                                                  DirectoryWatch::Handler handler) override;
};

}  // namespace dayward
