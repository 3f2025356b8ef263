#include "sync/FileVersions.h"

#include <algorithm>
#include <cctype>

#include "platform/FileSystem.h"

namespace dayward {

namespace {

constexpr std::string_view kMark = ".sync-conflict-";
constexpr std::string_view kStampForm = "########-######-";

/// "20260310-120000-ABCDEFG"
bool isStampAndDevice(std::string_view text) {
    if (text.size() <= kStampForm.size()) return false;
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    for (std::size_t i = 0; i < kStampForm.size(); ++i) {
        if (kStampForm[i] == '#' ? !isDigit(text[i]) : text[i] != kStampForm[i]) return false;
    }
    const std::string_view device = text.substr(kStampForm.size());
    return std::ranges::all_of(device, [](unsigned char c) { return std::isalnum(c) != 0; });
}

}  // namespace

std::string originalNameOfConflictCopy(std::string_view name) {
    const std::size_t mark = name.rfind(kMark);
    if (mark == std::string_view::npos || mark == 0) return {};
    const std::string_view rest = name.substr(mark + kMark.size());
    const std::size_t point = rest.find('.');
    if (!isStampAndDevice(rest.substr(0, point))) return {};
    std::string original(name.substr(0, mark));
    if (point != std::string_view::npos) original += rest.substr(point);
    return original;
}

Result<std::vector<std::string>> FolderFileVersions::unresolvedConflictVersionsOfItem(const std::string& path) {
    std::vector<std::string> versions;
    const std::string directory = parentPath(path);
    const std::string ownName = lastPathComponent(path);
    for (const std::string& name : TRY(files_->listDirectory(directory))) {
        if (originalNameOfConflictCopy(name) == ownName) versions.push_back(joinPath(directory, name));
    }
    if (files_->isDirectory(path)) {
        for (const std::string& name : TRY(files_->listDirectory(path))) {
            if (!originalNameOfConflictCopy(name).empty()) versions.push_back(joinPath(path, name));
        }
    }
    std::ranges::sort(versions);
    return versions;
}

Result<> FolderFileVersions::removeOtherVersionsOfItem(const std::string& path) {
    const std::vector<std::string> versions = TRY(unresolvedConflictVersionsOfItem(path));
    for (const std::string& version : versions) TRY_VOID(setResolved(version));
    return {};
}

Result<> FolderFileVersions::setResolved(const std::string& version) {
    if (!TRY(files_->status(version))) return {};
    return files_->removeTree(version);
}

Result<> FolderFileVersions::startDownloading(const std::string&) { return {}; }

}  // namespace dayward
