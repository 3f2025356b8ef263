#include "Submodules/CorpLibrary2/Foundation/Operation.h"

#include <utility>

#include "platform/Environment.h"
#include "platform/FatalError.h"

namespace dayward {

Operation::~Operation() = default;

void Operation::addDependency(const std::shared_ptr<Operation>& operation) {
    {
        const Lock lock(mutex_);
        if (ready_ || finished_) fatalError("a dependency was added to an operation that is queued already");
        ++holds_;
    }
    {
        const Lock lock(operation->mutex_);
        if (!operation->finished_) return operation->dependents_.push_back(shared_from_this());
    }
    releaseHold();
}

void Operation::cancel() {
    const Lock lock(mutex_);
    cancelled_ = true;
}

bool Operation::isCancelled() const {
    const Lock lock(mutex_);
    return cancelled_;
}

bool Operation::isExecuting() const {
    const Lock lock(mutex_);
    return executing_;
}

bool Operation::isFinished() const {
    const Lock lock(mutex_);
    return finished_;
}

void Operation::setCompletionBlock(Block block) {
    const Lock lock(mutex_);
    std::swap(completionBlock_, block);
}

Operation::Block Operation::completionBlock() const {
    const Lock lock(mutex_);
    return completionBlock_;
}

Operation::Block Operation::takeCompletionBlock() {
    const Lock lock(mutex_);
    Block block = std::exchange(completionBlock_, nullptr);
    if (!block) return nullptr;
    return [environment = environment_, block = std::move(block)] {
        const EnvironmentScope scope(environment);
        block();
    };
}

void Operation::submit(ReadyHandler ready) {
    {
        const Lock lock(mutex_);
        if (ready_ || finished_) fatalError("an operation was queued twice");
        ready_ = std::move(ready);
        environment_ = Environment::hasCurrent() ? &Environment::current() : nullptr;
    }
    releaseHold();
}

void Operation::releaseHold() {
    ReadyHandler ready;
    {
        const Lock lock(mutex_);
        if (--holds_ > 0) return;
        ready = ready_;
    }
    ready(shared_from_this());
}

void Operation::run() {
    Environment* environment = nullptr;
    {
        const Lock lock(mutex_);
        executing_ = !cancelled_;
        environment = environment_;
    }
    const EnvironmentScope scope(environment);
    if (isExecuting()) main();
    std::vector<std::shared_ptr<Operation>> dependents;
    {
        const Lock lock(mutex_);
        executing_ = false;
        finished_ = true;
        ready_ = nullptr;
        dependents.swap(dependents_);
    }
    for (const auto& dependent : dependents) dependent->releaseHold();
}

}  // namespace dayward
