#include "agent/SystemTime.h"

#include <time.h>

#include <algorithm>

#include "platform/Clock.h"

namespace dayward {

Result<SystemTime> SystemTime::make() { return SystemTime(TRY(WallClockAlarm::make())); }

Date SystemTime::now() const { return SystemClock().now(); }

TimeInterval SystemTime::elapsed() const {
    timespec time{};
    clock_gettime(CLOCK_MONOTONIC, &time);
    return TimeInterval(static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9);
}

void SystemTime::arm(const NextWake& next) {
    alarm_.arm(next.moment);
    retryAt_ = next.retry ? std::optional(elapsed() + *next.retry) : std::nullopt;
}

std::optional<TimeInterval> SystemTime::timeout() const {
    if (!retryAt_) return std::nullopt;
    return std::max(*retryAt_ - elapsed(), TimeInterval());
}

}  // namespace dayward
