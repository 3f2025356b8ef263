// The schedule made anew by a command.
#pragma once

#include "platform/Result.h"

namespace dayward {

/// As NotificationsManager::syncRefresh(), with what other processes change in the events meanwhile: a command does not
/// watch them, and would cancel the alerts of an event that came after it had read them.
Result<> refreshSchedule();

}  // namespace dayward
