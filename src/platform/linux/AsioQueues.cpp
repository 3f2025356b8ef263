#include "platform/linux/AsioQueues.h"

#include <algorithm>
#include <utility>

#include "platform/linux/SerialQueue.h"

namespace dayward {

namespace {

class ConcurrentQueue final : public DispatchQueue {
public:
    ConcurrentQueue(std::shared_ptr<QueueCore> core, std::string label)
        : core_(std::move(core)), label_(std::move(label)) {}

    [[nodiscard]] const std::string& label() const override { return label_; }

private:
    static void post(QueueCore* core, Block block) {
        core->openBlocks.enter();
        core->post([core, block = std::move(block)]() mutable {
            std::exchange(block, nullptr)();
            core->openBlocks.leave();
        });
    }

    void doAsync(Block block) override { post(core_.get(), std::move(block)); }
    void doSync(const Block& block) override { block(); }
    void doAfter(TimeInterval delay, Block block) override {
        // The core outlives its timers, this object need not.
        core_->timers.add(delay, [core = core_.get(), block = std::move(block)] { post(core, block); });
    }

    const std::shared_ptr<QueueCore> core_;
    const std::string label_;
};

class MainQueueLoop final : public MainLoop {
public:
    explicit MainQueueLoop(SerialQueue& queue) : queue_(queue) {}
    void run() override { queue_.runUntilStopped(); }
    void stop() override { queue_.stop(); }
    void setWake(std::function<void()> wake) override { queue_.setWake(std::move(wake)); }
    void runQueued() override { queue_.runQueued(); }

private:
    SerialQueue& queue_;
};

unsigned threadCount(unsigned wanted) {
    return wanted != 0 ? wanted : std::max(4U, 2 * std::thread::hardware_concurrency());
}

}  // namespace

struct AsioQueues::Parts {
    explicit Parts(unsigned threads)
        : core(std::make_shared<QueueCore>(threadCount(threads))),
          main(std::make_shared<SerialQueue>(core, "main", SerialQueue::Kind::main)),
          global(core, "global"),
          mainLoop(*main) {}

    const std::shared_ptr<QueueCore> core;
    const std::shared_ptr<SerialQueue> main;
    ConcurrentQueue global;
    MainQueueLoop mainLoop;
};

AsioQueues::AsioQueues(unsigned threads) : parts_(std::make_unique<Parts>(threads)) {}

AsioQueues::~AsioQueues() {
    dropDelayed();
    waitUntilIdle();
    parts_->core->close();
}

DispatchQueue& AsioQueues::main() { return *parts_->main; }

DispatchQueue& AsioQueues::global() { return parts_->global; }

std::shared_ptr<DispatchQueue> AsioQueues::makeSerial(std::string label) {
    return std::make_shared<SerialQueue>(parts_->core, std::move(label), SerialQueue::Kind::pool);
}

std::shared_ptr<DispatchQueue> AsioQueues::makeConcurrent(std::string label) {
    return std::make_shared<ConcurrentQueue>(parts_->core, std::move(label));
}

void AsioQueues::waitUntilIdle() {
    if (!parts_->main->isMainThread()) return parts_->core->openBlocks.waitForPool();
    while (parts_->core->openBlocks.waitForMainBlock()) parts_->main->runQueued();
}

void AsioQueues::dropDelayed() { parts_->core->timers.dropAll(); }

MainLoop& AsioQueues::mainLoop() { return parts_->mainLoop; }

}  // namespace dayward
