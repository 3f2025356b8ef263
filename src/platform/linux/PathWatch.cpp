#include "platform/linux/PathWatch.h"

#include <sys/inotify.h>
#include <sys/stat.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <utility>

namespace dayward {

namespace {

constexpr std::uint32_t kChanges =
    IN_CLOSE_WRITE | IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO | IN_DELETE_SELF | IN_MOVE_SELF;

/// Another text once another file is there.
std::string stampOf(const std::string& path) {
    struct stat status{};
    if (lstat(path.c_str(), &status) != 0) return "-";
    return std::to_string(status.st_ino) + ' ' + std::to_string(status.st_size) + ' ' +
           std::to_string(status.st_mtim.tv_sec) + '.' + std::to_string(status.st_mtim.tv_nsec) + ' ';
}

/// The directory of the file, or the nearest that there is.
std::string nearestDirectory(const std::string& file) {
    std::filesystem::path directory = std::filesystem::path(file).parent_path();
    std::error_code error;
    while (directory.has_relative_path() && !std::filesystem::is_directory(directory, error)) {
        directory = directory.parent_path();
    }
    return directory.string();
}

}  // namespace

Result<PathWatch> PathWatch::make(std::vector<std::string> paths) {
    FileDescriptor inotify(inotify_init1(IN_CLOEXEC | IN_NONBLOCK));
    if (!inotify) return failure(std::string("watch: ") + std::strerror(errno));
    PathWatch watch(std::move(inotify), std::move(paths));
    watch.watch();
    watch.stamps_ = watch.stamps();
    return watch;
}

std::string PathWatch::stamps() const {
    std::string stamps;
    for (const std::string& path : paths_) stamps += stampOf(path);
    return stamps;
}

void PathWatch::watch() {
    std::map<std::string, int> wanted;
    for (const std::string& path : paths_) {
        const std::string directory = nearestDirectory(path);
        // Watched anew each time: it may have gone and come back. The number of one that is watched stays.
        wanted[directory] = inotify_add_watch(inotify_.get(), directory.c_str(), kChanges);
    }
    for (const auto& [directory, number] : watches_) {
        if (!wanted.contains(directory) && number >= 0) inotify_rm_watch(inotify_.get(), number);
    }
    watches_ = std::move(wanted);
}

bool PathWatch::take() {
    alignas(inotify_event) std::array<char, 4096> events;
    bool sawEvents = false;
    while (read(inotify_.get(), events.data(), events.size()) > 0) sawEvents = true;
    if (!sawEvents) return false;
    watch();
    const std::string before = std::exchange(stamps_, stamps());
    return stamps_ != before;
}

}  // namespace dayward
