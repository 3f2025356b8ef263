#include "Classes/Share/SharedFile.h"

#include <algorithm>
#include <string>

#include "Submodules/CorpLibrary2/Foundation/StandardPaths.h"
#include "platform/Environment.h"
#include "platform/FileSystem.h"
#include "platform/Log.h"

namespace dayward {

namespace {

constexpr std::size_t kLongestTitle = 110;
constexpr TimeInterval kDay{86400};

/// Without a character that is cut in two.
void cutText(std::string& text, std::size_t length) {
    if (text.size() <= length) return;
    while (length > 0 && (static_cast<unsigned char>(text[length]) & 0xC0) == 0x80) --length;
    text.resize(length);
}

void removeOldFiles(FileSystem& files, const std::string& directory) {
    const auto names = files.listDirectory(directory);
    if (!names) return;
    for (const std::string& name : *names) {
        const std::string path = joinPath(directory, name);
        const auto status = files.status(path);
        if (!status || !*status || (*status)->kind != FileStatus::Kind::file) continue;
        if (Environment::current().now() - (*status)->modified < kDay) continue;
        if (const auto removed = files.removeFile(path); !removed) logError(removed.error().description());
    }
}

}  // namespace

std::string sharedFileName(std::string_view title, std::string_view extension) {
    constexpr std::string_view kUnusable = "/\\:*?\"<>|";
    std::string name(title);
    std::ranges::replace_if(
        name, [&](char c) { return static_cast<unsigned char>(c) < ' ' || c == 127 || kUnusable.contains(c); }, ' ');
    cutText(name, kLongestTitle);
    name.erase(0, name.find_first_not_of(". "));
    name.erase(name.find_last_not_of(". ") + 1);
    return (name.empty() ? "Event" : name) + "." + std::string(extension);
}

Result<std::string> writeTemporaryFile(const std::string& name, const Data& content) {
    FileSystem& files = Environment::current().files();
    removeOldFiles(files, temporaryDataPath());
    std::string path = pathForTemporaryFile(name);
    TRY_VOID(writeFileAtomically(files, path, content));
    return path;
}

}  // namespace dayward
