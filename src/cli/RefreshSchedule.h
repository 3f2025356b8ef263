// The schedule as a command leaves it.
#pragma once

#include "platform/Result.h"

namespace dayward {

/// As NotificationsManager::syncRefresh(), with what other processes change in the events meanwhile: a command does not
/// watch them, and would cancel the alerts of an event that came after it had read them.
Result<> refreshSchedule();

/// At the end of a command that changed events: schedules that, and keeps the schedule for the next look for missed
/// events. Everything is made anew where the badge counts days, which depend on all events.
Result<> scheduleChanges();

}  // namespace dayward
