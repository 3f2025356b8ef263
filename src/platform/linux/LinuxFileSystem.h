// The files of this machine, one system call per operation. Files are made for their owner alone
// (0600, directories 0700). Calls that a signal interrupts go on. Any thread.
#pragma once

#include "platform/FileSystem.h"

namespace dayward {

class LinuxFileSystem : public FileSystem {
public:
    Result<std::optional<FileStatus>> status(const std::string& path) const override;
    [[nodiscard]] bool isLink(const std::string& path) const override;
    Result<Data> readFile(const std::string& path) const override;
    Result<ReadFile> readFileWithStatus(const std::string& path) const override;
    Result<std::vector<std::string>> listDirectory(const std::string& path) const override;
    Result<> createDirectory(const std::string& path) override;
    Result<std::unique_ptr<FileHandle>> openForWriting(const std::string& path) override;
    Result<> rename(const std::string& from, const std::string& to) override;
    Result<> exchange(const std::string& a, const std::string& b) override;
    Result<> removeFile(const std::string& path) override;
    Result<> removeEmptyDirectory(const std::string& path) override;
    Result<> syncDirectory(const std::string& path) override;
    /// syncfs, whose errors are those since its descriptor was opened; for file systems of local disks and of memory.
    Result<std::unique_ptr<DeviceSync>> openDeviceSync(const std::string& directory) override;
    /// flock on a descriptor of its own: it excludes other holders in this process too.
    Result<std::unique_ptr<FileLock>> lock(const std::string& path, bool exclusive) override;
    Result<> setExtendedAttribute(const std::string& path, const std::string& name, const Data& value) override;
};

}  // namespace dayward
