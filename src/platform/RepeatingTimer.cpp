#include "platform/RepeatingTimer.h"

#include <memory>

#include "platform/DispatchQueue.h"
#include "platform/Environment.h"

namespace dayward {

namespace {

/// More than this many intervals ahead, the clock was set back.
constexpr double kFarthestTurn = 1.5;

class RepeatingTimer : public std::enable_shared_from_this<RepeatingTimer> {
public:
    RepeatingTimer(TimeInterval interval, DispatchQueue& queue, std::function<bool()> block)
        : interval_(interval), queue_(queue), block_(std::move(block)), due_(Environment::current().now()) {}

    void arm() {
        const Date now = Environment::current().now();
        due_ = due_ + interval_;
        if (due_ <= now || due_ - now > interval_ * kFarthestTurn) due_ = now + interval_;
        queue_.after(due_ - now, [self = shared_from_this()] {
            if (self->block_()) self->arm();
        });
    }

private:
    const TimeInterval interval_;
    DispatchQueue& queue_;
    const std::function<bool()> block_;
    Date due_;
};

}  // namespace

void repeatEvery(TimeInterval interval, DispatchQueue& queue, std::function<bool()> block) {
    std::make_shared<RepeatingTimer>(interval, queue, std::move(block))->arm();
}

}  // namespace dayward
