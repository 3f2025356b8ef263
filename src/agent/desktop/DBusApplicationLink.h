// The application of the agent's home, over the session bus. One thread.
#pragma once

#include <functional>
#include <string>

#include "agent/ApplicationLink.h"
#include "agent/desktop/BusNames.h"

namespace dayward {

class SessionBus;

class DBusApplicationLink final : public ApplicationLink {
public:
    /// An application that answers later than this shows nothing of what it was handed, for the agent does.
    static constexpr TimeInterval kTimeToShow{1};
    /// An application that has not fetched by then is not waited for.
    static constexpr TimeInterval kTimeToFetch{120};

    struct Parts {
        BusHome home;
        std::string program;                     ///< the path of the application, where the bus cannot start it
        std::function<std::string()> takeToken;  ///< lets its window come to the front; may be empty
        std::function<void()> willSay;           ///< brings the environment up to date; may be empty
    };

    /// The bus outlives it.
    DBusApplicationLink(SessionBus& bus, Parts parts);

    bool deliver(const LocalNotification& notification) override;
    bool deliverDigest(const std::vector<DueAlert>& alerts) override;
    Result<> open(const LocalNotification& notification) override;
    void performFetch(std::function<void(bool)> done) override;

private:
    Result<> handOver(const std::string& owner, const LocalNotification& notification, const std::string& token);
    /// Through the bus; where that fails, which shows later, by startProgram().
    Result<> activate(const LocalNotification& notification, const std::string& token);
    [[nodiscard]] Result<> startProgram(const LocalNotification& notification, const std::string& token) const;

    SessionBus& bus_;
    const Parts parts_;
    const std::string name_;
};

}  // namespace dayward
