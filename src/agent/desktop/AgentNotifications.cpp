#include "agent/desktop/AgentNotifications.h"

#include "platform/Log.h"

namespace dayward {

Result<> AgentNotifications::change(const std::vector<LocalNotification>& cancelled,
                                    const std::vector<LocalNotification>& scheduled) {
    auto changed = schedule_->change(cancelled, scheduled);
    if (!scheduled.empty()) keepAgent();
    return changed;
}

Result<> AgentNotifications::changeSnoozed(const std::vector<LocalNotification>& removed,
                                           const std::vector<LocalNotification>& restored) {
    auto changed = schedule_->changeSnoozed(removed, restored);
    if (!restored.empty()) keepAgent();
    return changed;
}

void AgentNotifications::setApplicationIconBadgeNumber(std::int64_t number) {
    schedule_->setApplicationIconBadgeNumber(number);
    if (number != 0) keepAgent();
}

void AgentNotifications::keepAgent() {
    const bool isIdle = schedule_->scheduledLocalNotifications().empty() &&
                        schedule_->snoozedLocalNotifications().empty() && schedule_->applicationIconBadgeNumber() == 0;
    if (isIdle) return;
    const auto running = agent_.ensureRunning();
    if (!running) logDebug([&] { return "agent: " + running.error().description(); });
}

}  // namespace dayward
