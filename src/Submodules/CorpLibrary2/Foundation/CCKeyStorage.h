// A small persistent dictionary, written behind the caller's back a moment after the last change.
//
// File source: the whole dictionary is one keyed archive root object, the archive the entire file.
// Defaults source: the dictionary is one object of the standard user defaults. Files are replaced
// whole and durably, and two processes may share one: a write takes in, under a file lock, the keys
// that only the other process changed; for a key that both changed the last write wins.
//
// Belongs to the environment that was current when it was made and must not outlive it. Any thread;
// records that were handed in must not be changed afterwards, since the write queue archives them.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "Submodules/CorpLibrary2/Foundation/KeyStorageSource.h"
#include "platform/Object.h"
#include "platform/Result.h"

namespace dayward {

class CCKeyStorage {
public:
    enum class SourceType { file, userDefaults };

    /// Loads at once, on the calling thread. Anything but an archive of a dictionary reads as empty.
    explicit CCKeyStorage(const KeyStorageFile& file);
    explicit CCKeyStorage(const KeyStorageDefaultsKey& key);
    /// A change that still waits for its write is written now.
    virtual ~CCKeyStorage();
    CCKeyStorage(const CCKeyStorage&) = delete;
    CCKeyStorage& operator=(const CCKeyStorage&) = delete;

    [[nodiscard]] SourceType sourceType() const;
    [[nodiscard]] std::optional<std::string> fileURL() const;  ///< a path
    [[nodiscard]] std::optional<std::string> userDefaultsKey() const;

    /// Time between a change and its write; 0.01 s unless set. A value beyond the range of 64-bit
    /// nanoseconds stops the process at the next change.
    [[nodiscard]] TimeInterval timeOutWrite() const;
    void setTimeOutWrite(TimeInterval timeOut);
    /// Called on the write queue after each write that fails, also after the storage is destroyed. To be set before
    /// the first change.
    void setWriteFailureHandler(std::function<void(const Error&)> handler);

    /// The value, or null.
    [[nodiscard]] virtual Object valueForKey(const std::string& key) const;
    /// A null value removes the key.
    virtual void setValue(Object value, const std::string& forKey);
    /// The removed object, or null where there was none; then nothing is written.
    Object removeValueForKey(const std::string& key);
    void removeAll();
    [[nodiscard]] bool containsKey(const std::string& key) const;
    [[nodiscard]] std::size_t count() const;
    [[nodiscard]] bool isEmpty() const;
    /// A copy of the whole dictionary.
    [[nodiscard]] Dictionary values() const;

    /// Asks for a write after timeOutWrite(). A later request replaces an earlier one, so that a
    /// burst of changes costs one write.
    void setNeedsWrite();
    /// Writes before it returns; takes the place of a pending request. A failure is logged too, and the
    /// values stay in memory for the next write. Never from a block of the write queue.
    Result<> write();
    /// Asks for a write now where the latest one failed: there may be room on the device again. The failure
    /// handler hears nothing of it.
    void retryFailedWrite();

protected:
    /// The stored object as it is, for subclasses that wrap their values.
    [[nodiscard]] Object storedObject(const std::string& key) const;
    void setStoredObject(Object object, const std::string& forKey);

private:
    struct State;
    enum class Telling { yes, no };
    static Result<> persist(State& state, Telling telling = Telling::yes);
    std::shared_ptr<State> state_;
};

}  // namespace dayward
