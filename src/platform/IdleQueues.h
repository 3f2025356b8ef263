// Queues for who only looks at something: sync() runs its block at once, whatever is for later never runs.
// Starts no thread. Any thread.
#pragma once

#include <memory>
#include <string>
#include <utility>

#include "platform/DispatchQueue.h"

namespace dayward {

class IdleQueue final : public DispatchQueue {
public:
    explicit IdleQueue(std::string label) : label_(std::move(label)) {}

    [[nodiscard]] const std::string& label() const override { return label_; }

protected:
    void doAsync(Block) override {}
    void doSync(const Block& block) override { block(); }
    void doAfter(TimeInterval, Block) override {}

private:
    const std::string label_;
};

class IdleQueues final : public Queues {
public:
    DispatchQueue& main() override { return main_; }
    DispatchQueue& global() override { return global_; }
    std::shared_ptr<DispatchQueue> makeSerial(std::string label) override {
        return std::make_shared<IdleQueue>(std::move(label));
    }
    std::shared_ptr<DispatchQueue> makeConcurrent(std::string label) override { return makeSerial(std::move(label)); }
    void waitUntilIdle() override {}
    void dropDelayed() override {}

private:
    IdleQueue main_{"main"};
    IdleQueue global_{"global"};
};

}  // namespace dayward
