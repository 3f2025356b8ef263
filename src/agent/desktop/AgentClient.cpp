#include "agent/desktop/AgentClient.h"

#include <memory>
#include <utility>

#include "agent/desktop/BusCalls.h"
#include "agent/desktop/NotificationMessage.h"
#include "platform/FileSystem.h"
#include "platform/linux/DetachedProcess.h"

namespace dayward {

namespace {

constexpr TimeInterval kTimeToStart{5};
/// The agent asks the notification service in turn.
constexpr TimeInterval kTimeToAnswer = SessionBus::kPatience * 4;

}  // namespace

AgentClient::AgentClient(BusHome home, std::string programs)
    : home_(std::move(home)), program_(joinPath(programs, "dayward-agent")), name_(agentBusName(home_)) {}

Result<> AgentClient::ensureRunning() const {
    const auto bus = TRY(SessionBus::connect());
    return bus->ownerOf(name_).empty() ? start(*bus) : Result<>();
}

// The bus starts the one of the user's own home, in a place of its own; a home that was chosen by hand is known to
// nobody else.
Result<> AgentClient::start(SessionBus& bus) const {
    if (home_.root.empty() && bus.canStart(name_)) return bus.startWithoutWaiting(name_);
    std::vector<std::string> command{program_};
    if (!home_.root.empty()) command.insert(command.end(), {"--home", home_.root});
    return startDetached(command);
}

Result<> AgentClient::startAndWait(SessionBus& bus) const {
    const auto isThere = std::make_shared<bool>(false);
    bus.watchOwner(name_, [isThere](const std::string& owner) { *isThere = *isThere || !owner.empty(); });
    if (!bus.ownerOf(name_).empty()) return {};
    TRY_VOID(start(bus));
    const auto hasCome = [&] {
        bus.dispatch();
        return *isThere;
    };
    if (bus.waitUntil(hasCome, kTimeToStart)) return {};
    return failure("the agent does not start");
}

Result<AgentClient::State> AgentClient::state() const {
    const auto bus = TRY(SessionBus::connect());
    TRY_VOID(startAndWait(*bus));
    return onBus("State", [&] {
        std::map<std::string, sdbus::Variant> values;
        sdbus::createProxy(bus->connection(), name_, AgentObject::kPath)
            ->callMethod("State")
            .onInterface(AgentObject::kInterface)
            .withTimeout(microseconds(kTimeToAnswer))
            .storeResultsTo(values);
        State state;
        if (values.contains("service")) state.service = values.at("service").get<std::string>();
        if (values.contains("actions")) state.hasActions = values.at("actions").get<bool>();
        if (values.contains("quiet")) state.isQuiet = values.at("quiet").get<bool>();
        return state;
    });
}

Result<> AgentClient::show(const LocalNotification& notification) const {
    const auto bus = TRY(SessionBus::connect());
    TRY_VOID(startAndWait(*bus));
    return onBus("Show", [&] {
        sdbus::createProxy(bus->connection(), name_, AgentObject::kPath)
            ->callMethod("Show")
            .onInterface(AgentObject::kInterface)
            .withTimeout(microseconds(kTimeToAnswer))
            .withArguments(messageOfNotification(notification));
    });
}

}  // namespace dayward
