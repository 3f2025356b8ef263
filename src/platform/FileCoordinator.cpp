#include "platform/FileCoordinator.h"

#include <cerrno>
#include <cstdint>
#include <set>
#include <string_view>

#include "platform/FileSystem.h"

namespace dayward {

namespace {

// Paths share the locks, so that their number is bounded. More locks only mean fewer chance waits.
constexpr std::uint64_t kLockCount = 64;

/// Other processes must come to the same lock, whatever library they were built with: FNV-1a.
std::uint64_t stripeOf(std::string_view path) {
    while (path.size() > 1 && path.ends_with('/')) path.remove_suffix(1);
    std::uint64_t hash = 14695981039346656037U;
    for (const char character : path) {
        hash ^= static_cast<unsigned char>(character);
        hash *= 1099511628211U;
    }
    return hash % kLockCount;
}

enum class Access { read, write };

Result<std::unique_ptr<FileLock>> lockStripe(FileSystem& files, const std::string& directory, std::uint64_t stripe,
                                             Access access) {
    const std::string path = joinPath(directory, "lock-" + std::to_string(stripe));
    const bool exclusive = access == Access::write;
    auto lock = files.lock(path, exclusive);
    if (lock || lock.error().code != ENOENT) return lock;
    TRY_VOID(files.createDirectories(directory));
    return files.lock(path, exclusive);
}

}  // namespace

FileCoordinator::FileCoordinator(std::shared_ptr<FileSystem> files, std::string lockDirectory)
    : files_(std::move(files)), lockDirectory_(std::move(lockDirectory)) {}

Result<> FileCoordinator::coordinateReading(const std::string& path, ReadingOptions, const Accessor& accessor) {
    const auto lock = TRY(lockStripe(*files_, lockDirectory_, stripeOf(path), Access::read));
    return accessor(path);
}

Result<> FileCoordinator::coordinateWriting(const std::string& path, WritingOptions, const Accessor& accessor) {
    const auto lock = TRY(lockStripe(*files_, lockDirectory_, stripeOf(path), Access::write));
    return accessor(path);
}

Result<> FileCoordinator::coordinateWriting(const std::vector<std::string>& paths,
                                            const std::function<Result<>()>& accessor) {
    std::set<std::uint64_t> stripes;
    for (const std::string& path : paths) stripes.insert(stripeOf(path));
    // Everybody takes lower locks first: see below.
    std::vector<std::unique_ptr<FileLock>> locks;
    for (const std::uint64_t stripe : stripes)
        locks.push_back(TRY(lockStripe(*files_, lockDirectory_, stripe, Access::write)));
    return accessor();
}

Result<> FileCoordinator::coordinateReadingAndWriting(const std::string& readPath, ReadingOptions,
                                                      const std::string& writePath, WritingOptions,
                                                      const PairAccessor& accessor) {
    const std::uint64_t readStripe = stripeOf(readPath);
    const std::uint64_t writeStripe = stripeOf(writePath);
    // Everybody takes the lower lock first, so no two pairs wait for each other; one lock for both
    // paths is taken once, for writing.
    std::unique_ptr<FileLock> readLock;
    std::unique_ptr<FileLock> writeLock;
    if (readStripe < writeStripe) readLock = TRY(lockStripe(*files_, lockDirectory_, readStripe, Access::read));
    writeLock = TRY(lockStripe(*files_, lockDirectory_, writeStripe, Access::write));
    if (readStripe > writeStripe) readLock = TRY(lockStripe(*files_, lockDirectory_, readStripe, Access::read));
    return accessor(readPath, writePath);
}

}  // namespace dayward
