// The agent's surroundings on a desktop, put together: display, application, the agent's own object, and the language
// and zone in which it speaks. One thread, whose current environment is this one's while it lives.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "agent/AgentTime.h"
#include "agent/Surroundings.h"
#include "agent/desktop/AgentService.h"
#include "agent/desktop/BusNames.h"
#include "agent/desktop/DBusApplicationLink.h"
#include "agent/desktop/DesktopDisplay.h"
#include "agent/desktop/SessionBus.h"
#include "platform/Environment.h"

namespace dayward {

class AgentDesktop final : public Surroundings {
public:
    struct Options {
        std::string home;       ///< as for Paths::resolve()
        std::string programs;   ///< the directory of the application's program
        std::string resources;  ///< the program's own files
        std::string version;
    };

    /// Fails where there is no session bus, or the texts cannot be read. The time outlives it.
    static Result<std::unique_ptr<AgentDesktop>> make(const Options& options, const AgentTime& time);
    ~AgentDesktop() override;

    // Surroundings
    [[nodiscard]] NotificationDisplay& display() override { return *display_; }
    [[nodiscard]] ApplicationLink& link() override { return *link_; }
    [[nodiscard]] EventSource* events() override { return bus_.get(); }
    Result<bool> serve(AgentRequests& requests) override;
    /// The session has ended.
    [[nodiscard]] bool isOver() const override { return bus_->isLost(); }

private:
    AgentDesktop(const Options& options, const AgentTime& time, std::unique_ptr<SessionBus> bus);

    /// The language that was chosen in the application, and the zone, may be others since the last time.
    Result<> speak();
    Result<Environment::Services> makeServices() const;

    const Options options_;
    const Paths paths_;
    const BusHome home_;
    const AgentTime& time_;
    const std::unique_ptr<SessionBus> bus_;
    std::optional<std::string> language_;
    std::unique_ptr<Environment> environment_;
    std::unique_ptr<EnvironmentScope> scope_;
    std::unique_ptr<DesktopDisplay> display_;
    std::unique_ptr<DBusApplicationLink> link_;
    std::unique_ptr<AgentService> service_;
};

}  // namespace dayward
