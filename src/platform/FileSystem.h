// Every file operation of the program goes through this interface, one system call each, so that a
// test can fail any of them, cut a write short, or drop what was not synced.
//
// Paths are absolute UTF-8. Errors have the domain "file", the errno as code, and "path",
// "operation" and "reason" in the user info. Any thread.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <string>
#include <vector>

#include "platform/Data.h"
#include "platform/Date.h"
#include "platform/Result.h"

namespace dayward {

struct FileStatus {
    enum class Kind { file, directory, other };
    Kind kind = Kind::file;
    std::uint64_t size = 0;
    Date modified;
    std::uint64_t inode = 0;
};

/// A file opened for writing. Destroying it without close() closes it and ignores the error.
class FileHandle {
public:
    virtual ~FileHandle() = default;
    /// Writes all the bytes, or fails having written any part of them.
    virtual Result<> write(std::span<const std::uint8_t> bytes) = 0;
    /// Returns when the content is on the device (fsync).
    virtual Result<> sync() = 0;
    virtual Result<> close() = 0;
};

/// An advisory lock on a lock file, held against other processes and other holders in this one.
/// Released when destroyed.
class FileLock {
public:
    virtual ~FileLock() = default;
};

/// Brings to the device all that was written on a file system, whoever wrote it.
class DeviceSync {
public:
    virtual ~DeviceSync() = default;
    /// Fails where anything written since it was opened did not get to the device.
    virtual Result<> sync() = 0;
};

/// A file's bytes, and its status of before they were read.
struct ReadFile {
    Data bytes;
    FileStatus status;
};

class FileSystem {
public:
    virtual ~FileSystem() = default;

    /// Nothing where there is no such file; other failures are errors. Follows symbolic links.
    virtual Result<std::optional<FileStatus>> status(const std::string& path) const = 0;
    /// Whether the path itself is a symbolic link; false also where that cannot be told.
    [[nodiscard]] virtual bool isLink(const std::string&) const { return false; }
    /// A file that is too long for any of the program's is refused (EFBIG).
    virtual Result<Data> readFile(const std::string& path) const = 0;
    /// Both in one opening where the file system can do that.
    virtual Result<ReadFile> readFileWithStatus(const std::string& path) const;
    /// Names of the entries without "." and "..", in no promised order.
    virtual Result<std::vector<std::string>> listDirectory(const std::string& path) const = 0;
    /// Makes one directory; it is no error if it is there already.
    virtual Result<> createDirectory(const std::string& path) = 0;
    /// Creates or empties the file.
    virtual Result<std::unique_ptr<FileHandle>> openForWriting(const std::string& path) = 0;
    /// Atomically gives `from` the name `to`, replacing a file or an empty directory there.
    virtual Result<> rename(const std::string& from, const std::string& to) = 0;
    /// Atomically swaps two existing entries, directories included (renameat2 with RENAME_EXCHANGE).
    virtual Result<> exchange(const std::string& a, const std::string& b) = 0;
    virtual Result<> removeFile(const std::string& path) = 0;
    virtual Result<> removeEmptyDirectory(const std::string& path) = 0;
    /// Returns when the directory's entries are on the device.
    virtual Result<> syncDirectory(const std::string& path) = 0;
    /// For the file system of the directory. To be opened before the first write: it may not know of
    /// failures from before. EOPNOTSUPP where the file system is not known to keep what DeviceSync promises.
    virtual Result<std::unique_ptr<DeviceSync>> openDeviceSync(const std::string& directory) = 0;
    /// Waits for the exclusive (or shared) lock on `path`, which is created if missing.
    virtual Result<std::unique_ptr<FileLock>> lock(const std::string& path, bool exclusive) = 0;
    virtual Result<> setExtendedAttribute(const std::string& path, const std::string& name, const Data& value) = 0;

