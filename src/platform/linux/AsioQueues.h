// The real queues: a pool of threads for the global and all other queues, one thread for delays, and
// a main queue whose blocks run in MainLoop::run().
//
// Serial queues take a pool thread only while they have blocks. sync() runs on the caller's thread
// what the queue holds, so that it ends even while every pool thread is busy; on a concurrent queue
// it runs its block at once. Any thread, but for what is said to belong to the main thread: the one
// that made the queues, or the one in MainLoop::run().
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/DispatchQueue.h"

namespace dayward {

/// The loop of the main queue.
class MainLoop {
public:
    virtual ~MainLoop() = default;
    /// Makes this thread the main one and runs the main queue's blocks until stop(). May be run again.
    virtual void run() = 0;
    /// Ends run() after the block that is running; what is queued stays. Before run(): it ends at once.
    virtual void stop() = 0;

    // For a main thread that runs a loop of its own instead.

    /// `wake` is called on any thread whenever blocks wait. It must only see to it that the main thread
    /// calls runQueued() soon. Null for none.
    virtual void setWake(std::function<void()> wake) = 0;
    /// Runs what is queued, and what is queued meanwhile. Does nothing from within a block.
    virtual void runQueued() = 0;
};

class AsioQueues final : public Queues {
public:
    /// `threads` 0: twice the processors, at least 4.
    explicit AsioQueues(unsigned threads = 0);
    /// Forgets delayed blocks and runs the others, the main queue's on the main thread only. Not
    /// from a block.
    ~AsioQueues() override;

    DispatchQueue& main() override;
    DispatchQueue& global() override;
    std::shared_ptr<DispatchQueue> makeSerial(std::string label) override;
    std::shared_ptr<DispatchQueue> makeConcurrent(std::string label) override;
    void waitUntilIdle() override;
    void dropDelayed() override;

    MainLoop& mainLoop();

private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

}  // namespace dayward
