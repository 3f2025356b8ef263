#include "Submodules/CorpLibrary2/Foundation/ArchivedFile.h"

#include "platform/Environment.h"
#include "platform/FatalError.h"
#include "platform/FileSystem.h"
#include "platform/KeyedArchiver.h"
#include "platform/KeyedUnarchiver.h"

namespace dayward {

namespace {

/// The file's bytes; nothing where there is no such file.
Result<std::optional<Data>> readIfPresent(FileSystem& files, const std::string& path) {
    if (!TRY(files.status(path))) return std::nullopt;
    return TRY(files.readFile(path));
}

Result<Object> unarchive(Environment& environment, const std::string& path, const Data& bytes) {
    // A reader that stops the process over a corrupt value names this file.
    const FatalErrorContext context(path);
    return KeyedUnarchiver::unarchiveObjectWithData(bytes, environment.archiveClasses());
}

}  // namespace

Result<std::optional<Object>> readArchivedFile(Environment& environment, const std::string& path) {
    const auto bytes = TRY(readIfPresent(environment.files(), path));
    if (!bytes) return std::nullopt;
    return TRY(unarchive(environment, path, *bytes));
}

Result<> writeArchivedFile(Environment& environment, const std::string& path, const Object& root) {
    TRY_VOID(environment.files().createDirectories(parentPath(path)));
    return writeFileAtomically(environment.files(), path, KeyedArchiver::archivedDataWithRootObject(root));
}

Result<Object> updateArchivedFile(Environment& environment, const std::string& path,
                                  const std::function<Object(const std::optional<Object>&)>& change) {
    const std::string lockDirectory = joinPath(environment.paths().state, "locks");
    TRY_VOID(environment.files().createDirectories(lockDirectory));
    const auto lock = TRY(environment.files().lock(joinPath(lockDirectory, lastPathComponent(path)), true));

    const auto bytes = TRY(readIfPresent(environment.files(), path));
    std::optional<Object> present;
    if (bytes) {
        if (auto root = unarchive(environment, path, *bytes)) present = std::move(*root);
    }
    Object root = change(present);
    TRY_VOID(writeArchivedFile(environment, path, root));
    return root;
}

}  // namespace dayward
