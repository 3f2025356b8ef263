// The record of files whose reading stopped a process: which, in what state, and why. It outlives the
// process, so that the next start leaves such a file out until it changes.
//
// One small text file per entry in a directory of its own, named by a digest of the path: three lines,
// the path, the file's stamp, the reason. Any thread.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "platform/FatalError.h"
#include "platform/FileSystem.h"
#include "platform/Mutex.h"

namespace dayward {

/// Where the copy with that number, from 1, of a file that could not be read is kept: "PATH.unreadable",
/// "PATH.2.unreadable" and so on. None replaces an earlier one.
std::string unreadableCopyPath(const std::string& path, int number);

class UnreadableFiles {
public:
    /// Reads the record. An entry that cannot be read is as none.
    UnreadableFiles(FileSystem& files, std::string directory);

    /// Reads the record again, for what other processes added.
    void reload();
    /// Nothing is recorded, of no file.
    [[nodiscard]] bool isEmpty() const;
    /// Why the file must not be read; nothing if it may be, because it never stopped a process or is
    /// no longer in the state in which it did.
    [[nodiscard]] std::optional<std::string> reasonToLeaveOut(const std::string& path, std::string_view stamp) const;
    /// Durably adds a file. Made to be called while the process is stopping.
    void add(const std::string& path, std::string_view stamp, std::string_view reason);
    /// The file was read, or is gone. Cheap for a file without an entry.
    void forget(const std::string& path);

    /// While it lives, a fatal error on this thread is blamed on the file and recorded; only then is the stamp asked
    /// for.
    class Reading {
    public:
        using Stamp = std::function<std::string()>;
        Reading(UnreadableFiles& record, std::string path, Stamp stamp);

    private:
        static void onFatal(const std::string& file, std::string_view text, void* reading);

        UnreadableFiles& record_;
        const std::string path_;
        const Stamp stamp_;
        const FatalErrorContext context_;
    };

private:
    struct Entry {
        std::string stamp;
        std::string reason;
    };
    [[nodiscard]] std::string entryPath(const std::string& path) const;

    FileSystem& files_;
    const std::string directory_;
    mutable Mutex mutex_;
    std::map<std::string, Entry> entries_ DAYWARD_GUARDED_BY(mutex_);
};

}  // namespace dayward
