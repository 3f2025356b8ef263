// A file system in memory that fails when told to and forgets in a crash what was not synced.
//
// A file's content becomes durable with its handle's sync(), a directory's entries with syncDirectory(),
// everything with a device's sync(). What was not synced may or may not be on the device: contents in part, and any
// of the changes of a directory, whichever came first; only those of one name keep their order. Any thread.
#pragma once

#include <cerrno>
#include <condition_variable>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/FileSystem.h"
#include "platform/Mutex.h"

namespace dayward {

class FaultFileSystem final : public FileSystem {
public:
    /// What a crash takes of what was not synced: nothing (only the process died), all, contents alone, entries of
    /// directories alone, or of each file and directory a share that the seed gives.
    enum class CrashLoss { nothing, allUnsynced, unsyncedContents, unsyncedEntries, byChance };

    FaultFileSystem();
    ~FaultFileSystem() override;

    /// Operations so far, reading ones and failed ones included.
    [[nodiscard]] std::size_t operationCount() const;
    /// The names of the operations so far, such as "rename".
    [[nodiscard]] std::vector<std::string> operations() const;
    /// Lets the operation with that number, counted from now and from 1, fail with the errno.
    void failOperation(std::size_t number, int code = EIO);
    /// From that operation on, everything that needs space fails with ENOSPC; the write at that point
    /// leaves half of its bytes behind.
    void fillDiskAt(std::size_t number);
    /// Lets the process die before that operation: it and all after it fail until restart().
    void crashAt(std::size_t number);
    /// Ends all faults and comes back as after a loss of power. Handles from before are dead, and temporaries of
    /// this process are then of one that is gone.
    void restart(CrashLoss loss = CrashLoss::allUnsynced, std::uint32_t seed = 0);
    /// Refuses exchange() from now on, as file systems without it do.
    void forbidExchange();
    /// Refuses openDeviceSync() from now on, as for file systems that do not keep what it promises.
    void forbidDeviceSync();
    /// Ends all faults and keeps everything.
    void heal();

    /// Puts a durable file there with its parents, uncounted.
    void store(const std::string& path, const Data& bytes);
    /// Every file under the directory by its path from there, uncounted.
    [[nodiscard]] std::map<std::string, Data> tree(const std::string& directory) const;
    [[nodiscard]] std::optional<Data> extendedAttribute(const std::string& path, const std::string& name) const;

    Result<std::optional<FileStatus>> status(const std::string& path) const override;
    Result<Data> readFile(const std::string& path) const override;
    Result<std::vector<std::string>> listDirectory(const std::string& path) const override;
    Result<> createDirectory(const std::string& path) override;
    Result<std::unique_ptr<FileHandle>> openForWriting(const std::string& path) override;
    Result<> rename(const std::string& from, const std::string& to) override;
    Result<> exchange(const std::string& a, const std::string& b) override;
    Result<> removeFile(const std::string& path) override;
    Result<> removeEmptyDirectory(const std::string& path) override;
    Result<> syncDirectory(const std::string& path) override;
    Result<std::unique_ptr<DeviceSync>> openDeviceSync(const std::string& directory) override;
    Result<std::unique_ptr<FileLock>> lock(const std::string& path, bool exclusive) override;
    Result<> setExtendedAttribute(const std::string& path, const std::string& name, const Data& value) override;

private:
    struct Node;
    struct Place;
    struct Faults;
    class Handle;
    class HeldLock;
    class WholeSync;
    using NodePointer = std::shared_ptr<Node>;

    enum class Need { nothing, space };

    Result<> begin(const char* operation, const std::string& path, Need need = Need::nothing) const
        DAYWARD_REQUIRES(mutex_);
    Result<> writeTo(Node& node, std::uint64_t life, const std::string& path, std::span<const std::uint8_t> bytes);
    Result<> handleStep(Node& node, std::uint64_t life, const char* operation, const std::string& path);
    Result<> syncAll(std::uint64_t life, const std::string& path);
    NodePointer find(const std::string& path) const DAYWARD_REQUIRES(mutex_);
    Result<Place> place(const char* operation, const std::string& path) const DAYWARD_REQUIRES(mutex_);
    NodePointer makeNode(FileStatus::Kind kind) DAYWARD_REQUIRES(mutex_);
    /// Of two entries, in one step where they lie in one directory.
    static void change(const Place& one, const NodePointer& newOne, const Place& other, const NodePointer& newOther);
    static void putDurably(Node& directory, const std::string& name, const NodePointer& node);
    void unlock(const std::string& path, bool exclusive);

    mutable Mutex mutex_;
    std::condition_variable_any unlocked_;
    NodePointer root_ DAYWARD_GUARDED_BY(mutex_);
    std::unique_ptr<Faults> faults_ DAYWARD_GUARDED_BY(mutex_);
    std::uint64_t lastInode_ DAYWARD_GUARDED_BY(mutex_) = 0;
    bool hasExchange_ DAYWARD_GUARDED_BY(mutex_) = true;
    bool hasDeviceSync_ DAYWARD_GUARDED_BY(mutex_) = true;
    std::uint64_t life_ DAYWARD_GUARDED_BY(mutex_) = 1;              ///< grows with each restart
    std::map<std::string, int> holders_ DAYWARD_GUARDED_BY(mutex_);  ///< readers of a lock; -1 is a writer
};

}  // namespace dayward
