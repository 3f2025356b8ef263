#include "platform/Parallel.h"

#include <algorithm>
#include <atomic>
#include <thread>
#include <vector>

#include "platform/Environment.h"

namespace dayward {

namespace {

constexpr std::size_t kMostThreads = 16;
/// So many calls are taken at a time: neighbours share the counter less often.
constexpr std::size_t kTaken = 8;

std::size_t threadCount(std::size_t count, std::size_t leastEach) {
    const std::size_t cores = std::max(1U, std::thread::hardware_concurrency());
    return std::clamp(count / leastEach, std::size_t{1}, std::min(cores, kMostThreads));
}

}  // namespace

void inParallel(std::size_t count, std::size_t leastEach, const std::function<void(std::size_t index)>& work) {
    std::atomic<std::size_t> next = 0;
    Environment* const environment = Environment::hasCurrent() ? &Environment::current() : nullptr;
    const auto run = [&] {
        const EnvironmentScope scope(environment);
        for (std::size_t first = next.fetch_add(kTaken); first < count; first = next.fetch_add(kTaken))
            for (std::size_t index = first; index < std::min(first + kTaken, count); ++index) work(index);
    };
    std::vector<std::jthread> helpers;
    for (std::size_t threads = threadCount(count, leastEach); threads > 1; --threads) helpers.emplace_back(run);
    run();
}

}  // namespace dayward
