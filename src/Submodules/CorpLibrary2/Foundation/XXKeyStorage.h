// The older persistent dictionary: loaded on first use, written by synchronize(), enciphered where a
// key is set.
//
// Stored form: the dictionary itself, as an object of the standard defaults or as the root of a
// keyed archive file. With a cipher key: a data block instead, AES over a keyed archive with the
// entries "object" (the dictionary) and "x" (a number from 0 to 999, new at every write, so that
// equal contents differ in their cipher text). Unreadable or foreign content reads as empty.
//
// Every operation runs under the instance's monitor; any thread. Belongs to the environment that was
// current when it was made. Of two processes that write one file, the last one's whole content stays.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "Submodules/CorpLibrary2/Foundation/KeyStorageSource.h"
#include "Submodules/CorpLibrary2/Foundation/MergedDictionary.h"
#include "platform/Mutex.h"
#include "platform/Object.h"
#include "platform/Result.h"

namespace dayward {

class Environment;

class XXKeyStorage {
public:
    explicit XXKeyStorage(const KeyStorageDefaultsKey& key);
    explicit XXKeyStorage(const KeyStorageFile& file);
    virtual ~XXKeyStorage() = default;
    XXKeyStorage(const XXKeyStorage&) = delete;
    XXKeyStorage& operator=(const XXKeyStorage&) = delete;

    /// With it on, every change ends with synchronize(). Off at first.
    [[nodiscard]] bool autoSynchronize() const;
    void setAutoSynchronize(bool on);
    /// Counts from the first use of the content on, and for every write.
    [[nodiscard]] std::optional<std::string> cryptoKey() const;
    void setCryptoKey(std::optional<std::string> key);
    /// Where both this and a file path are set, this wins.
    [[nodiscard]] std::optional<std::string> userDefaultsKey() const;
    void setUserDefaultsKey(std::optional<std::string> key);
    [[nodiscard]] std::optional<std::string> filePath() const;
    void setFilePath(std::optional<std::string> path);

    /// A copy of the stored dictionary, loaded on the first call.
    [[nodiscard]] Dictionary storage() const;
    /// Writes the content. A failure is logged, and what it kept back waits for the next call. Keys that only
    /// another process changed are taken in.
    void synchronize();
    void performAutoSynchronize();

    [[nodiscard]] virtual std::size_t count();
    [[nodiscard]] std::vector<std::string> allKeys() const;
    [[nodiscard]] virtual std::vector<Object> allValues() const;
    [[nodiscard]] virtual Object objectForKey(const std::string& key) const;
    [[nodiscard]] virtual Object valueForKey(const std::string& key) const;
    /// Snapshots, in the keys' order.
    [[nodiscard]] std::vector<std::string> keyEnumerator() const;
    [[nodiscard]] virtual std::vector<Object> objectEnumerator() const;

    /// Where an enumeration stands; a new one begins at the first key.
    struct EnumerationState {
        std::optional<std::string> lastKey;
    };
    /// Fills `objects` with the next keys and returns how many there were; 0 at the end. Changes
    /// between two calls do no harm.
    std::size_t countByEnumeratingWithState(EnumerationState& state, std::span<std::string> objects) const;

    /// A null object removes the key, in both.
    virtual void setObject(Object object, const std::string& forKey);
    virtual void setValue(Object value, const std::string& forKey);
    /// The dictionary becomes the whole content.
    virtual void setDictionary(Dictionary dictionary);
    void removeObjectForKey(const std::string& key);
    void removeAllObjects();
    void removeObjectsForKeys(const std::vector<std::string>& keys);

    [[nodiscard]] std::string description() const;

    /// The enciphered container of an object; nothing for null.
    static std::optional<Data> cryptoDataFromObject(const Object& object, const std::string& key);
    /// The object of a container; null for anything that the key does not open.
    static Object objectFromCryptoData(const Object& data, const std::string& key);

protected:
    /// The content, loaded if it was not. Under the monitor.
    MergedDictionary& loadedStorage() const DAYWARD_REQUIRES(mutex_);

    Environment& environment_;
    mutable RecursiveMutex mutex_;

private:
    [[nodiscard]] Object load() const DAYWARD_REQUIRES(mutex_);
    /// What a stored object holds, deciphered where there is a key; null where it is no dictionary.
    [[nodiscard]] static Object opened(const Object& stored, const std::optional<std::string>& cryptoKey);
    /// Lays the changes over what is stored now; the content after that.
    Result<Dictionary> store(const MergedDictionary::Changes& changes, const Dictionary& values)
        DAYWARD_REQUIRES(mutex_);
    /// The whole content is due to be written, to a place that may hold another.
    void replaceAll() DAYWARD_REQUIRES(mutex_);

    bool autoSynchronize_ DAYWARD_GUARDED_BY(mutex_) = false;
    std::optional<std::string> cryptoKey_ DAYWARD_GUARDED_BY(mutex_);
    std::optional<std::string> userDefaultsKey_ DAYWARD_GUARDED_BY(mutex_);
    std::optional<std::string> filePath_ DAYWARD_GUARDED_BY(mutex_);
    mutable std::optional<MergedDictionary> storage_ DAYWARD_GUARDED_BY(mutex_);
};

}  // namespace dayward
