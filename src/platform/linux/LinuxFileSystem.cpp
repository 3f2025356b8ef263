#include "platform/linux/LinuxFileSystem.h"

#include <dirent.h>
#include <fcntl.h>
#include <linux/magic.h>
#include <stdio.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/vfs.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstring>
#include <iterator>
#include <utility>

#include "platform/linux/FileDescriptor.h"

namespace dayward {

namespace {

/// No file of a home is nearly as long; one that is must not take all the memory.
constexpr std::size_t kLongestFile = std::size_t{512} << 20;
constexpr mode_t kFileMode = 0600;
constexpr mode_t kDirectoryMode = 0700;

std::unexpected<Error> systemFailure(const std::string& path, const std::string& operation, int code = errno) {
    return failure("file", code, {{"path", path}, {"operation", operation}, {"reason", std::strerror(code)}});
}

Result<> checked(int result, const std::string& path, const std::string& operation) {
    if (result != 0) return systemFailure(path, operation);
    return {};
}

template <class Call>
auto uninterrupted(const Call& call) {
    auto result = call();
    while (result < 0 && errno == EINTR) result = call();
    return result;
}

Result<FileDescriptor> openDescriptor(const std::string& path, int flags) {
    FileDescriptor file(uninterrupted([&] { return ::open(path.c_str(), flags | O_CLOEXEC, kFileMode); }));
    if (!file) return systemFailure(path, "open");
    return file;
}

FileStatus::Kind kindOf(const struct stat& found) {
    if (S_ISREG(found.st_mode)) return FileStatus::Kind::file;
    return S_ISDIR(found.st_mode) ? FileStatus::Kind::directory : FileStatus::Kind::other;
}

FileStatus statusOf(const struct stat& found) {
    const double modified =
        static_cast<double>(found.st_mtim.tv_sec) + static_cast<double>(found.st_mtim.tv_nsec) / 1e9;
    return {kindOf(found), static_cast<std::uint64_t>(found.st_size), Date::since1970(modified),
            static_cast<std::uint64_t>(found.st_ino)};
}

/// Reads until `bytes` is full or the file ends; how much was read.
Result<std::size_t> readInto(std::span<std::uint8_t> bytes, const FileDescriptor& file, const std::string& path) {
    std::size_t length = 0;
    while (length < bytes.size()) {
        const auto count =
            uninterrupted([&] { return ::read(file.get(), bytes.data() + length, bytes.size() - length); });
        if (count < 0) return systemFailure(path, "read");
        if (count == 0) break;
        length += static_cast<std::size_t>(count);
    }
    return length;
}

class LinuxFileHandle final : public FileHandle {
public:
    LinuxFileHandle(FileDescriptor file, std::string path) : file_(std::move(file)), path_(std::move(path)) {}

    Result<> write(std::span<const std::uint8_t> bytes) override {
        while (!bytes.empty()) {
            const auto count = uninterrupted([&] { return ::write(file_.get(), bytes.data(), bytes.size()); });
            if (count < 0) return systemFailure(path_, "write");
            bytes = bytes.subspan(static_cast<std::size_t>(count));
        }
        return {};
    }

    Result<> sync() override {
        return checked(uninterrupted([&] { return ::fsync(file_.get()); }), path_, "sync");
    }

    Result<> close() override { return checked(::close(file_.release()), path_, "close"); }

private:
    FileDescriptor file_;
    std::string path_;
};

/// Others, as those in user space, may answer syncfs before anything is on a device: it reaches their pages, but
/// not who keeps the files.
bool syncsWhole(decltype(statfs::f_type) fileSystem) {
    constexpr decltype(statfs::f_type) kKnown[] = {EXT4_SUPER_MAGIC, XFS_SUPER_MAGIC, BTRFS_SUPER_MAGIC,
                                                   F2FS_SUPER_MAGIC, TMPFS_MAGIC};
    return std::ranges::find(kKnown, fileSystem) != std::end(kKnown);
}

class LinuxDeviceSync final : public DeviceSync {
public:
    LinuxDeviceSync(FileDescriptor directory, std::string path)
        : directory_(std::move(directory)), path_(std::move(path)) {}

