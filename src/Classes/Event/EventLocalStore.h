// The events of this device: all of them in memory, each in a package KEY.evn of its own in the
// documents directory. Memory and observers are up to date at once, the files follow on a queue.
//
// Any thread may call. The data lies under the environment's data layer lock, which is never held
// while a notification goes out. Writes of one key happen in the order of the changes, so the newest
// state is the one that stays; writes of different keys overlap. Another process on the same home
// is noticed by a watch of the directory: what it changed is read again and announced.
//
// A key becomes a file's name, so it must not be empty, begin with a point, hold "/" or NUL, or be
// longer than 200 bytes. An event with another key lives in memory, but its write fails.
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "Classes/Event/PackageWrites.h"
#include "platform/Image.h"
#include "platform/Mutex.h"
#include "sync/CCFilesKeyStore.h"
#include "sync/CCSyncKeyStore.h"

namespace dayward {

class DirectoryWatch;
class DispatchQueue;
class HHEvent;
class PackageReader;
class PackageStamps;
class UnreadableFiles;
struct LoadedPackage;

/// Events changed, whatever the cause. Object the store; user info "updated" or "removed": an array of
/// HHEvent records.
inline constexpr const char* EventLocalStoreDidUpdateNotification = "EventLocalStoreDidUpdateNotification";
inline constexpr const char* EventLocalStoreUpdatedKey = "updated";
inline constexpr const char* EventLocalStoreRemovedKey = "removed";

class EventLocalStore final : public CCFilesKeyStore, public CCSyncKeyStore, public CCFilesKeyStoreDelegate {
public:
    static constexpr const char* kFileExtension = "evn";
    static constexpr std::size_t kMaximalKeyLength = 200;

    /// A file that is not shown, and why.
    struct LeftOut {
        std::string path;
        std::string reason;
    };

    static EventLocalStore& shared() { return Environment::current().shared<EventLocalStore>(); }
    /// Loads the events on the calling thread before it returns, and begins to watch the directory.
    explicit EventLocalStore(Environment& environment);
    /// Waits for the writes.
    ~EventLocalStore() override;

    /// Announces the first load, once observers can reach the store: as initialize() does.
    void didBecomeShared();
    /// Loads everything from the disk again; changes that wait to be written stay, those whose write
    /// failed are lost from memory. Posts CCKeyStoreDidRefreshNotification.
    void initialize();

    [[nodiscard]] std::size_t itemsCount();
    /// In no promised order.
    [[nodiscard]] std::vector<std::shared_ptr<HHEvent>> allEvents();
    /// Null for nothing and for an unknown key.
    [[nodiscard]] std::shared_ptr<HHEvent> eventByIdentifier(const std::optional<std::string>& identifier);
    /// The first found whose name is exactly this one.
    [[nodiscard]] std::shared_ptr<HHEvent> eventByName(const std::string& name);
    /// Every event for which the block answers true. The block runs under the lock.
    [[nodiscard]] std::vector<std::shared_ptr<HHEvent>> findEvent(const std::function<bool(const HHEvent&)>& block);

    /// Gives each event a new version, takes it into memory, posts the update and queues the write of
    /// its present state. A write that fails is logged with path and reason; memory keeps the event.
    void updateEvents(const std::vector<std::shared_ptr<HHEvent>>& events);
    void updateEvent(const std::shared_ptr<HHEvent>& event) { updateEvents({event}); }
    /// Takes the events out of memory, posts the removal and queues the removal of their packages.
    void removeEvents(const std::vector<std::shared_ptr<HHEvent>>& events);
    void removeEvent(const std::shared_ptr<HHEvent>& event) { removeEvents({event}); }
    void removeAllEvents() { removeEvents(allEvents()); }

    /// The picture in the package of the event with that key; failures are logged and give null.
    [[nodiscard]] std::shared_ptr<const Image> loadIconImageAtEvent(const std::string& key);
    [[nodiscard]] std::shared_ptr<const Image> loadBackgroundImageAtEvent(const std::string& key);

    /// Queues the writes and removals that failed once more: there may be room on the device again.
    void retryFailedWrites();
    /// Waits for the writes queued so far and returns the first failure since the last flush. Not
    /// from a notification that this store posts on its queue.
    Result<> flush();
    /// Takes in what other processes changed in the directory since it was last looked at, and
    /// announces it. Own changes that wait to be written stand. The watch calls this by itself.
    void refreshFromDisk();
    /// The packages that were found but not loaded, by the last load or since; the directory itself where
    /// it could not be listed.
    [[nodiscard]] std::vector<LeftOut> leftOut();

    [[nodiscard]] const std::string& directory() const { return directory_; }
    [[nodiscard]] const std::string& fileExtension() const { return fileExtension_; }

