// The agent of a home, as the home's other programs reach it. Any thread: each call has a connection of its own.
#pragma once

#include <optional>
#include <string>

#include "agent/desktop/BusNames.h"
#include "platform/LocalNotification.h"
#include "platform/Result.h"

namespace dayward {

class SessionBus;

class AgentClient {
public:
    struct State {
        std::optional<std::string> service;
        bool hasActions = false;
        std::optional<bool> isQuiet;
    };

    /// `programs` is the directory of the agent's program, for homes whose agent the bus does not start.
    AgentClient(BusHome home, std::string programs);

    /// Starts the agent where it does not run. Does not wait for it. Fails where there is no session bus, or no agent
    /// is installed.
    Result<> ensureRunning() const;
    /// Waits for the agent, which is started where it does not run, up to some seconds.
    Result<State> state() const;
    /// Shows one at once; the schedule stays as it is. Waits likewise.
    Result<> show(const LocalNotification& notification) const;

private:
    Result<> start(SessionBus& bus) const;
    Result<> startAndWait(SessionBus& bus) const;

    const BusHome home_;
    const std::string program_, name_;
};

}  // namespace dayward
