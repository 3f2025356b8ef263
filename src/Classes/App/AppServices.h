// What the delegate calls in other subsystems. A member that is not set does nothing.
#pragma once

#include <memory>

#include "Classes/App/CloudService.h"
#include "Classes/App/LockService.h"
#include "Classes/Import/SiblingImportService.h"
#include "Submodules/CorpLibrary2/App/UpdateService.h"
#include "alerts/MissedEventsService.h"
#include "alerts/NotificationsService.h"
#include "alerts/WidgetService.h"

namespace dayward {

struct AppServices {
    std::shared_ptr<UpdateService> updates = std::make_shared<NoUpdates>();
    std::shared_ptr<NotificationsService> notifications = std::make_shared<NoNotifications>();
    std::shared_ptr<MissedEventsService> missedEvents = std::make_shared<NoMissedEvents>();
    std::shared_ptr<WidgetService> widget = std::make_shared<NoWidget>();
    std::shared_ptr<CloudService> cloud = std::make_shared<NoCloud>();
    std::shared_ptr<LockService> lock = std::make_shared<NoLock>();
    std::shared_ptr<SiblingImportService> siblingImport = std::make_shared<NoSiblingImport>();
};

/// Those that every program has, with a window or without.
AppServices makeAppServices();

}  // namespace dayward
