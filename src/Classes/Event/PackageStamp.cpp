#include "Classes/Event/PackageStamp.h"

#include <bit>
#include <cstdio>
#include <functional>

#include "Classes/Event/EventDocument.h"

namespace dayward {

namespace {

std::string textOf(const PackageStamp::Identity& identity) {
    char part[96];
    std::snprintf(part, sizeof part, " %llu/%llu/%.7f", static_cast<unsigned long long>(identity.inode),
                  static_cast<unsigned long long>(identity.size), identity.modified.secondsSinceReference());
    return part;
}

/// The finishing steps of MurmurHash3.
std::uint64_t mixed(std::uint64_t bits) {
    bits = (bits ^ (bits >> 33)) * 0xff51afd7ed558ccdU;
    bits = (bits ^ (bits >> 33)) * 0xc4ceb9fe1a85ec53U;
    return bits ^ (bits >> 33);
}

std::uint64_t digestOf(std::uint64_t start, const PackageStamp::Identity& identity) {
    std::uint64_t digest = mixed(start + identity.inode);
    digest = mixed(digest + identity.size);
    return mixed(digest + std::bit_cast<std::uint64_t>(identity.modified.secondsSinceReference()));
}

std::uint64_t digestOf(std::uint64_t start, const PackageStamp& stamp) {
    const std::uint64_t digest = digestOf(start, stamp.package);
    return stamp.general ? digestOf(digest, *stamp.general) : digest;
}

std::uint64_t digestOf(const std::string& key) { return mixed(std::hash<std::string>()(key)); }

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

bool PackageStamps::isUnchanged(const std::string& key, const std::optional<PackageStamp>& stamp) const {
    const std::uint64_t place = digestOf(key);
    const Lock lock(mutex_);
    const auto found = digests_.find(place);
    if (found == digests_.end() || !stamp) return found == digests_.end() && !stamp;
    return found->second == digestOf(place, *stamp);
}

void PackageStamps::set(const std::string& key, const std::optional<PackageStamp>& stamp) {
    const std::uint64_t place = digestOf(key);
    const Lock lock(mutex_);
    if (stamp) {
        digests_[place] = digestOf(place, *stamp);
    } else {
        digests_.erase(place);
    }
}

}  // namespace dayward
