#include "Classes/App/AppServices.h"

#include "alerts/NotificationsManagerService.h"

namespace dayward {

AppServices makeAppServices() {
    AppServices services;
    services.notifications = std::make_shared<NotificationsManagerService>();
    services.missedEvents = std::make_shared<ScheduleMissedEvents>();
    return services;
}

}  // namespace dayward
