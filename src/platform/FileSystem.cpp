#include "platform/FileSystem.h"

#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <charconv>
#include <cstring>
#include <filesystem>

namespace dayward {

namespace {

constexpr std::string_view kTemporaryMark = ".tmp-";
// A name in a directory has at most 255 bytes on the usual file systems; mark and numbers need 40.
constexpr std::size_t kLongestKeptName = 200;

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
    const auto mark = name.rfind(kTemporaryMark);
    if (!name.starts_with('.') || mark == std::string_view::npos || mark < 2) return std::nullopt;
    const std::string_view numbers = name.substr(mark + kTemporaryMark.size());
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

Result<> writeSynced(FileSystem& files, const std::string& path, std::span<const std::uint8_t> bytes) {
    auto file = TRY(files.openForWriting(path));
    TRY_VOID(file->write(bytes));
    TRY_VOID(file->sync());
    return file->close();
}

Result<> writeAndRename(FileSystem& files, const std::string& temporary, const std::string& path,
                        std::span<const std::uint8_t> bytes) {
    TRY_VOID(writeSynced(files, temporary, bytes));
    return files.rename(temporary, path);
}

bool isPlainName(const std::string& name) {
    return !name.empty() && name != "." && name != ".." && name.find_first_of(std::string_view("/\0", 2)) == name.npos;
}

Result<> writePackageContent(FileSystem& files, const std::string& directory, std::span<const PackageFile> content) {
    TRY_VOID(files.createDirectory(directory));
    for (const PackageFile& file : content) {
        if (!isPlainName(file.name)) return std::unexpected(fileError(EINVAL, directory + "/" + file.name, "write"));
        TRY_VOID(writeSynced(files, joinPath(directory, file.name), file.bytes));
    }
    return files.syncDirectory(directory);
}

/// A temporary path at which nothing is. A crashed process with our id may have left a directory of
/// that name with files in it.
Result<std::string> freeTemporaryPath(FileSystem& files, const std::string& path) {
    std::string temporary = makeTemporaryPath(path);
    if (files.exists(temporary)) TRY_VOID(files.removeTree(temporary));
    return temporary;
}

/// Gives the new package its place. What stood there before is then under the temporary name.
Result<> putPackageInPlace(FileSystem& files, const std::string& temporary, const std::string& path) {
    const auto old = TRY(files.status(path));
    if (old) return files.exchange(temporary, path);
    auto renamed = files.rename(temporary, path);
    // Another process put a package there since we looked.
    const bool appeared = !renamed && (renamed.error().code == ENOTEMPTY || renamed.error().code == EEXIST ||
                                       renamed.error().code == ENOTDIR);
    return appeared ? files.exchange(temporary, path) : renamed;
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

Result<> FileSystem::createDirectories(const std::string& path) {
    if (path.empty() || path == "/" || isDirectory(path)) return {};
    const std::string parent = parentPath(path);
    TRY_VOID(createDirectories(parent));
    TRY_VOID(createDirectory(path));
    // A parent that we may not open for reading cannot be synced; the directory is there all the same.
    (void)syncDirectory(parent);
    return {};
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
        (void)files.removeFile(temporary);
        return written;
    }
    return files.syncDirectory(parentPath(path));
}

Result<> writePackageAtomically(FileSystem& files, const std::string& path, std::span<const PackageFile> content) {
    const std::string temporary = TRY(freeTemporaryPath(files, path));
    auto written = writePackageContent(files, temporary, content);
    if (written) written = putPackageInPlace(files, temporary, path);
    if (!written) {
        (void)files.removeTree(temporary);
        return written;
    }
    // Unless the exchange is on the device, a crash may bring the old package's name back: its files
    // must not be gone then.
    TRY_VOID(files.syncDirectory(parentPath(path)));
    (void)files.removeTree(temporary);
    return {};
}

Result<> removePackageAtomically(FileSystem& files, const std::string& path) {
    const std::string temporary = TRY(freeTemporaryPath(files, path));
    TRY_VOID(files.rename(path, temporary));
    // Only then may its files go: a crash must not bring the name back without them.
    TRY_VOID(files.syncDirectory(parentPath(path)));
    (void)files.removeTree(temporary);
    return {};
}

bool isTemporaryName(std::string_view name) { return temporaryOwner(name).has_value(); }

void removeStaleTemporaries(FileSystem& files, const std::string& directory) {
    const auto names = files.listDirectory(directory);
    // Synced first: what is replaced goes only after what replaced it is on the device.
    if (!names || std::ranges::none_of(*names, isTemporaryName) || !files.syncDirectory(directory)) return;
    for (const std::string& name : *names) {
        const auto owner = temporaryOwner(name);
        if (owner && isStale(*owner)) (void)files.removeTree(joinPath(directory, name));
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
