#include "platform/FileSystem.h"

#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <charconv>
#include <cstring>
#include <filesystem>
#include <set>

#include "platform/Log.h"
#include "platform/Parallel.h"

namespace dayward {

namespace {

constexpr std::string_view kTemporaryMark = ".tmp-";
/// Of what stands aside until its successor has its place. Nobody else writes it meanwhile, so there is one at most.
constexpr std::string_view kAsideEnding = ".was";
// A name in a directory has at most 255 bytes on the usual file systems; mark and numbers need 40.
constexpr std::size_t kLongestKeptName = 200;
constexpr std::size_t kPackagesPerThread = 64;

std::atomic<std::uint64_t> lastTemporaryNumber = 0;

Error fileError(int code, const std::string& path, const std::string& operation) {
    return {"file", code, {{"path", path}, {"operation", operation}, {"reason", std::strerror(code)}}};
}

std::string makeTemporaryPath(const std::string& path) {
    const std::string name = "." + lastPathComponent(path).substr(0, kLongestKeptName) + std::string(kTemporaryMark) +
                             std::to_string(getpid()) + "-" + std::to_string(++lastTemporaryNumber);
    return joinPath(parentPath(path), name);
}

std::optional<std::uint64_t> wholeNumber(std::string_view text) {
    std::uint64_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (text.empty() || error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return number;
}

struct TemporaryOwner {
    std::uint64_t process = 0;
    std::uint64_t number = 0;
};

std::optional<TemporaryOwner> temporaryOwner(std::string_view name) {
    if (!name.starts_with('.')) return std::nullopt;
    const auto at = name.rfind(kTemporaryMark);
    if (at == std::string_view::npos || at < 2) return std::nullopt;
    const std::string_view numbers = name.substr(at + kTemporaryMark.size());
    const auto dash = numbers.find('-');
    if (dash == std::string_view::npos) return std::nullopt;
    const auto process = wholeNumber(numbers.substr(0, dash));
    const auto number = wholeNumber(numbers.substr(dash + 1));
    if (!process || !number) return std::nullopt;
    return TemporaryOwner{*process, *number};
}

/// A number that this process has not given out yet is from an earlier process with the same id.
bool isStale(const TemporaryOwner& owner) {
    if (owner.process == static_cast<std::uint64_t>(getpid())) return owner.number > lastTemporaryNumber;
    const auto process = static_cast<pid_t>(owner.process);
    if (process <= 0 || static_cast<std::uint64_t>(process) != owner.process) return true;
    return kill(process, 0) != 0 && errno == ESRCH;
}

/// Whether what is written is synced at once, or by the caller with everything else.
enum class Synced { each, together };

Result<> writeFile(FileSystem& files, const std::string& path, std::span<const std::uint8_t> bytes, Synced synced) {
    auto file = TRY(files.openForWriting(path));
    TRY_VOID(file->write(bytes));
    if (synced == Synced::each) TRY_VOID(file->sync());
    return file->close();
}

Result<> writeAndRename(FileSystem& files, const std::string& temporary, const std::string& path,
                        std::span<const std::uint8_t> bytes) {
    TRY_VOID(writeFile(files, temporary, bytes, Synced::each));
    return files.rename(temporary, path);
}

bool isPlainName(std::string_view name) { return !name.empty() && name != "." && name != ".." && !name.contains('\0'); }

/// Makes the directories that a file of a package lies in; nothing where its name leads out of the package.
Result<> makeParents(FileSystem& files, const std::string& package, const std::string& name,
                     std::set<std::string>& directories) {
    const std::string path = package + "/" + name;
    for (std::size_t at = 0, end = 0; end != std::string::npos; at = end + 1) {
        end = name.find('/', at);
        // A slash at the end stands for the directory itself.
        if (end == std::string::npos && at == name.size() && at > 0) return {};
        if (!isPlainName(std::string_view(name).substr(at, end - at)))
            return std::unexpected(fileError(EINVAL, path, "write"));
        if (end == std::string::npos) return {};
        std::string directory = joinPath(package, name.substr(0, end));
        if (!directories.contains(directory)) TRY_VOID(files.createDirectory(directory));
        directories.insert(std::move(directory));
    }
    return {};
}

Result<> writePackageContent(FileSystem& files, const std::string& package, std::span<const PackageFile> content,
                             Synced synced) {
    TRY_VOID(files.createDirectory(package));
    std::set<std::string> directories{package};
    for (const PackageFile& file : content) {
        TRY_VOID(makeParents(files, package, file.name, directories));
        if (!file.name.ends_with('/')) TRY_VOID(writeFile(files, joinPath(package, file.name), file.bytes, synced));
    }
    if (synced == Synced::together) return {};
    for (const std::string& directory : directories) TRY_VOID(files.syncDirectory(directory));
    return {};
}

/// A temporary path at which nothing is. A crashed process with our id may have left a directory of
/// that name with files in it.
Result<std::string> freeTemporaryPath(FileSystem& files, const std::string& path) {
    std::string temporary = makeTemporaryPath(path);
    if (TRY(files.status(temporary))) TRY_VOID(files.removeTree(temporary));
    return temporary;
}

/// What nobody needs any more. Where it cannot be removed the next start tries again.
void discard(FileSystem& files, const std::string& path) {
    const auto removed = files.removeTree(path);
    if (!removed && removed.error().code != ENOENT)
        logError(path + " is left for the next start: " + removed.error().description());
}

/// For file systems without an exchange. Dies the process between the steps, settlePackage() brings the old
/// package back.
Result<std::string> exchangeInSteps(FileSystem& files, const std::string& temporary, const std::string& path) {
    TRY_VOID(settlePackage(files, path));  // an earlier one may be in the way
    const std::string aside = asidePath(path);
    TRY_VOID(files.rename(path, aside));
    const auto renamed = files.rename(temporary, path);
    if (renamed) return aside;
    const auto back = files.rename(aside, path);
    if (!back) logError(path + " stands aside for now: " + back.error().description());
    return std::unexpected(renamed.error());
}

/// Swaps the two; where the old package then is.
Result<std::string> exchangePackages(FileSystem& files, const std::string& temporary, const std::string& path) {
    const auto exchanged = files.exchange(temporary, path);
    if (exchanged) return temporary;
    const int code = exchanged.error().code;
    if (code == EINVAL || code == ENOSYS || code == EOPNOTSUPP) return exchangeInSteps(files, temporary, path);
    return std::unexpected(exchanged.error());
}

/// Gives the new package its place, and says under which name stands what was there before; the empty one
/// where nothing was.
Result<std::string> putPackageInPlace(FileSystem& files, const std::string& temporary, const std::string& path) {
    if (TRY(files.status(path))) return exchangePackages(files, temporary, path);
    const auto renamed = files.rename(temporary, path);
    if (renamed) return std::string();
    // Another process put a package there since we looked.
    const int code = renamed.error().code;
    if (code == ENOTEMPTY || code == EEXIST || code == ENOTDIR) return exchangePackages(files, temporary, path);
    return std::unexpected(renamed.error());
}

/// Takes the package's name from it, whose temporary one is returned.
Result<std::string> takeAway(FileSystem& files, const std::string& path) {
    TRY_VOID(settlePackage(files, path));  // an earlier one would come back otherwise
    std::string temporary = TRY(freeTemporaryPath(files, path));
    TRY_VOID(files.rename(path, temporary));
    return temporary;
}

/// One package of a batch on its way.
struct Replacement {
    std::string temporary;
    std::string old;  ///< where the old package is once the new one is in place
    Result<> result;

    void then(const Result<>& step) {
        if (result) result = step;
    }
};

Result<> prepare(FileSystem& files, const PackageChange& change, std::string& temporary) {
    const auto content = TRY(change.content());
    temporary = TRY(freeTemporaryPath(files, change.path));
    return writePackageContent(files, temporary, content, Synced::together);
}

Result<> putInPlace(FileSystem& files, Replacement& replacement, const std::string& path) {
    replacement.old = TRY(putPackageInPlace(files, replacement.temporary, path));
    return {};
}

Result<> writeAtomically(FileSystem& files, const PackageChange& change) {
    const auto content = TRY(change.content());
    return writePackageAtomically(files, change.path, content);
}

std::vector<Result<>> writeEachAtomically(FileSystem& files, std::span<const PackageChange> changes) {
    std::vector<Result<>> results;
    for (const PackageChange& change : changes) results.push_back(writeAtomically(files, change));
    return results;
}

bool isDirectoryRefusal(int code) { return code == EISDIR || code == EPERM; }

}  // namespace

bool FileSystem::exists(const std::string& path) const {
    const auto found = status(path);
    return found && *found;
}

bool FileSystem::isDirectory(const std::string& path) const {
    const auto found = status(path);
    return found && *found && (*found)->kind == FileStatus::Kind::directory;
}

Result<ReadFile> FileSystem::readFileWithStatus(const std::string& path) const {
    const std::optional<FileStatus> found = TRY(status(path));
    if (!found) return std::unexpected(fileError(ENOENT, path, "read"));
    return ReadFile{TRY(readFile(path)), *found};
}

Result<> FileSystem::createDirectories(const std::string& path) {
    if (path.empty() || path == "/") return {};
    const auto found = TRY(status(path));
    if (found && found->kind == FileStatus::Kind::directory) return {};
    const std::string parent = parentPath(path);
    TRY_VOID(createDirectories(parent));
    TRY_VOID(createDirectory(path));
    auto synced = syncDirectory(parent);
    // A parent that we may not open for reading cannot be synced; the directory is there all the same.
    if (!synced && synced.error().code == EACCES) return {};
    return synced;
}

Result<> FileSystem::removeTree(const std::string& path) {
    // Tried as a file first: so a symbolic link goes itself, and never what it points to.
    auto removed = removeFile(path);
    if (removed || !isDirectoryRefusal(removed.error().code)) return removed;
    for (const std::string& name : TRY(listDirectory(path))) TRY_VOID(removeTree(joinPath(path, name)));
    return removeEmptyDirectory(path);
}

Result<> writeFileAtomically(FileSystem& files, const std::string& path, std::span<const std::uint8_t> bytes) {
    const std::string temporary = makeTemporaryPath(path);
    auto written = writeAndRename(files, temporary, path, bytes);
    if (!written) {
        discard(files, temporary);
        return written;
    }
    return files.syncDirectory(parentPath(path));
}

Result<> writePackageAtomically(FileSystem& files, const std::string& path, std::span<const PackageFile> content) {
    const std::string temporary = TRY(freeTemporaryPath(files, path));
    const auto replaced = [&]() -> Result<std::string> {
        TRY_VOID(writePackageContent(files, temporary, content, Synced::each));
        return putPackageInPlace(files, temporary, path);
    }();
    if (!replaced) {
        discard(files, temporary);
        return std::unexpected(replaced.error());
    }
    // Unless the exchange is on the device, a crash may bring the old package's name back: its files
    // must not be gone then.
    TRY_VOID(files.syncDirectory(parentPath(path)));
    if (!replaced->empty()) discard(files, *replaced);
    return {};
}

std::vector<Result<>> writePackagesAtomically(FileSystem& files, const std::string& directory,
                                              std::span<const PackageChange> changes) {
    auto device = files.openDeviceSync(directory);
    if (!device && device.error().code == EOPNOTSUPP) return writeEachAtomically(files, changes);
    if (!device) return std::vector<Result<>>(changes.size(), std::unexpected(device.error()));
    std::vector<Replacement> replacements(changes.size());
    inParallel(changes.size(), kPackagesPerThread, [&](std::size_t i) {
        replacements[i].result = prepare(files, changes[i], replacements[i].temporary);
    });
    const auto written = (*device)->sync();
    for (std::size_t i = 0; i < changes.size(); ++i) {
        Replacement& replacement = replacements[i];
        replacement.then(written);
        if (replacement.result) replacement.result = putInPlace(files, replacement, changes[i].path);
        if (!replacement.result && !replacement.temporary.empty()) discard(files, replacement.temporary);
    }
    const auto named = files.syncDirectory(directory);
    std::vector<Result<>> results;
    for (Replacement& replacement : replacements) {
        replacement.then(named);
        if (replacement.result && !replacement.old.empty()) discard(files, replacement.old);
        results.push_back(std::move(replacement.result));
    }
    return results;
}

Result<> removePackageAtomically(FileSystem& files, const std::string& path) {
    const std::string temporary = TRY(takeAway(files, path));
    // Only then may its files go: a crash must not bring the name back without them.
    TRY_VOID(files.syncDirectory(parentPath(path)));
    discard(files, temporary);
    return {};
}

std::vector<Result<>> removePackagesAtomically(FileSystem& files, const std::string& directory,
                                               std::span<const std::string> paths) {
    std::vector<Replacement> removals;
    for (const std::string& path : paths) {
        Replacement& removal = removals.emplace_back();
        if (auto temporary = takeAway(files, path)) {
            removal.old = *std::move(temporary);
        } else {
            removal.result = std::unexpected(temporary.error());
        }
    }
    const auto unnamed = files.syncDirectory(directory);
    std::vector<Result<>> results;
    for (Replacement& removal : removals) {
        removal.then(unnamed);
        if (removal.result) discard(files, removal.old);
        results.push_back(std::move(removal.result));
    }
    return results;
}

Result<> settlePackage(FileSystem& files, const std::string& path) {
    const std::string aside = asidePath(path);
    if (!TRY(files.status(aside))) return {};
    const bool isReplaced = TRY(files.status(path)).has_value();
    // It goes whole too: a half of it must never come back.
    const std::string target = isReplaced ? TRY(freeTemporaryPath(files, path)) : path;
    TRY_VOID(files.rename(aside, target));
    TRY_VOID(files.syncDirectory(parentPath(path)));
    if (isReplaced) discard(files, target);
    return {};
}

std::string asidePath(const std::string& path) {
    return joinPath(parentPath(path), "." + lastPathComponent(path) + std::string(kAsideEnding));
}

std::string nameOfAside(std::string_view name) {
    if (name.size() < 2 + kAsideEnding.size() || !name.starts_with('.') || !name.ends_with(kAsideEnding)) return {};
    return std::string(name.substr(1, name.size() - 1 - kAsideEnding.size()));
}

bool isTemporaryName(std::string_view name) { return temporaryOwner(name) || !nameOfAside(name).empty(); }

void removeStaleTemporaries(FileSystem& files, const std::string& directory) {
    const auto names = files.listDirectory(directory);
    if (!names || std::ranges::none_of(*names, [](const auto& name) { return temporaryOwner(name).has_value(); }))
        return;
    // Synced first: what is replaced goes only after what replaced it is on the device.
    if (const auto synced = files.syncDirectory(directory); !synced)
        return logError("temporaries stay: " + synced.error().description());
    for (const std::string& name : *names) {
        const auto owner = temporaryOwner(name);
        if (owner && isStale(*owner)) discard(files, joinPath(directory, name));
    }
}

Result<std::string> absolutePath(const std::string& path) {
    if (path.empty() || path.contains('\0')) return std::unexpected(fileError(EINVAL, path, "find"));
    std::error_code error;
    const auto absolute = std::filesystem::absolute(path, error);
    if (error) return std::unexpected(fileError(error.value(), path, "find"));
    std::string normal = absolute.lexically_normal().string();
    while (normal.size() > 1 && normal.ends_with('/')) normal.pop_back();
    return normal;
}

std::string joinPath(std::string_view directory, std::string_view name) {
    std::string path(directory);
    if (!path.ends_with('/')) path += '/';
    return path.append(name);
}

std::string lastPathComponent(std::string_view path) {
    while (path.size() > 1 && path.ends_with('/')) path.remove_suffix(1);
    return std::string(path.substr(path.rfind('/') + 1));
}

std::string parentPath(std::string_view path) {
    while (path.size() > 1 && path.ends_with('/')) path.remove_suffix(1);
    const auto slash = path.rfind('/');
    if (slash == std::string_view::npos) return {};
    return std::string(slash == 0 ? "/" : path.substr(0, slash));
}

std::string pathExtension(std::string_view path) {
    const std::string name = lastPathComponent(path);
    const auto point = name.rfind('.');
    return point == std::string::npos || point == 0 ? "" : name.substr(point + 1);
}

std::string deletingPathExtension(std::string_view path) {
    const std::string extension = pathExtension(path);
    return std::string(extension.empty() ? path : path.substr(0, path.rfind('.')));
}

}  // namespace dayward
