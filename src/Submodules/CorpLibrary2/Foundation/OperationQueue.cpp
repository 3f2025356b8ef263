#include "Submodules/CorpLibrary2/Foundation/OperationQueue.h"

#include <deque>
#include <set>
#include <utility>

#include "platform/DispatchQueue.h"
#include "platform/Environment.h"

namespace dayward {

/// Shared with the blocks under way. The dispatch queue gets one block for each operation that may
/// begin, but the block takes whichever operation is first then: a thread that waits for the queue
/// may have taken some.
struct OperationQueue::State : std::enable_shared_from_this<OperationQueue::State> {
    std::shared_ptr<DispatchQueue> dispatchQueue;
    mutable Mutex mutex;
    std::condition_variable_any changed;
    std::set<std::shared_ptr<Operation>> unfinished DAYWARD_GUARDED_BY(mutex);
    std::deque<std::shared_ptr<Operation>> ready DAYWARD_GUARDED_BY(mutex);
    std::size_t running DAYWARD_GUARDED_BY(mutex) = 0;
    std::size_t posted DAYWARD_GUARDED_BY(mutex) = 0;
    int limit DAYWARD_GUARDED_BY(mutex) = kUnlimited;

    [[nodiscard]] bool roomBeside(std::size_t count) const DAYWARD_REQUIRES(mutex) {
        return limit < 0 || count < static_cast<std::size_t>(limit);
    }

    void post() DAYWARD_REQUIRES(mutex) {
        while (posted < ready.size() && roomBeside(running + posted)) {
            ++posted;
            dispatchQueue->async([self = shared_from_this()] { self->runPosted(); });
        }
    }

    void add(const std::shared_ptr<Operation>& operation) {
        {
            const Lock lock(mutex);
            unfinished.insert(operation);
        }
        operation->submit([self = shared_from_this()](std::shared_ptr<Operation> submitted) {
            const Lock lock(self->mutex);
            self->ready.push_back(std::move(submitted));
            self->changed.notify_all();
            self->post();
        });
    }

    void runPosted() {
        const Lock lock(mutex);
        --posted;
        runNext();
        post();
    }

    /// Runs the first operation that may begin, with the lock released meanwhile; false without one.
    bool runNext() DAYWARD_REQUIRES(mutex) {
        if (ready.empty() || !roomBeside(running)) return false;
        const auto operation = std::move(ready.front());
        ready.pop_front();
        ++running;
        mutex.unlock();
        operation->run();
        // On the queue and not here: a thread that waits must not run into what a completion waits for.
        if (auto completion = operation->takeCompletionBlock()) dispatchQueue->async(std::move(completion));
        mutex.lock();
        --running;
        unfinished.erase(operation);
        changed.notify_all();
        return true;
    }
};

OperationQueue::OperationQueue(std::string name) : state_(std::make_shared<State>()) {
    state_->dispatchQueue = Environment::current().queues().makeConcurrent(std::move(name));
}

OperationQueue::~OperationQueue() = default;

void OperationQueue::addOperation(const std::shared_ptr<Operation>& operation) { state_->add(operation); }

void OperationQueue::addOperationWithBlock(Operation::Block block) {
    addOperation(BlockOperation::blockOperationWithBlock(std::move(block)));
}

void OperationQueue::setMaxConcurrentOperationCount(int count) {
    const Lock lock(state_->mutex);
    state_->limit = count;
    state_->changed.notify_all();
    state_->post();
}

std::size_t OperationQueue::operationCount() const {
    const Lock lock(state_->mutex);
    return state_->unfinished.size();
}

void OperationQueue::cancelAllOperations() {
    const Lock lock(state_->mutex);
    for (const auto& operation : state_->unfinished) operation->cancel();
}

void OperationQueue::waitUntilAllOperationsAreFinished() {
    const Lock lock(state_->mutex);
    while (!state_->unfinished.empty()) {
        if (!state_->runNext()) state_->changed.wait(state_->mutex);
    }
    state_->post();
}

}  // namespace dayward
