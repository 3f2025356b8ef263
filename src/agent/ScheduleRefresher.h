// Schedules everything anew without the application.
#pragma once

#include <functional>

#include "platform/Result.h"

namespace dayward {

class ScheduleRefresher {
public:
    virtual ~ScheduleRefresher() = default;
    /// Begins it and returns; `done` is called once, later, with whether it worked. Not while it runs.
    virtual Result<> start(std::function<void(bool)> done) = 0;
};

}  // namespace dayward
