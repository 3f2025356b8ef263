// Reads event packages for a store: guarded, so that one that stops the process is left out at the
// next start, and many at once on all cores. Any thread.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Classes/Event/PackageStamp.h"
#include "platform/UnreadableFiles.h"
#include "platform/Environment.h"
#include "platform/Result.h"

namespace dayward {

class HHEvent;

struct LoadedPackage {
    std::string path;
    bool exists = true;
    /// Of before the reading, so that a change during it shows later; nothing where no package is.
    std::optional<PackageStamp> stamp;
    /// The event, or why there is none.
    Result<std::shared_ptr<HHEvent>> event;
};

class PackageReader {
public:
    PackageReader(Environment& environment, UnreadableFiles& unreadable)
        : environment_(environment), unreadable_(unreadable) {}

    [[nodiscard]] LoadedPackage read(const std::string& path) const;
    /// In no promised order of work; the answers stand in the order of the paths.
    [[nodiscard]] std::vector<LoadedPackage> readAll(const std::vector<std::string>& paths) const;

private:
    [[nodiscard]] LoadedPackage readWhole(const std::string& path) const;
    /// `general` are the file's bytes, or why there are none.
    void readStamped(LoadedPackage& package, const Result<ReadFile>& general) const;

    Environment& environment_;
    UnreadableFiles& unreadable_;
};

}  // namespace dayward
