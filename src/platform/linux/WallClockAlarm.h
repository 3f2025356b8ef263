// An alarm on the wall clock that also tells when the clock is set or the device wakes from sleep. Nothing is
// polled: wait until descriptor() is readable. One thread.
#pragma once

#include <optional>

#include "platform/Date.h"
#include "platform/Result.h"
#include "platform/linux/FileDescriptor.h"

namespace dayward {

class WallClockAlarm {
public:
    enum class Ring {
        time,      ///< the moment has come
        clockSet,  ///< the clock was set, or the device slept: the alarm is to be armed anew
    };

    static Result<WallClockAlarm> make();

    /// Rings at the moment, at once where it has passed. Without a moment it tells only when the clock is set.
    void arm(std::optional<Date> moment);
    [[nodiscard]] int descriptor() const { return timer_.get(); }
    /// What has rung since it was asked last.
    std::optional<Ring> take();

private:
    explicit WallClockAlarm(FileDescriptor timer) : timer_(std::move(timer)) {}

    FileDescriptor timer_;
};

}  // namespace dayward
