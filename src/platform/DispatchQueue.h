// Queues of blocks, the main loop's queue among them.
//
// A block runs with the environment that was current where it was queued. A block must not throw.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/Date.h"

namespace dayward {

class DispatchQueue {
public:
    using Block = std::function<void()>;

    virtual ~DispatchQueue() = default;

    /// Runs the block later on the queue; returns at once. Any thread.
    void async(Block block);
    /// Runs the block on the queue after everything queued before it (serial queues) and returns
    /// when it has run. Never from a block of the same serial queue: that would wait for itself.
    void sync(const Block& block);
    /// Runs the block on the queue once the length of time has passed. Not before; a length that is
    /// not a number or beyond the range of 64-bit nanoseconds stops the process; a negative one is 0.
    void after(TimeInterval delay, Block block);

    [[nodiscard]] virtual const std::string& label() const = 0;

protected:
    virtual void doAsync(Block block) = 0;
    virtual void doSync(const Block& block) = 0;
    virtual void doAfter(TimeInterval delay, Block block) = 0;
};

/// Where queues come from. The real one is over asio; the tests' one runs blocks only when told to.
class Queues {
public:
    virtual ~Queues() = default;

    /// The queue of the main thread's loop.
    virtual DispatchQueue& main() = 0;
    /// The process's concurrent queue of default priority.
    virtual DispatchQueue& global() = 0;
    virtual std::shared_ptr<DispatchQueue> makeSerial(std::string label) = 0;
    virtual std::shared_ptr<DispatchQueue> makeConcurrent(std::string label) = 0;
    /// Returns when no block is running or waiting on any queue (delayed blocks that are not due
    /// don't count). Called on the main thread it runs the main queue's blocks meanwhile; called
    /// elsewhere it leaves the main queue alone. Never from a block. For the end of a command.
    virtual void waitUntilIdle() = 0;
    /// Forgets the delayed blocks that are not due yet. For the end of an environment.
    virtual void dropDelayed() = 0;
};

}  // namespace dayward