    Result<> sync() override {
        return checked(uninterrupted([&] { return ::syncfs(directory_.get()); }), path_, "sync all");
    }

private:
    FileDescriptor directory_;
    std::string path_;
};

/// flock orders the threads of a process in time, but the language does not know it: this does.
std::atomic<std::uint64_t> lockOrder = 0;

class LinuxFileLock final : public FileLock {
public:
    explicit LinuxFileLock(FileDescriptor file) : file_(std::move(file)) { (void)lockOrder.load(); }
    ~LinuxFileLock() override { ++lockOrder; }

private:
    FileDescriptor file_;
};

}  // namespace

Result<std::optional<FileStatus>> LinuxFileSystem::status(const std::string& path) const {
    struct stat found = {};
    if (::stat(path.c_str(), &found) != 0) {
        if (errno == ENOENT || errno == ENOTDIR) return std::nullopt;
        return systemFailure(path, "status");
    }
    return statusOf(found);
}

bool LinuxFileSystem::isLink(const std::string& path) const {
    struct stat found = {};
    return ::lstat(path.c_str(), &found) == 0 && S_ISLNK(found.st_mode);
}

Result<Data> LinuxFileSystem::readFile(const std::string& path) const {
    return TRY(readFileWithStatus(path)).bytes;
}

Result<ReadFile> LinuxFileSystem::readFileWithStatus(const std::string& path) const {
    // Without waiting: a named pipe in the place of a file must not hang the program.
    const auto file = TRY(openDescriptor(path, O_RDONLY | O_NONBLOCK));
    struct stat found = {};
    if (::fstat(file.get(), &found) != 0) return systemFailure(path, "read");
    if (S_ISDIR(found.st_mode)) return systemFailure(path, "read", EISDIR);
    if (!S_ISREG(found.st_mode)) return systemFailure(path, "read", EINVAL);
    if (found.st_size > static_cast<off_t>(kLongestFile)) return systemFailure(path, "read", EFBIG);
    ReadFile result{Data(static_cast<std::size_t>(found.st_size)), statusOf(found)};
    std::size_t length = TRY(readInto(result.bytes, file, path));
    // A file without a size may have content all the same, as those of the kernel have.
    constexpr std::size_t kStep = 65536;
    while (found.st_size == 0 && length == result.bytes.size()) {
        if (length > kLongestFile) return systemFailure(path, "read", EFBIG);
        result.bytes.resize(length + kStep);
        length += TRY(readInto(std::span(result.bytes).subspan(length), file, path));
    }
    result.bytes.resize(length);
    return result;
}

Result<std::vector<std::string>> LinuxFileSystem::listDirectory(const std::string& path) const {
    const std::unique_ptr<DIR, int (*)(DIR*)> directory(::opendir(path.c_str()), &::closedir);
    if (!directory) return systemFailure(path, "list");
    std::vector<std::string> names;
    while (true) {
        errno = 0;
        const dirent* const entry = ::readdir(directory.get());
        if (entry == nullptr) break;
        std::string name = entry->d_name;
        if (name != "." && name != "..") names.push_back(std::move(name));
    }
    if (errno != 0) return systemFailure(path, "list");
    return names;
}

Result<> LinuxFileSystem::createDirectory(const std::string& path) {
    if (::mkdir(path.c_str(), kDirectoryMode) == 0) return {};
    const int code = errno;
    if (code == EEXIST && isDirectory(path)) return {};
    return systemFailure(path, "create directory", code);
}

Result<std::unique_ptr<FileHandle>> LinuxFileSystem::openForWriting(const std::string& path) {
    auto file = TRY(openDescriptor(path, O_WRONLY | O_CREAT | O_TRUNC));
    return std::make_unique<LinuxFileHandle>(std::move(file), path);
}

Result<> LinuxFileSystem::rename(const std::string& from, const std::string& to) {
    return checked(::rename(from.c_str(), to.c_str()), to, "rename");
}

Result<> LinuxFileSystem::exchange(const std::string& a, const std::string& b) {
    return checked(::renameat2(AT_FDCWD, a.c_str(), AT_FDCWD, b.c_str(), RENAME_EXCHANGE), b, "exchange");
}

Result<> LinuxFileSystem::removeFile(const std::string& path) {
    return checked(::unlink(path.c_str()), path, "remove");
}

Result<> LinuxFileSystem::removeEmptyDirectory(const std::string& path) {
    return checked(::rmdir(path.c_str()), path, "remove directory");
}

Result<> LinuxFileSystem::syncDirectory(const std::string& path) {
    const auto directory = TRY(openDescriptor(path, O_RDONLY | O_DIRECTORY));
    return checked(uninterrupted([&] { return ::fsync(directory.get()); }), path, "sync directory");
}

Result<std::unique_ptr<DeviceSync>> LinuxFileSystem::openDeviceSync(const std::string& directory) {
    auto opened = TRY(openDescriptor(directory, O_RDONLY | O_DIRECTORY));
    struct statfs found = {};
    TRY_VOID(checked(uninterrupted([&] { return ::fstatfs(opened.get(), &found); }), directory, "status"));
    if (!syncsWhole(found.f_type)) return systemFailure(directory, "sync all", EOPNOTSUPP);
    return std::make_unique<LinuxDeviceSync>(std::move(opened), directory);
}

Result<std::unique_ptr<FileLock>> LinuxFileSystem::lock(const std::string& path, bool exclusive) {
    auto file = TRY(openDescriptor(path, O_RDWR | O_CREAT));
    const int kind = exclusive ? LOCK_EX : LOCK_SH;
    TRY_VOID(checked(uninterrupted([&] { return ::flock(file.get(), kind); }), path, "lock"));
    return std::make_unique<LinuxFileLock>(std::move(file));
}

Result<> LinuxFileSystem::setExtendedAttribute(const std::string& path, const std::string& name, const Data& value) {
    return checked(::setxattr(path.c_str(), name.c_str(), value.data(), value.size(), 0), path, "set attribute");
}

}  // namespace dayward
