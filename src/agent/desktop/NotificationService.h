// The desktop's notification service (org.freedesktop.Notifications), whichever it is. One thread.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/Result.h"

namespace sdbus {
class IProxy;
}

namespace dayward {

class SessionBus;

/// One bubble as it is sent.
struct Bubble {
    struct Action {
        std::string name, label;
    };

    std::uint32_t replaces = 0;  ///< the number of the one whose place it takes; 0 is none
    std::string summary, body;
    std::vector<Action> actions;
    std::string tag;                       ///< a later one of the same tag takes its place where the service knows tags
    std::optional<std::string> soundFile;  ///< for the service to play; without one it is to play nothing
};

class NotificationServiceListener {
public:
    virtual ~NotificationServiceListener() = default;
    /// A button, or "default" for the bubble itself. The token lets a window come to the front; mostly empty.
    virtual void didInvoke(std::uint32_t number, const std::string& action, const std::string& token) = 0;
    /// It is gone, and the user knows of it or it was closed by close().
    virtual void didClose(std::uint32_t number) = 0;
    /// Another service, or none. What was shown is gone.
    virtual void serviceDidChange(bool isThere) = 0;
};

class NotificationService {
public:
    /// The bus outlives it. The listener may be null; it is called from the bus's dispatch().
    NotificationService(SessionBus& bus, NotificationServiceListener* listener);
    ~NotificationService();
    NotificationService(const NotificationService&) = delete;
    NotificationService& operator=(const NotificationService&) = delete;

    /// Runs, or could be started.
    [[nodiscard]] bool isReachable();
    /// Tells the one that runs from every other, before and after it; empty where none runs.
    [[nodiscard]] std::string identity();
    /// What it calls itself; nothing where none runs.
    [[nodiscard]] std::optional<std::string> name();
    /// Whether it has one of the capabilities "actions", "body", "body-markup", "sound" ….
    [[nodiscard]] bool can(const std::string& capability);
    /// Do not disturb is on; nothing where it does not tell.
    [[nodiscard]] std::optional<bool> isQuiet();

    /// `answered` gets the bubble's number while the bus handles messages, or the error, also where the service goes
    /// away before it answers. However late it answers, it is told.
    void notify(const Bubble& bubble, std::function<void(Result<std::uint32_t>)> answered);
    /// Takes the bubble away; does not wait.
    void close(std::uint32_t number);

private:
    void follow();

    SessionBus& bus_;
    NotificationServiceListener* const listener_;
    std::unique_ptr<sdbus::IProxy> proxy_;
    std::optional<std::set<std::string>> capabilities_;  ///< of the service that runs, once asked
    std::map<std::uint32_t, std::string> tokens_;  ///< the last that came, of whomever's bubble
};

}  // namespace dayward
