#include "platform/linux/SerialQueue.h"

#include <utility>

#include "platform/FatalError.h"

namespace dayward {

namespace {
// A queue that never runs empty gives its pool thread to others after so many blocks.
constexpr int kBlocksPerTurn = 32;
}  // namespace

SerialQueue::SerialQueue(std::shared_ptr<QueueCore> core, std::string label, Kind kind)
    : core_(std::move(core)), label_(std::move(label)), kind_(kind), mainThread_(std::this_thread::get_id()) {}

void SerialQueue::doAsync(Block block) {
    const Lock lock(mutex_);
    add({std::move(block)});
    postDrain();
}

void SerialQueue::doSync(const Block& block) {
    bool done = false;
    const Lock lock(mutex_);
    if (active_ && activeThread_ == std::this_thread::get_id()) fatalError("sync waits for its own queue, " + label_);
    add({std::cref(block), &done});
    if (kind_ == Kind::main) wakeMain();
    while (!done) {
        if (mayRunNext()) {
            runNext();
        } else {
            changed_.wait(mutex_);
        }
    }
    postDrain();
}

void SerialQueue::doAfter(TimeInterval delay, Block block) {
    // The queue stays until then: what was promised to run runs.
    core_->timers.add(delay, [self = shared_from_this(), block = std::move(block)] { self->doAsync(block); });
}

void SerialQueue::add(Item item) {
    if (kind_ == Kind::main) {
        core_->openBlocks.enterMain();
    } else {
        core_->openBlocks.enter();
    }
    items_.push_back(std::move(item));
}

bool SerialQueue::mayRunNext() const { return !active_ && !items_.empty() && (kind_ == Kind::pool || isMainThread()); }

void SerialQueue::runNext() {
    active_ = true;
    activeThread_ = std::this_thread::get_id();
    Item item = std::move(items_.front());
    items_.pop_front();
    mutex_.unlock();
    std::exchange(item.block, nullptr)();
    mutex_.lock();
    if (item.done != nullptr) *item.done = true;
    active_ = false;
    changed_.notify_all();
    if (kind_ == Kind::main) {
        core_->openBlocks.leaveMain();
    } else {
        core_->openBlocks.leave();
    }
}

/// Sees to it that what is queued will be run by somebody.
void SerialQueue::postDrain() {
    if (items_.empty()) return;
    if (kind_ == Kind::main) return wakeMain();
    if (active_ || std::exchange(drainPosted_, true)) return;
    core_->post([self = shared_from_this()] { self->drain(); });
}

void SerialQueue::wakeMain() {
    changed_.notify_all();
    if (wake_) wake_();
}

void SerialQueue::setWake(std::function<void()> wake) {
    const Lock lock(mutex_);
    wake_ = std::move(wake);
    postDrain();
}

void SerialQueue::drain() {
    const Lock lock(mutex_);
    drainPosted_ = false;
    for (int count = 0; count < kBlocksPerTurn && mayRunNext(); ++count) runNext();
    postDrain();
}

bool SerialQueue::runQueued() {
    const Lock lock(mutex_);
    bool ran = false;
    for (; mayRunNext(); ran = true) runNext();
    return ran;
}

void SerialQueue::runUntilStopped() {
    mainThread_ = std::this_thread::get_id();
    const Lock lock(mutex_);
    while (!stopped_) {
        if (mayRunNext()) {
            runNext();
        } else {
            changed_.wait(mutex_);
        }
    }
    stopped_ = false;
}

void SerialQueue::stop() {
    const Lock lock(mutex_);
    stopped_ = true;
    changed_.notify_all();
}

}  // namespace dayward
