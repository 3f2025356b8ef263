// The application of the same home, as the agent reaches it. The agent's thread only; a call waits a second or two.
#pragma once

#include <functional>
#include <vector>

#include "agent/NotificationDisplay.h"
#include "platform/LocalNotification.h"
#include "platform/Result.h"

namespace dayward {

class ApplicationLink {
public:
    virtual ~ApplicationLink() = default;

    /// Hands over one that fires now. True where the application is in front and shows it by itself.
    virtual bool deliver(const LocalNotification& notification) = 0;
    /// The same for several as one, in their order.
    virtual bool deliverDigest(const std::vector<DueAlert>& alerts) = 0;
    /// Hands over one that the user opened; starts the application where it does not run.
    virtual Result<> open(const LocalNotification& notification) = 0;
    /// Lets the application do its background fetch. `done` is told once, now or later, whether it has: not where it
    /// does not run, is in sight, could not, or does not answer.
    virtual void performFetch(std::function<void(bool)> done) = 0;
};

}  // namespace dayward
