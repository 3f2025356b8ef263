// A piece of work for an OperationQueue: it runs once, after the operations that it depends on, and
// not at all when it was cancelled before it began.
//
// A cancelled operation still waits for what it depends on before it counts as finished. So whoever
// depends on it never runs beside the operations before it. Any thread.
#pragma once

#include <condition_variable>
#include <functional>
#include <memory>
#include <vector>

#include "platform/Mutex.h"

namespace dayward {

class Environment;

class Operation : public std::enable_shared_from_this<Operation> {
public:
    using Block = std::function<void()>;

    virtual ~Operation();

    /// To be called before the operation is added to a queue. A finished operation is no hindrance;
    /// operations that depend on each other in a circle never run.
    void addDependency(const std::shared_ptr<Operation>& operation);
    /// Keeps the operation from running if it has not begun; one that runs may ask isCancelled().
    void cancel();
    [[nodiscard]] bool isCancelled() const;
    [[nodiscard]] bool isExecuting() const;
    [[nodiscard]] bool isFinished() const;

    /// Called once on a thread of the queue after the operation has finished, cancelled or not.
    void setCompletionBlock(Block block);
    [[nodiscard]] Block completionBlock() const;

protected:
    Operation() = default;
    /// The work.
    virtual void main() = 0;

private:
    friend class OperationQueue;
    using ReadyHandler = std::function<void(std::shared_ptr<Operation>)>;

    /// Lets the operation begin: `ready` is called once everything it depends on has finished,
    /// perhaps at once.
    void submit(ReadyHandler ready);
    void releaseHold();
    /// Runs main() unless cancelled, in the environment of submit(), and releases what depends on it.
    void run();
    /// The completion block, taken, to be run in the environment of submit(); may be empty.
    Block takeCompletionBlock();

    mutable Mutex mutex_;
    bool cancelled_ DAYWARD_GUARDED_BY(mutex_) = false;
    bool executing_ DAYWARD_GUARDED_BY(mutex_) = false;
    bool finished_ DAYWARD_GUARDED_BY(mutex_) = false;
    std::size_t holds_ DAYWARD_GUARDED_BY(mutex_) = 1;  ///< unfinished dependencies, and one until submit()
    std::vector<std::shared_ptr<Operation>> dependents_ DAYWARD_GUARDED_BY(mutex_);
    Block completionBlock_ DAYWARD_GUARDED_BY(mutex_);
    ReadyHandler ready_ DAYWARD_GUARDED_BY(mutex_);
    Environment* environment_ DAYWARD_GUARDED_BY(mutex_) = nullptr;
};

/// An operation that runs a block.
class BlockOperation final : public Operation {
public:
    explicit BlockOperation(Block block) : block_(std::move(block)) {}
    static std::shared_ptr<BlockOperation> blockOperationWithBlock(Block block) {
        return std::make_shared<BlockOperation>(std::move(block));
    }

private:
    void main() override { block_(); }

    Block block_;
};

}  // namespace dayward
