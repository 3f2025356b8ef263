#include "platform/linux/WallClockAlarm.h"

#include <sys/timerfd.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdint>
#include <cstring>

#include "platform/Clock.h"

namespace dayward {

namespace {

/// Without a moment the timer stands far ahead, so that it still tells when the clock is set.
constexpr TimeInterval kFarAhead(1e9);
/// A date is no exact number of nanoseconds: rung a little too early, it would ring again and again.
constexpr double kAfter = 1e-6;

itimerspec timerAt(Date moment) {
    const double seconds = std::max(moment.secondsSince1970(), 0.0) + kAfter;
    itimerspec timer{};
    timer.it_value.tv_sec = static_cast<time_t>(std::floor(seconds));
    timer.it_value.tv_nsec = static_cast<long>((seconds - std::floor(seconds)) * 1e9);
    return timer;
}

}  // namespace

Result<WallClockAlarm> WallClockAlarm::make() {
    FileDescriptor timer(timerfd_create(CLOCK_REALTIME, TFD_CLOEXEC | TFD_NONBLOCK));
    if (!timer) return failure(std::string("timer: ") + std::strerror(errno));
    return WallClockAlarm(std::move(timer));
}

void WallClockAlarm::arm(std::optional<Date> moment) {
    const itimerspec timer = timerAt(moment.value_or(SystemClock().now() + kFarAhead));
    timerfd_settime(timer_.get(), TFD_TIMER_ABSTIME | TFD_TIMER_CANCEL_ON_SET, &timer, nullptr);
}

std::optional<WallClockAlarm::Ring> WallClockAlarm::take() {
    std::uint64_t expirations = 0;
    if (read(timer_.get(), &expirations, sizeof expirations) > 0) return Ring::time;
    return errno == ECANCELED ? std::optional(Ring::clockSet) : std::nullopt;
}

}  // namespace dayward
