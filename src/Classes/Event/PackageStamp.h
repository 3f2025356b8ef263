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
    /// Both statuses as one line of text; the second is missing where there is no such file.
    std::string text;

    /// Nothing where nothing is at the path.
    static Result<std::optional<PackageStamp>> ofPackage(const FileSystem& files, const std::string& path);

    bool operator==(const PackageStamp&) const = default;
};

/// The stamps of the packages as this process last read or wrote them, by key. Any thread; may be
/// asked while files are locked.
class PackageStamps {
public:
    [[nodiscard]] std::optional<PackageStamp> stampOfKey(const std::string& key) const;
    [[nodiscard]] std::vector<std::string> keys() const;
    /// Nothing forgets the key.
    void set(const std::string& key, std::optional<PackageStamp> stamp);

private:
    mutable Mutex mutex_;
    std::unordered_map<std::string, PackageStamp> stamps_ DAYWARD_GUARDED_BY(mutex_);
};

}  // namespace dayward
