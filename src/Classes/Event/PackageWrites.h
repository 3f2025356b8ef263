// The writes that a store owes its files. Operations of one key run one after another in the order in
// which they were added, on whichever thread of the queue comes by; different keys overlap.
//
// Any thread. No lock is held while an operation runs.
#pragma once

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <thread>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "platform/DispatchQueue.h"
#include "platform/Mutex.h"
#include "platform/Result.h"

namespace dayward {

class PackageWrites {
public:
    using Operation = std::function<Result<>()>;

    /// `owner` stands before the logged failures.
    PackageWrites(std::shared_ptr<DispatchQueue> queue, std::string owner);

    /// Puts the operation last in its key's line. It runs at the latest when run() is called.
    void add(const std::string& key, Operation operation);
    /// Queues the operations that wait for these keys.
    void run(std::vector<std::string> keys);
    /// Waits for all that was added so far; the first failure since the last flush. Not from an
    /// operation.
    Result<> flush();

    /// Told from within an operation: the key's file is as the operation wants it.
    void fileIsDone(const std::string& key);
    /// Counts a change of the key in memory, so that what was read of its file before is known as old.
    void noteChange(const std::string& key);
    /// The count of the key's changes; nothing while one of them is not in its file yet. May be asked
    /// while files are locked.
    [[nodiscard]] std::optional<std::uint64_t> settledChange(const std::string& key) const;
    [[nodiscard]] std::unordered_set<std::string> waitingKeys() const;
    /// Whether the key's last operation failed, so that its file is older than memory.
    [[nodiscard]] bool hasFailed(const std::string& key) const;

private:
    struct Waiting {
        std::uint64_t ticket;
        Operation operation;
    };
    struct Line {
        std::deque<Waiting> waiting;
        std::thread::id runner;  ///< the thread that runs the line, if one does
        bool fileIsDone = false;

        [[nodiscard]] bool isRunning() const { return runner != std::thread::id(); }
        [[nodiscard]] bool isPending() const { return !waiting.empty() || (isRunning() && !fileIsDone); }
    };

    void drain(const std::string& key);
    void drainAll();
    /// The next operation of the key, which this thread now runs; nothing where another thread runs
    /// the line or it is empty.
    [[nodiscard]] std::optional<Waiting> take(const std::string& key);
    [[nodiscard]] std::optional<Waiting> takeNext(const std::string& key);
    void finish(const std::string& key, std::uint64_t ticket, const Result<>& result);

    const std::shared_ptr<DispatchQueue> queue_;
    const std::string owner_;
    mutable Mutex mutex_;
    std::condition_variable_any finished_;
    std::unordered_map<std::string, Line> lines_ DAYWARD_GUARDED_BY(mutex_);
    std::set<std::uint64_t> unfinished_ DAYWARD_GUARDED_BY(mutex_);
    std::unordered_map<std::string, std::uint64_t> changeCounts_ DAYWARD_GUARDED_BY(mutex_);
    std::uint64_t lastTicket_ DAYWARD_GUARDED_BY(mutex_) = 0;
    std::unordered_set<std::string> failed_ DAYWARD_GUARDED_BY(mutex_);
    std::optional<Error> firstFailure_ DAYWARD_GUARDED_BY(mutex_);
};

}  // namespace dayward
