// When something that failed is tried again: later each time, up to a longest wait. By AgentTime::elapsed().
#pragma once

#include <algorithm>
#include <optional>

#include "platform/Date.h"

namespace dayward {

class Backoff {
public:
    /// Each wait is so many times the one before.
    Backoff(TimeInterval first, double factor, TimeInterval longest)
        : first_(first), factor_(factor), longest_(longest) {}

    void fail(TimeInterval elapsed) {
        wait_ = failures_++ == 0 ? first_ : std::min(wait_ * factor_, longest_);
        next_ = elapsed + wait_;
    }
    void succeed() { failures_ = 0; }
    /// It may be tried at once; it still counts as failed.
    void hurry() { next_ = TimeInterval(); }

    [[nodiscard]] int failures() const { return failures_; }
    [[nodiscard]] bool mayTry(TimeInterval elapsed) const { return failures_ == 0 || elapsed >= next_; }
    /// How long until it is tried again; nothing where nothing has failed.
    [[nodiscard]] std::optional<TimeInterval> remaining(TimeInterval elapsed) const {
        if (failures_ == 0) return std::nullopt;
        return std::max(next_ - elapsed, TimeInterval());
    }

private:
    const TimeInterval first_;
    const double factor_;
    const TimeInterval longest_;
    TimeInterval wait_, next_;
    int failures_ = 0;
};

}  // namespace dayward
