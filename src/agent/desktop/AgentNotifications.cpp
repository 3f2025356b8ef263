#include "agent/desktop/AgentNotifications.h"

#include "platform/Log.h"

namespace dayward {

void AgentNotifications::change(const std::vector<LocalNotification>& cancelled,
                                const std::vector<LocalNotification>& scheduled) {
    schedule_->change(cancelled, scheduled);
    if (!scheduled.empty()) keepAgent();
}

void AgentNotifications::keepAgent() {
    if (schedule_->scheduledLocalNotifications().empty()) return;
    const auto running = agent_.ensureRunning();
    if (!running) logDebug([&] { return "agent: " + running.error().description(); });
}

}  // namespace dayward
