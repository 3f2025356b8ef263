// A queue that runs one block at a time, first come first served; private to AsioQueues.
//
// Whoever finds the queue idle may run its next block: a pool thread, or a thread that waits in
// sync(). The main queue is one whose blocks only the main thread may run.
#pragma once

#include <atomic>
#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <thread>

#include "platform/DispatchQueue.h"
#include "platform/Mutex.h"
#include "platform/linux/QueueCore.h"

namespace dayward {

class SerialQueue final : public DispatchQueue, public std::enable_shared_from_this<SerialQueue> {
public:
    enum class Kind { pool, main };

    /// Made by make_shared only; a main queue belongs to the thread that makes it.
    SerialQueue(std::shared_ptr<QueueCore> core, std::string label, Kind kind);

    [[nodiscard]] const std::string& label() const override { return label_; }

    [[nodiscard]] bool isMainThread() const { return mainThread_ == std::this_thread::get_id(); }
    /// Runs the main queue's blocks that are queued now and meanwhile; false where there was none.
    bool runQueued();
    /// MainLoop's run and stop.
    void runUntilStopped();
    void stop();
    void setWake(std::function<void()> wake);

private:
    struct Item {
        Block block;
        bool* done = nullptr;  ///< set under the lock once the block has run; null for async
    };

    void doAsync(Block block) override;
    void doSync(const Block& block) override;
    void doAfter(TimeInterval delay, Block block) override;

    void add(Item item) DAYWARD_REQUIRES(mutex_);
    [[nodiscard]] bool mayRunNext() const DAYWARD_REQUIRES(mutex_);
    void runNext() DAYWARD_REQUIRES(mutex_);
    void postDrain() DAYWARD_REQUIRES(mutex_);
    void wakeMain() DAYWARD_REQUIRES(mutex_);
    void drain();

    const std::shared_ptr<QueueCore> core_;
    const std::string label_;
    const Kind kind_;
    std::atomic<std::thread::id> mainThread_;
    Mutex mutex_;
    std::condition_variable_any changed_;
    std::deque<Item> items_ DAYWARD_GUARDED_BY(mutex_);
    bool active_ DAYWARD_GUARDED_BY(mutex_) = false;
    std::thread::id activeThread_ DAYWARD_GUARDED_BY(mutex_);
    bool drainPosted_ DAYWARD_GUARDED_BY(mutex_) = false;
    bool stopped_ DAYWARD_GUARDED_BY(mutex_) = false;
    std::function<void()> wake_ DAYWARD_GUARDED_BY(mutex_);
};

}  // namespace dayward
