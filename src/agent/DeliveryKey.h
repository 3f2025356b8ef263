// What tells one delivery of a notification from every other: its owner, the time that its wall clock shows when it
// fires, and its body.
#pragma once

#include <string>

#include "platform/LocalNotification.h"

namespace dayward {

/// 32 hexadecimal digits, the same in every process. One that is scheduled anew in another zone for the same time of
/// the wall clock has the same key; one without a zone is told by its instant.
std::string deliveryKey(const LocalNotification& notification);

}  // namespace dayward
