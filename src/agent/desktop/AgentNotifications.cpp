#include "agent/desktop/AgentNotifications.h"

#include "platform/Log.h"

namespace dayward {

Result<> AgentNotifications::change(const std::vector<LocalNotification>& cancelled,
                                    const std::vector<LocalNotification>& scheduled) {
    auto changed = schedule_->change(cancelled, scheduled);
    if (!scheduled.empty()) keepAgent();
    return changed;
}

void AgentNotifications::setApplicationIconBadgeNumber(std::int64_t number) {
    schedule_->setApplicationIconBadgeNumber(number);
    if (number != 0) keepAgent();
}

void AgentNotifications::keepAgent() {
    if (schedule_->scheduledLocalNotifications().empty() && schedule_->applicationIconBadgeNumber() == 0) return;
    const auto running = agent_.ensureRunning();
    if (!running) logDebug([&] { return "agent: " + running.error().description(); });
}

}  // namespace dayward
