// The user's defaults: small values by key, one suite a file, shared between processes.
//
// A suite is a keyed archive of a dictionary, written whole and atomically by synchronize() under a
// file lock: values that another process changed since are merged by key, this process's own changes
// win. Reads see this process's changes at once and the other's after synchronize(). Any thread.
#pragma once

#include <memory>
#include <optional>
#include <set>
#include <string>

#include "platform/Mutex.h"
#include "platform/Object.h"
#include "platform/Result.h"

namespace dayward {

class ArchiveClasses;
class FileSystem;

class UserDefaults {
public:
    /// The suite stored at `path`, read on first use. A file that is no suite reads as empty; it is kept
    /// beside (unreadableCopyPath) and the reason is logged.
    UserDefaults(std::shared_ptr<FileSystem> files, std::shared_ptr<const ArchiveClasses> classes, std::string path);

    [[nodiscard]] Object objectForKey(const std::string& key) const;
    [[nodiscard]] bool boolForKey(const std::string& key) const;             ///< false where absent
    [[nodiscard]] std::int64_t integerForKey(const std::string& key) const;  ///< 0 where absent
    [[nodiscard]] std::optional<std::string> stringForKey(const std::string& key) const;
    /// A null object removes the key. The change is in memory until synchronize().
    void setObject(Object value, const std::string& forKey);
    void removeObjectForKey(const std::string& key);
    [[nodiscard]] Dictionary dictionaryRepresentation() const;

    /// A value archived into a data block, and back; nothing where there is none.
    void archiveObject(const Object& value, const std::string& forKey);
    [[nodiscard]] Object unarchiveObjectForKey(const std::string& key) const;

    /// Writes what changed and takes in what other processes wrote. A failure is returned and also
    /// logged with path and reason; the changes stay in memory for the next call.
    Result<> synchronize();
    /// Whether a change waits for synchronize(): of any key, or of that one.
    [[nodiscard]] bool hasChanges() const;
    [[nodiscard]] bool hasChange(const std::string& key) const;

private:
    void loadOnce() const DAYWARD_REQUIRES(mutex_);
    /// What the file holds; nothing where it is no suite.
    [[nodiscard]] Result<Object> unarchive(const Data& bytes) const;
    [[nodiscard]] Result<std::optional<Dictionary>> readFile() const;
    /// The same under the file's lock; a file that is no suite is put aside.
    [[nodiscard]] Result<std::optional<Dictionary>> readFileOrPutAside() const;
    [[nodiscard]] Result<Dictionary> exchangeWithFile(const Dictionary& known, const std::set<std::string>& changed);

    std::shared_ptr<FileSystem> files_;
    std::shared_ptr<const ArchiveClasses> classes_;
    const std::string path_;
    Mutex synchronizing_;  ///< held by synchronize(), before mutex_
    mutable Mutex mutex_;
    mutable bool isLoaded_ DAYWARD_GUARDED_BY(mutex_) = false;
    mutable Dictionary values_ DAYWARD_GUARDED_BY(mutex_);
    std::set<std::string> changed_ DAYWARD_GUARDED_BY(mutex_);
};

}  // namespace dayward
