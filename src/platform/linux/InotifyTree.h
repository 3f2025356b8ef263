// The inotify watches of a directory and of the directories directly in it; private to InotifyWatcher.
// One thread.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <set>
#include <string>

#include "platform/Result.h"
#include "platform/linux/FileDescriptor.h"

struct inotify_event;

namespace dayward {

/// What has changed since it was last told.
struct DirectoryChanges {
    std::set<std::string> names;
    bool lost = false;

    [[nodiscard]] bool any() const { return lost || !names.empty(); }
};

class InotifyTree {
public:
    static Result<InotifyTree> open(const std::string& directory);

    [[nodiscard]] int descriptor() const { return inotify_.get(); }
    /// Reads the events that wait, without waiting for more, and adds them to `changes`.
    void readEvents(DirectoryChanges& changes);
    /// Watches inside the entries, those that come later included; ends early where `isOver` says so.
    void watchInside(const std::function<bool()>& isOver);

private:
    InotifyTree(FileDescriptor inotify, std::string directory, int root);

    void take(const inotify_event& event, DirectoryChanges& changes);
    void noteEntry(const std::string& name, DirectoryChanges& changes);
    void watchEntry(const std::string& name);
    void watchAllEntries(const std::function<bool()>& isOver);

    FileDescriptor inotify_;
    std::string directory_;
    int root_;
    // A watch belongs to a directory, not to its name: after a rename the kernel answers the same
    // number for the new name.
    std::map<int, std::string> nameOfWatch_;
    std::map<std::string, int> watchOfName_;
    bool watchesInside_ = false;
    bool limitLogged_ = false;
};

}  // namespace dayward
