// Tells which entries of a directory changed.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/Result.h"

namespace dayward {

/// A running watch; it ends when it is destroyed, and no handler call begins after that.
class DirectoryWatch {
public:
    virtual ~DirectoryWatch() = default;
    /// From now on changes inside the entries are told too. Returns at once: the entries are gone through on the
    /// watch's thread, and then everything is to be looked at, for what changed inside before.
    virtual void watchInside() {}
    /// Called on a thread of the watch with the names of direct entries that were created, replaced or
    /// removed, or changed inside (one level deep) once that is watched; changes in quick succession come as one call.
    /// An empty list means that events were lost: look at everything.
    using Handler = std::function<void(const std::vector<std::string>& names)>;
};

/// Where watches come from; the real one is over inotify.
class DirectoryWatcher {
public:
    virtual ~DirectoryWatcher() = default;
    virtual Result<std::unique_ptr<DirectoryWatch>> watch(const std::string& directory, DirectoryWatch::Handler handler) = 0;
};

}  // namespace dayward
