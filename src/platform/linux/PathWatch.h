// Tells when one of a few files becomes another one: written, replaced, made or removed. The files and their
// directories may be missing. Nothing is polled: wait until descriptor() is readable. One thread.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/Result.h"
#include "platform/linux/FileDescriptor.h"

namespace dayward {

class PathWatch {
public:
    static Result<PathWatch> make(std::vector<std::string> paths);

    [[nodiscard]] int descriptor() const { return inotify_.get(); }
    /// Whether a file is another one than when this was asked last.
    bool take();

private:
    PathWatch(FileDescriptor inotify, std::vector<std::string> paths)
        : inotify_(std::move(inotify)), paths_(std::move(paths)) {}

    void watch();
    [[nodiscard]] std::string stamps() const;

    FileDescriptor inotify_;
    std::vector<std::string> paths_;
    std::map<std::string, int> watches_;  ///< of each directory
    std::string stamps_;                  ///< of the files when they were last told
};

}  // namespace dayward
