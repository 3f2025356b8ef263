// A block that runs a while after the last start(): an earlier start that has not run yet is
// replaced. Any thread; the block runs on a serial queue of the operation's own.
//
// With the object go the runs that are pending; one that has begun goes on.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>

#include "platform/Date.h"
#include "platform/Mutex.h"

namespace dayward {

class DispatchQueue;

class CCDelayedOperation {
public:
    using Block = std::function<void()>;

    /// Uses the current environment's queues. The delay is 0 until it is set.
    explicit CCDelayedOperation(Block block);
    ~CCDelayedOperation();
    CCDelayedOperation(const CCDelayedOperation&) = delete;
    CCDelayedOperation& operator=(const CCDelayedOperation&) = delete;

    [[nodiscard]] TimeInterval delayedTime() const;
    /// For the starts that follow.
    void setDelayedTime(TimeInterval delayedTime);
    /// Runs the block once `delayedTime` has passed without another start, stop or execute.
    void start();
    /// Drops what is pending.
    void stop();
    /// Drops what is pending and runs the block at once on the queue.
    void execute();

private:
    /// Shared with the blocks that are pending.
    struct State {
        mutable RecursiveMutex mutex;
        TimeInterval delayedTime DAYWARD_GUARDED_BY(mutex);
        std::uint64_t operationTaskIndex DAYWARD_GUARDED_BY(mutex) = 0;
        bool ended DAYWARD_GUARDED_BY(mutex) = false;  ///< the object is gone
        Block operationBlock;

        void runIfLatest(std::uint64_t index) const;
        void runIfNotEnded() const;
    };

    const std::shared_ptr<State> state_;
    const std::shared_ptr<DispatchQueue> operationQueue_;
};

}  // namespace dayward
