#include "Submodules/CorpLibrary2/Foundation/CCUniqueOperationQueue.h"

#include <utility>

namespace dayward {

CCUniqueOperationQueue::CCUniqueOperationQueue(bool duplicateOperationMode)
    : OperationQueue("CCUniqueOperationQueue"), duplicateOperationMode_(duplicateOperationMode) {}

void CCUniqueOperationQueue::addOperation(const std::shared_ptr<Operation>& operation,
                                          const std::string& withUniqueKey) {
    {
        const Lock lock(monitor_->mutex);
        auto& last = monitor_->lastOperations[withUniqueKey];
        const auto old = std::exchange(last, operation);
        if (old) operation->addDependency(old);
        if (old && duplicateOperationMode_) old->cancel();
    }
    // By address: the block belongs to the operation and must not keep it alive. While the entry is
    // there, no other operation has that address.
    operation->setCompletionBlock(
        [monitor = monitor_, key = withUniqueKey, finished = operation.get(), earlier = operation->completionBlock()] {
            {
                const Lock lock(monitor->mutex);
                const auto entry = monitor->lastOperations.find(key);
                if (entry != monitor->lastOperations.end() && entry->second.get() == finished) {
                    monitor->lastOperations.erase(entry);
                }
            }
            if (earlier) earlier();
        });
    addOperation(operation);
}

void CCUniqueOperationQueue::addOperationWithBlock(Operation::Block block, const std::string& withUniqueKey) {
    addOperation(BlockOperation::blockOperationWithBlock(std::move(block)), withUniqueKey);
}

}  // namespace dayward
