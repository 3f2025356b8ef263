// The writes that a store owes its files. Those of one key happen one after another in the order in which they were
// added; whatever waits of different keys goes to the writer together, on whichever thread of the queue comes by.
//
// Any thread. No lock is held while something is written.
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
#include "platform/Object.h"
#include "platform/Result.h"

namespace dayward {

class PackageWrites {
public:
    /// A value for the key's file; null removes it.
    struct Write {
        std::string key;
        Object value;
    };
    /// Writes values of different keys; the result of each in their order.
    using Writer = std::function<std::vector<Result<>>(const std::vector<Write>& writes)>;

    /// `owner` stands before the logged failures.
    PackageWrites(std::shared_ptr<DispatchQueue> queue, std::string owner, Writer writer);

    /// Puts the value last in its key's line, and counts the change: nobody may see one without the other. It is
    /// written at the latest when run() is called.
    void add(const std::string& key, Object value);
    /// Queues what waits.
    void run();
    /// Waits for all that was added so far; the first failure since the last flush. Not from the writer.
    Result<> flush();

    /// Told by the writer: the key's file is as wanted.
    void fileIsDone(const std::string& key);
    /// Counts that memory was compared with the key's file, so that what was read of it before is known as old.
    void noteChange(const std::string& key);
    /// Memory is as the file, or the file as memory: a write that failed before counts no more.
    void forgetFailure(const std::string& key);
    void forgetFailures();
    /// The count of the key's changes; nothing while an own one is not in its file yet. May be asked
    /// while files are locked.
    [[nodiscard]] std::optional<std::uint64_t> settledChange(const std::string& key) const;
    [[nodiscard]] std::unordered_set<std::string> waitingKeys() const;
    /// Whether the key's last write failed, so that its file is older than memory.
    [[nodiscard]] bool hasFailed(const std::string& key) const;
    /// Those of which that is so and nothing newer waits.
    [[nodiscard]] std::vector<std::string> failedKeys() const;

private:
    struct Waiting {
        std::uint64_t ticket;
        Object value;
    };
    struct Line {
        std::deque<Waiting> waiting;
        std::thread::id runner;  ///< the thread that writes the line's first value, if one does
        bool fileIsDone = false;

        [[nodiscard]] bool isRunning() const { return runner != std::thread::id(); }
        [[nodiscard]] bool isPending() const { return !waiting.empty() || (isRunning() && !fileIsDone); }
    };
    struct Batch {
        std::vector<Write> writes;
        std::vector<std::uint64_t> tickets;
    };

    void drain();
    /// The next write of each key that no thread is writing; this thread then does.
    [[nodiscard]] Batch takeBatch();
    void finish(const std::string& key, std::uint64_t ticket, const Result<>& result) DAYWARD_REQUIRES(mutex_);

    const std::shared_ptr<DispatchQueue> queue_;
    const std::string owner_;
    const Writer writer_;
    mutable Mutex mutex_;
    std::condition_variable_any finished_;
    std::unordered_map<std::string, Line> lines_ DAYWARD_GUARDED_BY(mutex_);
    /// The keys with something to write, longest waiting first; those that a thread is writing come back later.
    std::deque<std::string> ready_ DAYWARD_GUARDED_BY(mutex_);
    std::set<std::uint64_t> unfinished_ DAYWARD_GUARDED_BY(mutex_);
    std::unordered_map<std::string, std::uint64_t> changeCounts_ DAYWARD_GUARDED_BY(mutex_);
    std::uint64_t lastTicket_ DAYWARD_GUARDED_BY(mutex_) = 0;
    std::unordered_set<std::string> failed_ DAYWARD_GUARDED_BY(mutex_);
    std::optional<Error> firstFailure_ DAYWARD_GUARDED_BY(mutex_);
};

}  // namespace dayward
