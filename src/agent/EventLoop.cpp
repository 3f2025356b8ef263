#include "agent/EventLoop.h"

#include <algorithm>
#include <chrono>
#include <cmath>

namespace dayward {

namespace {

TimeInterval elapsed() {
    return TimeInterval(std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count());
}

/// Longer than any wait needs to be: it ends by itself and begins anew.
constexpr double kLongest = 1e6;

timespec specOf(TimeInterval wait) {
    const double seconds = std::clamp(wait.seconds(), 0.0, kLongest);
    timespec spec{};
    spec.tv_sec = static_cast<time_t>(seconds);
    spec.tv_nsec = static_cast<long>((seconds - std::floor(seconds)) * 1e9);
    return spec;
}

}  // namespace

void EventLoop::waitOnce() {
    std::vector<pollfd> waiting;
    std::vector<std::optional<TimeInterval>> ends;
    std::optional<TimeInterval> first;
    const TimeInterval begin = elapsed();
    for (const EventSource* source : sources_) {
        waiting.push_back(source->descriptor());
        const auto timeout = source->timeout();
        ends.push_back(timeout ? std::optional(begin + *timeout) : std::nullopt);
        if (ends.back() && (!first || *ends.back() < *first)) first = ends.back();
    }
    const timespec wait = specOf(first.value_or(begin) - begin);
    const int ready = ppoll(waiting.data(), waiting.size(), first ? &wait : nullptr, nullptr);
    // What comes first is over when the wait is, whatever the clock's last digit says.
    const TimeInterval end = ready == 0 && first ? std::max(*first, elapsed()) : elapsed();
    for (std::size_t index = 0; index < waiting.size(); ++index) {
        const bool isReady = ready > 0 && waiting[index].revents != 0;
        if (isReady || (ends[index] && *ends[index] <= end)) sources_[index]->dispatch();
    }
}

}  // namespace dayward
