#include "platform/linux/InotifyTree.h"

#include <dirent.h>
#include <sys/inotify.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <memory>

#include "platform/FileSystem.h"
#include "platform/Log.h"

namespace dayward {

namespace {

constexpr std::uint32_t kEntryEvents = IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO | IN_CLOSE_WRITE;

std::unexpected<Error> watchFailure(const std::string& directory, int code) {
    return failure("file", code, {{"path", directory}, {"operation", "watch"}, {"reason", std::strerror(code)}});
}

}  // namespace

Result<InotifyTree> InotifyTree::open(const std::string& directory) {
    FileDescriptor inotify(::inotify_init1(IN_CLOEXEC | IN_NONBLOCK));
    if (!inotify) return watchFailure(directory, errno);
    const int root = ::inotify_add_watch(inotify.get(), directory.c_str(),
                                         kEntryEvents | IN_ONLYDIR | IN_DELETE_SELF | IN_MOVE_SELF);
    if (root < 0) return watchFailure(directory, errno);
    return InotifyTree(std::move(inotify), directory, root);
}

InotifyTree::InotifyTree(FileDescriptor inotify, std::string directory, int root)
    : inotify_(std::move(inotify)), directory_(std::move(directory)), root_(root) {}

void InotifyTree::watchInside(const std::function<bool()>& isOver) {
    watchesInside_ = true;
    watchAllEntries(isOver);
}

void InotifyTree::readEvents(DirectoryChanges& changes) {
    alignas(inotify_event) std::array<char, 65536> buffer;
    while (true) {
        const auto length = ::read(inotify_.get(), buffer.data(), buffer.size());
        if (length <= 0) return;
        for (std::size_t at = 0; at < static_cast<std::size_t>(length);) {
            const auto* const event = reinterpret_cast<const inotify_event*>(buffer.data() + at);
            take(*event, changes);
            at += sizeof(inotify_event) + event->len;
        }
    }
}

void InotifyTree::take(const inotify_event& event, DirectoryChanges& changes) {
    if ((event.mask & IN_Q_OVERFLOW) != 0) {
        changes.lost = true;
        if (watchesInside_) watchAllEntries([] { return false; });
        return;
    }
    if (event.wd == root_) {
        if ((event.mask & (IN_DELETE_SELF | IN_MOVE_SELF | IN_IGNORED | IN_UNMOUNT)) != 0) changes.lost = true;
        if (event.len > 0) noteEntry(event.name, changes);
        return;
    }
    const auto found = nameOfWatch_.find(event.wd);
    if (found == nameOfWatch_.end()) return;
    if ((event.mask & IN_IGNORED) == 0) {
        changes.names.insert(found->second);
        return;
    }
    const auto watch = watchOfName_.find(found->second);
    if (watch != watchOfName_.end() && watch->second == event.wd) watchOfName_.erase(watch);
    nameOfWatch_.erase(found);
}

void InotifyTree::noteEntry(const std::string& name, DirectoryChanges& changes) {
    if (isTemporaryName(name)) return;
    changes.names.insert(name);
    if (watchesInside_) watchEntry(name);
}

/// Makes the watch of a name that of the directory which bears it now, if any.
void InotifyTree::watchEntry(const std::string& name) {
    const std::string path = joinPath(directory_, name);
    const int watch = ::inotify_add_watch(inotify_.get(), path.c_str(), kEntryEvents | IN_ONLYDIR | IN_DONT_FOLLOW);
    const int code = errno;
    const auto old = watchOfName_.find(name);
    if (old != watchOfName_.end() && old->second != watch) {
        const auto bearer = nameOfWatch_.find(old->second);
        // Another name may have taken the old directory over.
        if (bearer != nameOfWatch_.end() && bearer->second == name) {
            ::inotify_rm_watch(inotify_.get(), old->second);
            nameOfWatch_.erase(bearer);
        }
        watchOfName_.erase(old);
    }
    if (watch >= 0) {
        nameOfWatch_[watch] = name;
        watchOfName_[name] = watch;
    } else if (code == ENOSPC && !limitLogged_) {
        limitLogged_ = true;
        logError("the limit of watches is reached; changes inside are not seen from here on: " + path);
    }
}

void InotifyTree::watchAllEntries(const std::function<bool()>& isOver) {
    const std::unique_ptr<DIR, int (*)(DIR*)> directory(::opendir(directory_.c_str()), &::closedir);
    if (!directory) return;
    while (!isOver()) {
        const dirent* const entry = ::readdir(directory.get());
        if (entry == nullptr) break;
        const std::string name = entry->d_name;
        if (name != "." && name != ".." && !isTemporaryName(name)) watchEntry(name);
    }
}

}  // namespace dayward
