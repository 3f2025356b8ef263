#include "agent/desktop/NotificationMessage.h"

#include "platform/Archivable.h"
#include "platform/KeyedArchiver.h"
#include "platform/KeyedUnarchiver.h"
#include "platform/NotificationArchive.h"

namespace dayward {

Data messageOfNotification(const LocalNotification& notification) {
    return KeyedArchiver::archivedDataWithRootObject(objectOfNotification(notification));
}

Result<LocalNotification> notificationOfMessage(const Data& message) {
    const ArchiveClasses classes;
    const Object object =
        TRY(KeyedUnarchiver::unarchiveObjectWithData(message, classes, KeyedUnarchiver::OnRefusal::fail));
    auto notification = notificationOfObject(object);
    if (!notification) return failure("the message holds no notification");
    return *std::move(notification);
}

}  // namespace dayward