    // CCSyncKeyStore; a value in transit is the path of the sender's package.
    [[nodiscard]] bool initialized() const override;
    [[nodiscard]] std::vector<std::string> getSyncKeys() override;
    [[nodiscard]] std::optional<CCSyncItemVersion> syncVersionForKey(const std::string& key) override;
    Result<Object> syncRead(const std::string& key, CCSyncKeyStore& toStore) override;
    /// A removal asked for by a sender without any keys is ignored: an empty container must not take
    /// the user's events with it. An own change of the key that waits to be written wins.
    Result<> syncWrite(const Object& value, const std::string& key, CCSyncKeyStore& fromStore) override;

    // CCFilesKeyStoreDelegate
    [[nodiscard]] std::string keyForURL(CCFilesKeyStore& store, const std::string& url) const override;
    [[nodiscard]] Result<std::string> URLForKey(CCFilesKeyStore& store, const std::string& key) const override;
    Result<Object> readValueFromURL(CCFilesKeyStore& store, const std::string& url) override;
    Result<> writeValue(CCFilesKeyStore& store, const Object& value, const std::string& forURL) override;

    void storeValueDidUpdate(const std::string& key) override;
    void storeValueDidRemove(const std::string& key) override;

protected:
    [[nodiscard]] std::string typeName() const override { return "EventLocalStore"; }

private:
    using Events = std::unordered_map<std::string, std::shared_ptr<HHEvent>>;
    struct Changes;

    void load();
    void tellFailure(const std::vector<Result<>>& results);
    /// The result of each; many go with one sync.
    std::vector<Result<>> writeTogether(const std::vector<PackageWrites::Write>& writes);
    std::vector<Result<>> replacePackages(const std::vector<PackageWrites::Write>& writes);
    std::vector<Result<>> replaceCoordinated(const std::vector<PackageWrites::Write>& writes,
                                             const std::vector<std::string>& paths);
    [[nodiscard]] std::string pathOfKey(const std::string& key) const;
    /// Sweeps what dead processes left, and lists the packages.
    [[nodiscard]] std::vector<std::string> packagePaths();
    void settleAsides(const std::vector<std::string>& names) const;
    /// Puts the event of the key's file into memory, and notes it.
    void put(const std::string& key, const std::shared_ptr<HHEvent>& event) DAYWARD_REQUIRES(dataLayerLock_);
    /// The same for taking it out; the event that was there, or null.
    std::shared_ptr<HHEvent> take(const std::string& key) DAYWARD_REQUIRES(dataLayerLock_);
    [[nodiscard]] std::shared_ptr<HHEvent> find(const std::string& key) DAYWARD_REQUIRES(dataLayerLock_);
    void postDidUpdate(const char* what, const std::vector<std::shared_ptr<HHEvent>>& events);

    Result<> syncRemove(const std::string& key, CCSyncKeyStore& fromStore);
    /// Copies the sender's package. `seenChange` is the own change that the copy replaced; nothing where
    /// one waits.
    Result<std::shared_ptr<HHEvent>> copyPackage(const std::string& sender, const std::string& key,
                                                 std::optional<std::uint64_t>& seenChange);
    /// No change of the key came, or waits, since `seenChange`.
    [[nodiscard]] bool isLatest(const std::string& key, std::optional<std::uint64_t> seenChange) const;
    [[nodiscard]] std::shared_ptr<const Image> loadImage(
        const std::string& key, Result<std::shared_ptr<const Image>> (*readImage)(const std::string& path));

    void startWatch();
    void refreshKeys(const std::vector<std::string>& keys);
    void refreshKey(const std::string& key, Changes& changes);
    /// Leaves what is still so: what came after has been announced by whoever did it.
    void dropOvertaken(Changes& changes);
    /// Reads while nobody writes the package; one that was left aside is brought back.
    [[nodiscard]] Result<LoadedPackage> readUndisturbed(const std::string& path) const;
    /// Puts in order what a process left that died over the package.
    Result<> settle(const std::string& path) const;
    /// False where another change of the key came since `seenChange`: it must be read again.
    bool takeIn(const std::string& key, const LoadedPackage& package, std::uint64_t seenChange, Changes& changes);
    /// An event that another process wrote is to replace the one in memory.
    [[nodiscard]] bool isNews(const std::string& key, const HHEvent& event) DAYWARD_REQUIRES(dataLayerLock_);
    void leaveOut(const std::string& path, const Error& error);
    void forgetLeftOut(const std::string& path);

    const std::string directory_;
    const std::string fileExtension_ = kFileExtension;
    std::atomic<bool> initialized_ = false;
    RecursiveMutex& dataLayerLock_;
    Events dataLayer_ DAYWARD_GUARDED_BY(dataLayerLock_);
    Mutex leftOutMutex_;
    std::map<std::string, std::string> leftOut_ DAYWARD_GUARDED_BY(leftOutMutex_);

    const std::shared_ptr<DispatchQueue> syncQueue_;
    const std::unique_ptr<UnreadableFiles> unreadable_;
    const std::unique_ptr<PackageReader> reader_;
    const std::unique_ptr<PackageStamps> stamps_;
    const std::unique_ptr<PackageWrites> writes_;
    std::unique_ptr<DirectoryWatch> watch_;
};

}  // namespace dayward
