// Another file system, read only: every operation that would change something fails with EROFS.
// Locks are not taken. Any thread.
#pragma once

#include <cerrno>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/FileSystem.h"

namespace dayward {

class ReadOnlyFileSystem final : public FileSystem {
public:
    explicit ReadOnlyFileSystem(std::shared_ptr<const FileSystem> files) : files_(std::move(files)) {}

    Result<std::optional<FileStatus>> status(const std::string& path) const override { return files_->status(path); }
    [[nodiscard]] bool isLink(const std::string& path) const override { return files_->isLink(path); }
    Result<Data> readFile(const std::string& path) const override { return files_->readFile(path); }
    Result<ReadFile> readFileWithStatus(const std::string& path) const override {
        return files_->readFileWithStatus(path);
    }
    Result<std::vector<std::string>> listDirectory(const std::string& path) const override {
        return files_->listDirectory(path);
    }
    Result<> createDirectory(const std::string& path) override { return refuse("createDirectory", path); }
    Result<std::unique_ptr<FileHandle>> openForWriting(const std::string& path) override {
        return refuse("openForWriting", path);
    }
    Result<> rename(const std::string& from, const std::string&) override { return refuse("rename", from); }
    Result<> exchange(const std::string& a, const std::string&) override { return refuse("exchange", a); }
    Result<> removeFile(const std::string& path) override { return refuse("removeFile", path); }
    Result<> removeEmptyDirectory(const std::string& path) override { return refuse("removeEmptyDirectory", path); }
    Result<> syncDirectory(const std::string& path) override { return refuse("syncDirectory", path); }
    Result<std::unique_ptr<DeviceSync>> openDeviceSync(const std::string& directory) override {
        return refuse("openDeviceSync", directory);
    }
    Result<std::unique_ptr<FileLock>> lock(const std::string&, bool) override { return std::make_unique<FileLock>(); }
    Result<> setExtendedAttribute(const std::string& path, const std::string&, const Data&) override {
        return refuse("setExtendedAttribute", path);
    }

private:
    static std::unexpected<Error> refuse(const char* operation, const std::string& path) {
        return failure("file", EROFS, {{"path", path}, {"operation", operation}, {"reason", "read only"}});
    }

    const std::shared_ptr<const FileSystem> files_;
};

}  // namespace dayward
