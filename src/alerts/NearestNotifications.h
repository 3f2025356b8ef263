// The notifications of many events that fire first, found without building those of every event: of each
// event only a moment is worked out before which none of its notifications fires, and the lists are built in
// the order of these moments until the next one cannot bring anything nearer. Works in the current environment.
#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "platform/LocalNotification.h"

namespace dayward {

class HHEvent;

/// The first `count` of the events' notifications (notificationsOfEvent) and of the `others`, in the order of
/// firesBefore(): the same as sorting all of them and cutting the list.
std::vector<LocalNotification> nearestNotifications(const std::vector<std::shared_ptr<HHEvent>>& events,
                                                    std::vector<LocalNotification> others, std::size_t count);

}  // namespace dayward
