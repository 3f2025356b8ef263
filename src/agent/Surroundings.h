// What the agent shows alerts on, how it reaches the application, and how others reach the agent. The agent's thread
// only.
#pragma once

#include "agent/AgentRequests.h"
#include "agent/ApplicationLink.h"
#include "agent/EventSource.h"
#include "agent/NotificationDisplay.h"

namespace dayward {

class Surroundings {
public:
    virtual ~Surroundings() = default;

    [[nodiscard]] virtual NotificationDisplay& display() = 0;
    [[nodiscard]] virtual ApplicationLink& link() = 0;
    /// What comes from outside; null where nothing does.
    [[nodiscard]] virtual EventSource* events() = 0;
    /// Lets the home's other programs find the agent; the requests outlive the surroundings. False where another agent
    /// of the home is there already.
    virtual Result<bool> serve(AgentRequests& requests) = 0;
    /// They are gone for good.
    [[nodiscard]] virtual bool isOver() const = 0;
};

}  // namespace dayward
