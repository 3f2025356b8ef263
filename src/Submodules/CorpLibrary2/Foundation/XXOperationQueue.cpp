#include "Submodules/CorpLibrary2/Foundation/XXOperationQueue.h"

#include <utility>

#include "platform/DispatchQueue.h"
#include "platform/Environment.h"
#include "platform/NotificationCenter.h"

namespace dayward {

bool XXOperationQueue::Monitor::removeLast(const std::string& key, const Operation* finished) {
    const Lock lock(mutex);
    const auto entry = lastOperations.find(key);
    if (entry == lastOperations.end() || entry->second.get() != finished) return false;
    lastOperations.erase(entry);
    return lastOperations.empty();
}

bool XXOperationQueue::Monitor::isEmpty() {
    const Lock lock(mutex);
    return lastOperations.empty();
}

XXOperationQueue::XXOperationQueue() : OperationQueue("XXOperationQueue") {}

void XXOperationQueue::addOperation(const std::shared_ptr<Operation>& operation, const std::string& forSerialKey) {
    {
        const Lock lock(monitor_->mutex);
        const auto old = std::exchange(monitor_->lastOperations[forSerialKey], operation);
        if (old) operation->addDependency(old);
    }
    operation->setCompletionBlock([monitor = monitor_, key = forSerialKey, finished = operation.get(),
                                   sender = static_cast<const void*>(this), earlier = operation->completionBlock()] {
        // Of two operations that complete at once, only the one that left nothing behind tells.
        const bool ranDry = monitor->removeLast(key, finished);
        if (earlier) earlier();
        if (!ranDry || !monitor->isEmpty()) return;
        Environment::current().queues().main().sync(
            [&] { Environment::current().notifications().post(kDidFinishedNotification, sender); });
    });
    addOperation(operation);
}

void XXOperationQueue::addOperationWithBlock(Operation::Block block, const std::string& forSerialKey) {
    addOperation(BlockOperation::blockOperationWithBlock(std::move(block)), forSerialKey);
}

std::shared_ptr<Operation> XXOperationQueue::lastOperationForKey(const std::string& key) const {
    const Lock lock(monitor_->mutex);
    const auto entry = monitor_->lastOperations.find(key);
    return entry == monitor_->lastOperations.end() ? nullptr : entry->second;
}

}  // namespace dayward
