#include "agent/desktop/AgentDevice.h"

#include "agent/desktop/NotificationService.h"
#include "agent/desktop/SessionBus.h"
#include "platform/Log.h"

namespace dayward {

namespace {

NotificationDeviceState stateOfService() {
    NotificationDeviceState state;
    const auto bus = SessionBus::connect();
    if (!bus) return state;
    NotificationService service(**bus, nullptr);
    state.service = service.name();
    if (!state.service) return state;
    state.hasActions = service.can("actions");
    state.isQuiet = service.isQuiet();
    return state;
}

}  // namespace

NotificationDeviceState AgentDevice::state() {
    auto told = agent_.state();
    if (told) return {true, std::move(told->service), told->hasActions, told->isQuiet};
    logDebug([&] { return "agent: " + told.error().description(); });
    return stateOfService();
}

}  // namespace dayward
