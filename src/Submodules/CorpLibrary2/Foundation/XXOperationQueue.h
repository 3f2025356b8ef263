// An operation queue on which operations of one key run strictly one after the other, and which tells
// when it has run dry. Any thread.
#pragma once

#include <map>
#include <memory>
#include <string>

#include "Submodules/CorpLibrary2/Foundation/OperationQueue.h"

namespace dayward {

class XXOperationQueue : public OperationQueue {
public:
    /// Posted on the main queue, the queue as its object, when the last key's last operation has
    /// completed. The completion waits for the main thread to have posted it.
    static constexpr const char* kDidFinishedNotification = "XXOperationQueueDidFinishedNotification";

    XXOperationQueue();

    using OperationQueue::addOperation;
    using OperationQueue::addOperationWithBlock;
    /// The operation keeps a completion block that it already has.
    void addOperation(const std::shared_ptr<Operation>& operation, const std::string& forSerialKey);
    void addOperationWithBlock(Operation::Block block, const std::string& forSerialKey);
    /// The operation that was added last of those of the key that have not completed; or null.
    [[nodiscard]] std::shared_ptr<Operation> lastOperationForKey(const std::string& key) const;

private:
    /// Shared with the completion blocks, which may come after the queue.
    struct Monitor {
        RecursiveMutex mutex;
        std::map<std::string, std::shared_ptr<Operation>> lastOperations DAYWARD_GUARDED_BY(mutex);

        /// Whether the key's last operation was this one and its going left none.
        bool removeLast(const std::string& key, const Operation* finished);
        bool isEmpty();
    };

    const std::shared_ptr<Monitor> monitor_ = std::make_shared<Monitor>();
};

}  // namespace dayward
