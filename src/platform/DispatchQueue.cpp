#include "platform/DispatchQueue.h"

#include <cmath>

#include "platform/Environment.h"
#include "platform/FatalError.h"

namespace dayward {

namespace {

// 2^63 nanoseconds, in seconds.
constexpr double kLongestDelay = 9223372036.854775;

DispatchQueue::Block inPresentEnvironment(DispatchQueue::Block block) {
    Environment* const environment = Environment::hasCurrent() ? &Environment::current() : nullptr;
    return [environment, block = std::move(block)] {
        const EnvironmentScope scope(environment);
        block();
    };
}

}  // namespace

void DispatchQueue::async(Block block) { doAsync(inPresentEnvironment(std::move(block))); }

void DispatchQueue::sync(const Block& block) { doSync(inPresentEnvironment(std::cref(block))); }

void DispatchQueue::after(TimeInterval delay, Block block) {
    if (!(std::abs(delay.seconds()) < kLongestDelay)) fatalError("a delay is out of range, queue " + label());
    doAfter(delay, inPresentEnvironment(std::move(block)));
}

}  // namespace dayward
