#include "agent/BackgroundFetch.h"

#include <utility>

#include "platform/Log.h"

namespace dayward {

namespace {

constexpr TimeInterval kFirstRetry{60}, kLongestRetry{3600};

}  // namespace

BackgroundFetch::BackgroundFetch(Parts parts) : parts_(std::move(parts)), again_(kFirstRetry, 2, kLongestRetry) {}

/// The wall clock went on while the other one stood: the device slept, or the clock was set, which is all the same.
void BackgroundFetch::noteSleep() {
    const Date now = parts_.time.now();
    const TimeInterval elapsed = parts_.time.elapsed();
    if (lastNow_ && (now - *lastNow_) - (elapsed - lastElapsed_) >= kLongSleep) isRequested_ = true;
    lastNow_ = now;
    lastElapsed_ = elapsed;
}

Date BackgroundFetch::nextMoment(std::optional<Date> last) const {
    const Date now = parts_.time.now();
    // One that lies ahead was of a clock that has been set back since.
    return last && *last <= now ? *last + kEvery : now;
}

void BackgroundFetch::wake(std::optional<Date> last, bool needsRebuild) {
    noteSleep();
    const bool isTime = nextMoment(last) <= parts_.time.now();
    if (isRunning_) return;
    if (!isRequested_ && !needsRebuild && !isTime) return again_.succeed();
    if (!again_.mayTry(parts_.time.elapsed())) return;
    isRunning_ = true;
    isRebuild_ = needsRebuild;
    wasRequested_ = std::exchange(isRequested_, false);
    parts_.link.performFetch([this](bool isDone) { isDone ? finish(true) : startRefresher(); });
}

void BackgroundFetch::startRefresher() {
    const auto started = parts_.refresher.start([this](bool worked) { finish(worked); });
    if (started) return;
    logError("notifications: " + started.error().description());
    finish(false);
}

void BackgroundFetch::rest() {
    noteSleep();
    isRequested_ = false;
    again_.succeed();
}

void BackgroundFetch::finish(bool worked) {
    isRunning_ = false;
    if (!worked) {
        isRequested_ = isRequested_ || wasRequested_;
        return again_.fail(parts_.time.elapsed());
    }
    again_.succeed();
    parts_.didFetch(isRebuild_);
}

std::optional<TimeInterval> BackgroundFetch::retryAfter() const {
    return isRunning_ ? std::nullopt : again_.remaining(parts_.time.elapsed());
}

}  // namespace dayward
