// The agent's clocks as something to wait for.
#pragma once

#include <optional>
#include <utility>

#include "agent/AgentTime.h"
#include "agent/EventSource.h"

namespace dayward {

/// What the agent waits for once it has done everything.
struct NextWake {
    std::optional<Date> moment;         ///< of the wall clock
    std::optional<TimeInterval> retry;  ///< from now on, by the other clock
    bool isBusy = false;                ///< something was begun that will end by itself
};

class AgentWait : public AgentTime, public EventSource {
public:
    /// Dispatched at the earlier of both, and when the wall clock is set.
    virtual void arm(const NextWake& next) = 0;
    /// Whether it was dispatched since it was asked last.
    [[nodiscard]] bool takeRung() { return std::exchange(hasRung_, false); }
    /// The device may be in another zone.
    virtual void readZone() = 0;

    void dispatch() final {
        hasRung_ = true;
        ring();
    }

protected:
    virtual void ring() = 0;

private:
    bool hasRung_ = false;
};

}  // namespace dayward
