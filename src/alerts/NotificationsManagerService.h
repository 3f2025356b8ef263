// NotificationsManager as the application's delegate calls it.
#pragma once

#include "alerts/NotificationsManager.h"
#include "alerts/NotificationsService.h"

namespace dayward {

class NotificationsManagerService final : public NotificationsService {
public:
    void syncRefresh() override { (void)NotificationsManager::syncRefresh(); }
    void showNotification(const LocalNotification& notification) override {
        NotificationsManager::showNotification(notification);
    }
};

}  // namespace dayward
