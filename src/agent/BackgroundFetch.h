// Keeps the schedule filled: once a day, after a long sleep, and where it is to be rebuilt, the application does its
// background fetch, or, where that does not, the refresher does the same. It counts as done when it has ended well, and
// is tried again where it has not, later each time. The agent's thread only.
#pragma once

#include <functional>
#include <optional>

#include "agent/AgentTime.h"
#include "agent/ApplicationLink.h"
#include "agent/Backoff.h"
#include "agent/ScheduleRefresher.h"

namespace dayward {

class BackgroundFetch {
public:
    static constexpr TimeInterval kEvery{86400};
    static constexpr TimeInterval kLongSleep{3 * 3600};

    struct Parts {
        const AgentTime& time;
        ApplicationLink& link;
        ScheduleRefresher& refresher;
        std::function<void(bool isRebuilt)> didFetch;  ///< the schedule is as the events want it
    };

    explicit BackgroundFetch(Parts parts);

    /// At the next wake, whenever it was done last.
    void request() { isRequested_ = true; }
    /// Fetches where it is time to. `last` is when it was done last.
    void wake(std::optional<Date> last, bool needsRebuild);
    /// In place of wake() for a home in which there is nothing to fetch for.
    void rest();
    /// When it is time again.
    [[nodiscard]] Date nextMoment(std::optional<Date> last) const;
    [[nodiscard]] std::optional<TimeInterval> retryAfter() const;
    [[nodiscard]] bool isRunning() const { return isRunning_; }

private:
    void noteSleep();
    void startRefresher();
    void finish(bool worked);

    const Parts parts_;
    Backoff again_;
    bool isRequested_ = false;   ///< also while one runs: what it missed is the next one's
    bool wasRequested_ = false;  ///< the one that runs
    bool isRebuild_ = false;     ///< the one that runs, or ran last
    bool isRunning_ = false;
    std::optional<Date> lastNow_;
    TimeInterval lastElapsed_;
};

}  // namespace dayward
