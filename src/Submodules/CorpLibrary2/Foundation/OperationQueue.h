// Runs operations on the environment's threads, as many at a time as it is told, those that are ready
// first in the order in which they became so. Any thread.
//
// Operations that are queued run also when the queue object goes.
#pragma once

#include <memory>
#include <string>

#include "Submodules/CorpLibrary2/Foundation/Operation.h"

namespace dayward {

class OperationQueue {
public:
    static constexpr int kUnlimited = -1;

    /// Uses the current environment's queues.
    explicit OperationQueue(std::string name = "OperationQueue");
    virtual ~OperationQueue();
    OperationQueue(const OperationQueue&) = delete;
    OperationQueue& operator=(const OperationQueue&) = delete;

    /// Takes an operation that was on no queue before.
    void addOperation(const std::shared_ptr<Operation>& operation);
    void addOperationWithBlock(Operation::Block block);
    /// 1 makes a serial queue; kUnlimited is the default. Holds for operations that have not begun.
    void setMaxConcurrentOperationCount(int count);
    /// Operations that have not finished.
    [[nodiscard]] std::size_t operationCount() const;
    void cancelAllOperations();
    /// Returns when every operation has finished; completion blocks may still run. The calling thread
    /// runs operations that are ready, so that it may be a thread that the queue needs. Never from an
    /// operation of the queue.
    void waitUntilAllOperationsAreFinished();

private:
    struct State;
    std::shared_ptr<State> state_;
};

}  // namespace dayward
