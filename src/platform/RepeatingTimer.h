// A timer that goes on and on.
#pragma once

#include <functional>

#include "platform/Date.h"

namespace dayward {

class DispatchQueue;

/// Runs the block on the queue after each `interval`, until it answers false. Turns keep their beat by
/// the environment's clock: lateness of one does not add up. A turn that was missed is left out.
void repeatEvery(TimeInterval interval, DispatchQueue& queue, std::function<bool()> block);

}  // namespace dayward
