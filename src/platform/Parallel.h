// One piece of work for each index, on all cores.
#pragma once

#include <cstddef>
#include <functional>

namespace dayward {

/// Calls `work` once for each index below `count`, in no promised order, on this thread and on helpers that share its
/// environment; returns when all is done. No helper is started for less than `leastEach` calls.
void inParallel(std::size_t count, std::size_t leastEach, const std::function<void(std::size_t index)>& work);

}  // namespace dayward
