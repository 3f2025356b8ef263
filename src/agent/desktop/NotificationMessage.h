// A notification as bytes that one program hands another. Any thread.
#pragma once

#include "platform/Data.h"
#include "platform/LocalNotification.h"
#include "platform/Result.h"

namespace dayward {

/// A keyed archive.
Data messageOfNotification(const LocalNotification& notification);
/// Fails on bytes that are no such archive.
Result<LocalNotification> notificationOfMessage(const Data& message);

}  // namespace dayward