    // Built from the above.
    [[nodiscard]] bool exists(const std::string& path) const;
    [[nodiscard]] bool isDirectory(const std::string& path) const;
    /// Makes the directory and its missing parents.
    Result<> createDirectories(const std::string& path);
    /// Removes a file, or a directory with all that is in it. Fails where there is nothing.
    Result<> removeTree(const std::string& path);
};

/// Replaces the file whole and durably: written beside it under a temporary name, synced, renamed,
/// the directory synced. Whatever happens, the old or the new content is there. On an error the old
/// content stays and the temporary file is gone where it could be removed; but where only the last
/// step, the directory's sync, fails, the new content is there and a crash may bring the old back.
Result<> writeFileAtomically(FileSystem& files, const std::string& path, std::span<const std::uint8_t> bytes);

/// One file of a package, or a directory, which may be empty.
struct PackageFile {
    std::string name;  ///< from the package on, as "a" or "b/c"; that of a directory ends with a slash
    Data bytes;
};

/// Replaces a package (a directory of files) whole and durably: a new directory is written beside
/// it, synced, and exchanged for it by one rename; the old one is then removed. Whatever happens,
/// the old or the new package is there, never neither and never a mix. A name that leads out of the
/// package is refused (EINVAL). Errors leave what writeFileAtomically leaves. Where the file system cannot
/// exchange, the old package stands aside for a moment: see settlePackage. Nobody else may write the package
/// meanwhile; so for the operations below.
Result<> writePackageAtomically(FileSystem& files, const std::string& path, std::span<const PackageFile> content);

/// A package that is to be replaced, and what makes its content: on any thread, in the environment of the caller.
struct PackageChange {
    std::string path;
    std::function<Result<std::vector<PackageFile>>()> content;
};

/// The same for many packages of one directory together, with one sync of the device before they get their names
/// and one of the directory after it. That waits for what others wrote on the device too, so it is for batches
/// that would need many syncs; where the device cannot be synced so, each is written alone. The result of each in
/// their order; a crash leaves each of them old or new.
std::vector<Result<>> writePackagesAtomically(FileSystem& files, const std::string& directory,
                                              std::span<const PackageChange> changes);

/// Removes a package, or whatever has its name, whole and durably: it loses its name first and its
/// files afterwards, so that nobody ever finds a part of it. A symbolic link goes itself. An error
/// means that it is still there; but where only the directory's sync fails, it is gone and a crash
/// may bring it back.
Result<> removePackageAtomically(FileSystem& files, const std::string& path);
/// The same for many packages of one directory, which is synced once. The result of each in their order.
std::vector<Result<>> removePackagesAtomically(FileSystem& files, const std::string& directory,
                                               std::span<const std::string> paths);

/// Brings back a package that stands aside because its writer did not get to the end, or removes it where its
/// successor is in place; durably. Does nothing in all other cases.
Result<> settlePackage(FileSystem& files, const std::string& path);
/// Where the package of that path stands aside: ".NAME.was".
std::string asidePath(const std::string& path);
/// The name of the package that stands aside under this one; empty where it is no such name.
std::string nameOfAside(std::string_view name);

/// True for the temporary names that the operations above use: ".NAME.tmp-PID-NUMBER", which
/// removeStaleTemporaries sweeps after a crash, and ".NAME.was", which settlePackage puts in order.
bool isTemporaryName(std::string_view name);
/// Removes temporaries in the directory whose process is gone. Failures are logged, and the next start tries again.
void removeStaleTemporaries(FileSystem& files, const std::string& directory);

/// The path from the working directory, "." and ".." taken out, without a slash at its end. Fails for an
/// empty path, one with a NUL in it, and where the working directory is gone.
Result<std::string> absolutePath(const std::string& path);
/// "/a/b" and "c" give "/a/b/c".
std::string joinPath(std::string_view directory, std::string_view name);
std::string lastPathComponent(std::string_view path);
std::string parentPath(std::string_view path);
/// "evn" of "key.evn"; empty without a point, or for a name that only begins with one.
std::string pathExtension(std::string_view path);
std::string deletingPathExtension(std::string_view path);

}  // namespace dayward
