// The list of events as the rest of the program knows it: the screen at the bottom of the root stack,
// which can be asked to show an event. Main thread only.
#pragma once

#include <string>

#include "platform/Environment.h"
#include "platform/NotificationCenter.h"

namespace dayward {

/// Posted by the list at each of its appearances, by EventListPresenting::postDidAppear().
inline constexpr const char* EventListDidAppearNotification = "EventListDidAppearNotification";

class EventListPresenting {
public:
    virtual ~EventListPresenting() = default;
    /// Shows the event: in the detail pane where there is one, else over the list.
    virtual void presentDetailsForEventAtIdentifier(const std::string& identifier) = 0;
    /// Opens the editor of a new event.
    virtual void presentNewEvent() = 0;

    /// The list that posted EventListDidAppearNotification. Null where the notification has no object.
    static EventListPresenting* listOf(const Notification& notification) {
        return static_cast<EventListPresenting*>(const_cast<void*>(notification.object));
    }

protected:
    /// The notification's object is this base, so that listOf() finds it again.
    void postDidAppear() {
        Environment::current().notifications().post(EventListDidAppearNotification,
                                                    static_cast<EventListPresenting*>(this));
    }
};

}  // namespace dayward
