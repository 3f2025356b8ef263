// The clocks and the zone that the agent goes by. The agent's thread only.
#pragma once

#include "platform/Date.h"
#include "platform/TimeZone.h"

namespace dayward {

class AgentTime {
public:
    virtual ~AgentTime() = default;
    /// The wall clock: it may be set.
    [[nodiscard]] virtual Date now() const = 0;
    /// A clock that nobody sets and that stands while the device sleeps; only differences count.
    [[nodiscard]] virtual TimeInterval elapsed() const = 0;
    /// The zone that the device is in now.
    [[nodiscard]] virtual TimeZone zone() const = 0;
};

}  // namespace dayward
