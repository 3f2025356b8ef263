#include "Submodules/CorpLibrary2/Foundation/CCDelayedOperation.h"

#include <utility>

#include "platform/DispatchQueue.h"
#include "platform/Environment.h"

namespace dayward {

CCDelayedOperation::CCDelayedOperation(Block block)
    : state_(std::make_shared<State>()),
      operationQueue_(Environment::current().queues().makeSerial("CCDelayedOperation.execute")) {
    state_->operationBlock = std::move(block);
}

CCDelayedOperation::~CCDelayedOperation() {
    const Lock lock(state_->mutex);
    ++state_->operationTaskIndex;
    state_->ended = true;
}

TimeInterval CCDelayedOperation::delayedTime() const {
    const Lock lock(state_->mutex);
    return state_->delayedTime;
}

void CCDelayedOperation::setDelayedTime(TimeInterval delayedTime) {
    const Lock lock(state_->mutex);
    state_->delayedTime = delayedTime;
}

void CCDelayedOperation::start() {
    const Lock lock(state_->mutex);
    operationQueue_->after(state_->delayedTime,
                           [state = state_, index = ++state_->operationTaskIndex] { state->runIfLatest(index); });
}

void CCDelayedOperation::stop() {
    const Lock lock(state_->mutex);
    ++state_->operationTaskIndex;
}

void CCDelayedOperation::execute() {
    stop();
    operationQueue_->async([state = state_] { state->runIfNotEnded(); });
}

void CCDelayedOperation::State::runIfLatest(std::uint64_t index) const {
    {
        const Lock lock(mutex);
        if (index != operationTaskIndex) return;
    }
    operationBlock();
}

void CCDelayedOperation::State::runIfNotEnded() const {
    {
        const Lock lock(mutex);
        if (ended) return;
    }
    operationBlock();
}

}  // namespace dayward
