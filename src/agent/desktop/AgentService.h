// The agent's own object on the session bus, for the programs of its home (docs/agent.md has its interface). One
// thread.
#pragma once

#include <memory>
#include <string>

#include "agent/desktop/BusNames.h"
#include "platform/Result.h"

namespace sdbus {
class IObject;
}

namespace dayward {

class AgentRequests;
class NotificationService;
class SessionBus;

class AgentService {
public:
    struct Parts {
        SessionBus& bus;
        NotificationService& notifications;
        AgentRequests& requests;
        BusHome home;
        std::string version;
    };

    /// All parts outlive it. Nobody finds it before takeName().
    explicit AgentService(Parts parts);
    ~AgentService();
    AgentService(const AgentService&) = delete;
    AgentService& operator=(const AgentService&) = delete;

    /// Fails where another agent of the home has it.
    Result<> takeName();

private:
    void addShow();
    void addState();
    void addRefresh();

    const Parts parts_;
    std::unique_ptr<sdbus::IObject> object_;
};

}  // namespace dayward
