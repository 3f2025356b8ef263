// What tells a version of a package on disk from another without reading it: the identity, size and
// time of its directory and of its "general.t". Packages are replaced whole, so any change shows.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "platform/FileSystem.h"
#include "platform/Mutex.h"
#include "platform/Result.h"

namespace dayward {

struct PackageStamp {
    struct Identity {
        std::uint64_t inode = 0;
        std::uint64_t size = 0;
        Date modified;

        Identity() = default;
        explicit Identity(const FileStatus& status)
            : inode(status.inode), size(status.size), modified(status.modified) {}
        bool operator==(const Identity&) const = default;
    };

    Identity package;
    std::optional<Identity> general;

    /// Nothing where nothing is at the path.
    static Result<std::optional<PackageStamp>> ofPackage(const FileSystem& files, const std::string& path);

    /// As one line.
    [[nodiscard]] std::string text() const;

    bool operator==(const PackageStamp&) const = default;
};

/// What the packages' stamps were as this process last read or wrote them, by key. Kept as digests: where two keys fall
/// together, the one that was set first counts as changed. Any thread; may be asked while files are locked.
class PackageStamps {
public:
    /// Nothing stands for no package.
    [[nodiscard]] bool isUnchanged(const std::string& key, const std::optional<PackageStamp>& stamp) const;
    /// Nothing forgets the key.
    void set(const std::string& key, const std::optional<PackageStamp>& stamp);

private:
    mutable Mutex mutex_;
    std::unordered_map<std::uint64_t, std::uint64_t> digests_ DAYWARD_GUARDED_BY(mutex_);
};

}  // namespace dayward
