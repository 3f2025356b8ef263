// An operation queue on which operations of one key never run at once and the last one always runs.
// Any thread.
#pragma once

#include <map>
#include <memory>
#include <string>

#include "Submodules/CorpLibrary2/Foundation/OperationQueue.h"

namespace dayward {

class CCUniqueOperationQueue : public OperationQueue {
public:
    /// With `duplicateOperationMode` a new operation cancels its key's predecessor: that does not run
    /// if it had not begun. Without it, all run, one after the other.
    explicit CCUniqueOperationQueue(bool duplicateOperationMode);

    [[nodiscard]] bool duplicateOperationMode() const { return duplicateOperationMode_; }

    using OperationQueue::addOperation;
    using OperationQueue::addOperationWithBlock;
    /// The operation keeps a completion block that it already has.
    void addOperation(const std::shared_ptr<Operation>& operation, const std::string& withUniqueKey);
    void addOperationWithBlock(Operation::Block block, const std::string& withUniqueKey);

private:
    /// Shared with the completion blocks, which may come after the queue.
    struct Monitor {
        RecursiveMutex mutex;
        std::map<std::string, std::shared_ptr<Operation>> lastOperations DAYWARD_GUARDED_BY(mutex);
    };

    const bool duplicateOperationMode_;
    const std::shared_ptr<Monitor> monitor_ = std::make_shared<Monitor>();
};

}  // namespace dayward
