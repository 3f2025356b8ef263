#include "agent/desktop/AgentService.h"

#include <unistd.h>

#include <utility>

#include "agent/AgentRequests.h"
#include "agent/desktop/BusCalls.h"
#include "agent/desktop/NotificationMessage.h"
#include "agent/desktop/NotificationService.h"
#include "platform/Log.h"

namespace dayward {

namespace {

using State = std::map<std::string, sdbus::Variant>;

constexpr const char* kFailed = "org.dayward.Error.Failed";

/// Answers are given from the bus's dispatch(), like all that asks the agent for something.
template <class... Results>
std::shared_ptr<sdbus::Result<Results...>> kept(sdbus::Result<Results...>&& result) {
    return std::make_shared<sdbus::Result<Results...>>(std::move(result));
}

void answer(const sdbus::Result<>& result, const Result<>& done) {
    const auto sent = onBus("answer", [&] {
        done ? result.returnResults() : result.returnError(sdbus::Error(kFailed, done.error().description()));
    });
    if (!sent) logDebug([&] { return sent.error().description(); });
}

}  // namespace

AgentService::AgentService(Parts parts)
    : parts_(std::move(parts)), object_(sdbus::createObject(parts_.bus.connection(), AgentObject::kPath)) {
    addShow();
    addState();
    addRefresh();
    object_->finishRegistration();
}

AgentService::~AgentService() = default;

Result<> AgentService::takeName() { return parts_.bus.requestName(agentBusName(parts_.home)); }

void AgentService::addShow() {
    object_->registerMethod("Show")
        .onInterface(AgentObject::kInterface)
        .withInputParamNames("notification")
        .implementedAs([this](sdbus::Result<>&& result, const Data& message) {
            parts_.bus.later([this, result = kept(std::move(result)), message] {
                const auto notification = notificationOfMessage(message);
                if (!notification) return answer(*result, std::unexpected(notification.error()));
                answer(*result, parts_.requests.showNow(*notification));
            });
        });
}

void AgentService::addState() {
    object_->registerMethod("State")
        .onInterface(AgentObject::kInterface)
        .withOutputParamNames("state")
        .implementedAs([this](sdbus::Result<State>&& result) {
            parts_.bus.later([this, result = kept(std::move(result))] {
                State state{
                    {"version", sdbus::Variant(parts_.version)},
                    {"home", sdbus::Variant(parts_.home.directory)},
                    {"pid", sdbus::Variant(static_cast<std::uint32_t>(getpid()))},
                    {"scheduled", sdbus::Variant(static_cast<std::uint32_t>(parts_.requests.scheduledCount()))}};
                if (const auto name = parts_.notifications.name()) {
                    state.emplace("service", sdbus::Variant(*name));
                    state.emplace("actions", sdbus::Variant(parts_.notifications.can("actions")));
                    if (const auto quiet = parts_.notifications.isQuiet())
                        state.emplace("quiet", sdbus::Variant(*quiet));
                }
                (void)onBus("answer", [&] { result->returnResults(state); });
            });
        });
}

void AgentService::addRefresh() {
    object_->registerMethod("Refresh")
        .onInterface(AgentObject::kInterface)
        .implementedAs([this](sdbus::Result<>&& result) {
            parts_.bus.later([this, result = kept(std::move(result))] {
                parts_.requests.refresh();
                answer(*result, {});
            });
        });
}

}  // namespace dayward
