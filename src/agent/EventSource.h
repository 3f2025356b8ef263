// Something that the agent's loop waits for.
#pragma once

#include <poll.h>

#include <optional>

#include "platform/Date.h"

namespace dayward {

class EventSource {
public:
    virtual ~EventSource() = default;
    /// What to wait for; asked before each wait. A descriptor of -1 is left out.
    [[nodiscard]] virtual pollfd descriptor() const = 0;
    /// The longest wait; nothing where only the descriptor counts.
    [[nodiscard]] virtual std::optional<TimeInterval> timeout() const { return std::nullopt; }
    /// The descriptor is ready or the time is over.
    virtual void dispatch() = 0;
};

}  // namespace dayward
