#include "support/ManualQueues.h"

#include <algorithm>
#include <deque>
#include <utility>
#include <vector>

#include "platform/FatalError.h"
#include "platform/Mutex.h"

namespace dayward {

namespace {

struct QueueState {
    std::string label;
    bool serial = true;
    bool running = false;
};

struct Item {
    std::shared_ptr<QueueState> queue;
    DispatchQueue::Block block;
    Date due;
};

}  // namespace

/// All queues share one list, so that blocks run in the order in which they were queued anywhere.
/// The lock lets other threads queue; running is the test's thread's alone.
struct ManualQueues::Impl {
    explicit Impl(std::shared_ptr<FixedClock> fixedClock) : clock(std::move(fixedClock)) {}

    const std::shared_ptr<FixedClock> clock;
    mutable Mutex mutex;
    std::deque<Item> ready DAYWARD_GUARDED_BY(mutex);
    std::vector<Item> delayed DAYWARD_GUARDED_BY(mutex);

    void add(Item item) {
        const Lock lock(mutex);
        ready.push_back(std::move(item));
    }

    void addDelayed(Item item) {
        const Lock lock(mutex);
        delayed.push_back(std::move(item));
    }

    static void run(QueueState& queue, const DispatchQueue::Block& block) {
        const bool outer = std::exchange(queue.running, true);
        block();
        queue.running = outer;
    }

    /// The first block that may run: of that queue, or of any; a serial queue's only one at a time.
    bool takeNext(const QueueState* onlyQueue, Item& taken) {
        const Lock lock(mutex);
        const auto next = std::ranges::find_if(ready, [&](const Item& item) {
            return (onlyQueue == nullptr || item.queue.get() == onlyQueue) &&
                   !(item.queue->serial && item.queue->running);
        });
        if (next == ready.end()) return false;
        taken = std::move(*next);
        ready.erase(next);
        return true;
    }

    void runReady(const QueueState* onlyQueue = nullptr) {
        Item item;
        while (takeNext(onlyQueue, item)) {
            run(*item.queue, item.block);
            item = {};
        }
    }

    bool takeDue(Date limit, Item& taken) {
        const Lock lock(mutex);
        const auto next = std::ranges::min_element(delayed, {}, &Item::due);
        if (next == delayed.end() || next->due > limit) return false;
        taken = std::move(*next);
        delayed.erase(next);
        return true;
    }

    void dropDelayed() {
        std::vector<Item> dropped;
        const Lock lock(mutex);
        dropped.swap(delayed);
    }

    void dropAll() {
        dropDelayed();
        std::deque<Item> dropped;
        const Lock lock(mutex);
        dropped.swap(ready);
    }
};

namespace {

template <class Impl>
class ManualQueue final : public DispatchQueue {
public:
    ManualQueue(std::shared_ptr<Impl> impl, std::string label, bool serial)
        : impl_(std::move(impl)), state_(std::make_shared<QueueState>(QueueState{std::move(label), serial, false})) {}

    [[nodiscard]] const std::string& label() const override { return state_->label; }

private:
    void doAsync(Block block) override { impl_->add({state_, std::move(block), {}}); }

    void doSync(const Block& block) override {
        if (state_->serial && state_->running) fatalError("sync waits for its own queue, " + state_->label);
        impl_->runReady(state_.get());
        Impl::run(*state_, block);
    }

    void doAfter(TimeInterval delay, Block block) override {
        impl_->addDelayed({state_, std::move(block), impl_->clock->now() + delay});
    }

    std::shared_ptr<Impl> impl_;
    std::shared_ptr<QueueState> state_;
};

}  // namespace

struct ManualQueues::Shared {
    explicit Shared(const std::shared_ptr<Impl>& impl) : main(impl, "main", true), global(impl, "global", false) {}

    ManualQueue<Impl> main;
    ManualQueue<Impl> global;
};

ManualQueues::ManualQueues(std::shared_ptr<FixedClock> clock)
    : impl_(std::make_shared<Impl>(std::move(clock))), shared_(std::make_unique<Shared>(impl_)) {}

ManualQueues::~ManualQueues() { impl_->dropAll(); }

DispatchQueue& ManualQueues::main() { return shared_->main; }

DispatchQueue& ManualQueues::global() { return shared_->global; }

std::shared_ptr<DispatchQueue> ManualQueues::makeSerial(std::string label) {
    return std::make_shared<ManualQueue<Impl>>(impl_, std::move(label), true);
}

std::shared_ptr<DispatchQueue> ManualQueues::makeConcurrent(std::string label) {
    return std::make_shared<ManualQueue<Impl>>(impl_, std::move(label), false);
}

void ManualQueues::waitUntilIdle() { impl_->runReady(); }

void ManualQueues::dropDelayed() { impl_->dropDelayed(); }

void ManualQueues::advance(TimeInterval length) {
    const Date target = impl_->clock->now() + length;
    impl_->runReady();
    Item item;
    while (impl_->takeDue(target, item)) {
        if (item.due > impl_->clock->now()) impl_->clock->set(item.due);
        impl_->add(std::exchange(item, {}));
        impl_->runReady();
    }
    impl_->clock->set(target);
}

std::size_t ManualQueues::pendingCount() const {
    const Lock lock(impl_->mutex);
    return impl_->ready.size() + impl_->delayed.size();
}

}  // namespace dayward
