// What a batch of NotificationsManager is to do, one target after the other.
#pragma once

#include <memory>
#include <variant>

namespace dayward {

class HHEvent;

/// The event's notifications must be built anew.
struct UpdateTarget {
    std::shared_ptr<HHEvent> event;
};

/// The event's notifications must go.
struct RemoveTarget {
    std::shared_ptr<HHEvent> event;
};

using NotificationTarget = std::variant<UpdateTarget, RemoveTarget>;

}  // namespace dayward
