// What the queues of AsioQueues share: the pool, the timers and the count of open blocks. Private to
// the queues. Any thread.
#pragma once

#include <asio/executor_work_guard.hpp>
#include <asio/io_context.hpp>
#include <asio/steady_timer.hpp>
#include <asio/thread_pool.hpp>
#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <thread>

#include "platform/Date.h"
#include "platform/Mutex.h"

namespace dayward {

/// Counts the blocks that wait or run, so that somebody can wait for the last.
class OpenBlocks {
public:
    void enter();
    void leave();
    void enterMain();
    void leaveMain();
    void waitForPool();
    /// Returns when the main queue has a block (true), or when nothing is open anywhere (false).
    bool waitForMainBlock();

private:
    Mutex mutex_;
    std::condition_variable_any changed_;
    std::size_t pool_ DAYWARD_GUARDED_BY(mutex_) = 0;
    std::size_t main_ DAYWARD_GUARDED_BY(mutex_) = 0;
};

/// Delays, on a thread that runs nothing but them: busy queues do not hold them up. The first delay starts it.
class DelayTimers {
public:
    using Block = std::function<void()>;

    DelayTimers() : work_(context_.get_executor()) {}

    /// Calls `fire` on the timers' thread after the delay; it must only queue something.
    void add(TimeInterval delay, Block fire);
    /// When it returns, nothing that was added before will fire, and it is let go of.
    void dropAll();
    /// Drops all and ends the thread; what is added later is dropped.
    void close();

private:
    struct Delay {
        asio::steady_timer timer;
        Block fire;
    };

    asio::io_context context_;
    asio::executor_work_guard<asio::io_context::executor_type> work_;
    std::map<std::uint64_t, Delay> waiting_;  ///< touched on the timers' thread only
    std::atomic<std::uint64_t> lastNumber_ = 0;
    Mutex mutex_;
    bool closed_ DAYWARD_GUARDED_BY(mutex_) = false;
    std::thread thread_ DAYWARD_GUARDED_BY(mutex_);
};

/// The first block starts the pool: a program that only looks something up has one thread, and may fork.
class QueueCore {
public:
    explicit QueueCore(unsigned threads) : threads_(threads) {}

    /// Runs the block on a pool thread; drops it once the core is closed.
    void post(std::function<void()> block);
    /// Runs what was posted and ends the threads. Called once, by none of them.
    void close();

    OpenBlocks openBlocks;
    DelayTimers timers;

private:
    const unsigned threads_;
    Mutex mutex_;
    std::optional<asio::thread_pool> pool_ DAYWARD_GUARDED_BY(mutex_);
    bool closed_ DAYWARD_GUARDED_BY(mutex_) = false;
};

}  // namespace dayward
