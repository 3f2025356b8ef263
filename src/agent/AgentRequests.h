// What other programs ask of the agent. The agent's thread only.
#pragma once

#include <cstddef>

#include "platform/LocalNotification.h"
#include "platform/Result.h"

namespace dayward {

class AgentRequests {
public:
    virtual ~AgentRequests() = default;
    /// Shows one at once that stands in no schedule.
    virtual Result<> showNow(const LocalNotification& notification) = 0;
    /// Schedules everything anew.
    virtual void refresh() = 0;
    /// How many wait, put off ones among them.
    [[nodiscard]] virtual std::size_t scheduledCount() const = 0;
};

}  // namespace dayward
