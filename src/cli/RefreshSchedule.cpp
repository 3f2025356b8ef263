#include "cli/RefreshSchedule.h"

#include "Classes/Event/EventLocalStore.h"
#include "alerts/AppBadge.h"
#include "alerts/MissedEventsHelper.h"
#include "alerts/NotificationsManager.h"

namespace dayward {

// Whoever changes an event writes its file before the schedule. So what the refresh took from the schedule and did not
// know is on the disk now; what comes later finds the schedule as the refresh left it.
Result<> refreshSchedule() {
    TRY_VOID(NotificationsManager::syncRefresh());
    EventLocalStore::shared().refreshFromDisk();
    TRY_VOID(NotificationsManager::flush());
    MissedEventsHelper::saveChanges();
    return {};
}

Result<> scheduleChanges() {
    if (AppBadge::countsDays(AppBadge::type())) return refreshSchedule();
    TRY_VOID(NotificationsManager::flush());
    MissedEventsHelper::saveChanges();
    return {};
}

}  // namespace dayward
