// Competing versions of a file in a folder that something synchronises, and the request to fetch a
// file that is not here yet. Any thread.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Result.h"

namespace dayward {

class FileSystem;

class FileVersions {
public:
    virtual ~FileVersions() = default;

    /// Throws away every version but the current one.
    virtual Result<> removeOtherVersionsOfItem(const std::string& path) = 0;
    /// Names (paths, for a folder) of the competing versions that remain.
    virtual Result<std::vector<std::string>> unresolvedConflictVersionsOfItem(const std::string& path) = 0;
    /// Declares a competing version settled: it is not reported again.
    virtual Result<> setResolved(const std::string& version) = 0;
    /// Asks for the item's data; returns when the request is accepted, not when the data is here.
    virtual Result<> startDownloading(const std::string& path) = 0;
};

/// A plain folder that a sync engine keeps. The versions that lost are the conflict copies
/// "BASE.sync-conflict-YYYYMMDD-HHMMSS-DEVICE.EXT" beside BASE.EXT, and for a package also those of
/// its files, inside it. Everything is here already, so a download request is simply accepted.
class FolderFileVersions final : public FileVersions {
public:
    explicit FolderFileVersions(std::shared_ptr<FileSystem> files) : files_(std::move(files)) {}

    /// Stops at the first copy that cannot be removed.
    Result<> removeOtherVersionsOfItem(const std::string& path) override;
    Result<std::vector<std::string>> unresolvedConflictVersionsOfItem(const std::string& path) override;
    /// Removes the copy; it is no error if it is gone.
    Result<> setResolved(const std::string& version) override;
    Result<> startDownloading(const std::string& path) override;

private:
    std::shared_ptr<FileSystem> files_;
};

/// The name of the file that a conflict copy was made from: "a.evn" for
/// "a.sync-conflict-20260310-120000-ABCDEFG.evn"; empty for any other name.
std::string originalNameOfConflictCopy(std::string_view name);

}  // namespace dayward
