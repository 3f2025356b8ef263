#include "Classes/Event/PackageStamp.h"

#include <cstdio>

#include "Classes/Event/EventDocument.h"

namespace dayward {

namespace {

std::string textOf(const PackageStamp::Identity& identity) {
    char part[96];
    std::snprintf(part, sizeof part, " %llu/%llu/%.7f", static_cast<unsigned long long>(identity.inode),
                  static_cast<unsigned long long>(identity.size), identity.modified.secondsSinceReference());
    return part;
}

}  // namespace

Result<std::optional<PackageStamp>> PackageStamp::ofPackage(const FileSystem& files, const std::string& path) {
    const std::optional<FileStatus> package = TRY(files.status(path));
    if (!package) return std::nullopt;
    PackageStamp stamp{Identity(*package), {}};
    if (package->kind != FileStatus::Kind::directory) return stamp;
    const auto general = files.status(joinPath(path, EventDocument::kGeneralFile));
    if (general && *general) stamp.general = Identity(**general);
    return stamp;
}

std::string PackageStamp::text() const { return textOf(package) + (general ? textOf(*general) : ""); }

std::optional<PackageStamp> PackageStamps::stampOfKey(const std::string& key) const {
    const Lock lock(mutex_);
    const auto found = stamps_.find(key);
    return found == stamps_.end() ? std::nullopt : std::optional(found->second);
}

std::vector<std::string> PackageStamps::keys() const {
    const Lock lock(mutex_);
    std::vector<std::string> keys;
    keys.reserve(stamps_.size());
    for (const auto& [key, stamp] : stamps_) keys.push_back(key);
    return keys;
}

void PackageStamps::set(const std::string& key, std::optional<PackageStamp> stamp) {
    const Lock lock(mutex_);
    if (stamp) {
        stamps_[key] = *std::move(stamp);
    } else {
        stamps_.erase(key);
    }
}

}  // namespace dayward
