#include "Submodules/CorpLibrary2/Foundation/ArchivedFile.h"

#include "Submodules/CorpLibrary2/Foundation/MD5Addition.h"
#include "platform/Environment.h"
#include "platform/FileSystem.h"
#include "platform/KeyedArchiver.h"
#include "platform/KeyedUnarchiver.h"
#include "platform/Log.h"
#include "platform/UnreadableFiles.h"

namespace dayward {

namespace {

/// The file's bytes; nothing where there is no such file.
Result<std::optional<Data>> readIfPresent(FileSystem& files, const std::string& path) {
    if (!TRY(files.status(path))) return std::nullopt;
    return TRY(files.readFile(path));
}

/// The environment's record of archives whose reading stopped a process.
struct StoppingArchives {
    explicit StoppingArchives(Environment& environment)
        : record(environment.files(), joinPath(environment.paths().state, "unreadable")) {}

    UnreadableFiles record;
};

std::string stampOf(const Data& bytes) { return stringFromMD5(textOf(bytes)).value_or("empty"); }

/// A copy beside the file, since the next write replaces it. `fault` is what the log says of the file.
Result<> keepBeside(Environment& environment, const std::string& path, const Data& bytes, const std::string& fault) {
    FileSystem& files = environment.files();
    for (int number = 1;; ++number) {
        const std::string kept = unreadableCopyPath(path, number);
        const auto present = TRY(readIfPresent(files, kept));
        if (present && *present != bytes) continue;
        environment.log().error(path + " " + fault + "; it is kept as " + kept);
        return present ? Result<>() : writeFileAtomically(files, kept, bytes);
    }
}

/// Whether the archive stopped a process before; then it is also kept beside.
Result<bool> isLeftOut(Environment& environment, const std::string& path, const Data& bytes) {
    const auto& record = environment.shared<StoppingArchives>().record;
    const auto reason = record.reasonToLeaveOut(path, stampOf(bytes));
    if (reason) TRY_VOID(keepBeside(environment, path, bytes, "stopped an earlier start and is left out: " + *reason));
    return reason.has_value();
}

/// A reader that stops the process over a corrupt value names this file, and the next start leaves it out.
Result<Object> unarchive(Environment& environment, const std::string& path, const Data& bytes) {
    auto& record = environment.shared<StoppingArchives>().record;
    auto root = [&] {
        const UnreadableFiles::Reading reading(record, path, [&] { return stampOf(bytes); });
        return KeyedUnarchiver::unarchiveObjectWithData(bytes, environment.archiveClasses());
    }();
    record.forget(path);
    return root;
}

}  // namespace

Result<std::optional<Object>> readArchivedFile(Environment& environment, const std::string& path) {
    const auto bytes = TRY(readIfPresent(environment.files(), path));
    if (!bytes || TRY(isLeftOut(environment, path, *bytes))) return std::nullopt;
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
    if (bytes && !TRY(isLeftOut(environment, path, *bytes))) {
        if (auto root = unarchive(environment, path, *bytes)) {
            present = std::move(*root);
        } else {
            TRY_VOID(keepBeside(environment, path, *bytes, "is unreadable: " + root.error().description()));
        }
    }
    Object root = change(present);
    TRY_VOID(writeArchivedFile(environment, path, root));
    return root;
}

}  // namespace dayward
