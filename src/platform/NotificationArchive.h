// Notifications as objects that the defaults and archives can hold, and back.
#pragma once

#include <optional>

#include "platform/LocalNotification.h"

namespace dayward {

/// A dictionary of the set fields.
Object objectOfNotification(const LocalNotification& notification);
/// A field of another type counts as absent; nothing where the object is no dictionary, or its fire date no moment: no
/// order has a place for it, and it equals nothing that could be cancelled.
std::optional<LocalNotification> notificationOfObject(const Object& object);

}  // namespace dayward
