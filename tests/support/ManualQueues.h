// Queues that run their blocks only when a test says so, on the test's thread, in a fixed order.
// sync() runs what is queued before it and then its block at once. Delays follow the test's clock.
#pragma once

#include <memory>
#include <string>

#include "platform/Clock.h"
#include "platform/DispatchQueue.h"

namespace dayward {

class ManualQueues final : public Queues {
public:
    explicit ManualQueues(std::shared_ptr<FixedClock> clock);
    ~ManualQueues() override;

    DispatchQueue& main() override;
    DispatchQueue& global() override;
    std::shared_ptr<DispatchQueue> makeSerial(std::string label) override;
    std::shared_ptr<DispatchQueue> makeConcurrent(std::string label) override;
    /// Runs all that is queued on every queue, the main one's included, delayed blocks not.
    void waitUntilIdle() override;
    void dropDelayed() override;

    /// The same as waitUntilIdle().
    void runAll() { waitUntilIdle(); }
    /// Advances the clock to each delayed block's time in turn and runs it, up to now plus `length`.
    void advance(TimeInterval length);
    /// Blocks that wait, delayed ones included.
    [[nodiscard]] std::size_t pendingCount() const;

private:
    struct Impl;
    struct Shared;
    std::shared_ptr<Impl> impl_;
    std::unique_ptr<Shared> shared_;
};

}  // namespace dayward
