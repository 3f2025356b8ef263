// The user's session bus, as the agent's loop waits for it. One thread.
//
// What comes in over the bus is noted and handed on from dispatch() only, so that no listener is called from
// within a call that waits for an answer.
#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <string>

#include "agent/EventSource.h"
#include "platform/Result.h"

namespace sdbus {
class IConnection;
class IProxy;
}  // namespace sdbus

namespace dayward {

class SessionBus final : public EventSource {
public:
    static constexpr TimeInterval kPatience{2};

    /// Fails where there is no bus.
    static Result<std::unique_ptr<SessionBus>> connect();
    ~SessionBus() override;
    SessionBus(const SessionBus&) = delete;
    SessionBus& operator=(const SessionBus&) = delete;

    // EventSource
    [[nodiscard]] pollfd descriptor() const override;
    [[nodiscard]] std::optional<TimeInterval> timeout() const override;
    void dispatch() override;

    /// The session is over, or the bus has put us out; nothing comes or goes any more.
    [[nodiscard]] bool isLost() const { return isLost_; }
    /// Runs it from the next dispatch(), which follows at once.
    void later(std::function<void()> block);
    /// Handles what comes in until the condition holds. False where the time is over first.
    bool waitUntil(const std::function<bool()>& condition, TimeInterval limit = kPatience);

    /// Tells this bus from every other, before and after it.
    [[nodiscard]] std::string id();
    /// The unique name of who has the name now; empty where nobody has.
    [[nodiscard]] std::string ownerOf(const std::string& name);
    /// Lets the bus start the program that serves the name. Fails where it knows none, or the program does not come
    /// within the patience.
    Result<> start(const std::string& name);
    /// Whether the bus knows a program that serves the name.
    [[nodiscard]] bool canStart(const std::string& name);
    /// The same as start(), and returns as soon as the bus is asked.
    Result<> startWithoutWaiting(const std::string& name);
    /// Tells the owner, empty where there is none, whenever it changes.
    void watchOwner(const std::string& name, std::function<void(const std::string& owner)> changed);
    /// Fails where another has it.
    Result<> requestName(const std::string& name);

    [[nodiscard]] sdbus::IConnection& connection() { return *connection_; }

private:
    explicit SessionBus(std::unique_ptr<sdbus::IConnection> connection);

    /// Every message that is there.
    void process();
    void runLater();

    std::unique_ptr<sdbus::IConnection> connection_;
    std::unique_ptr<sdbus::IProxy> daemon_;
    std::deque<std::function<void()>> later_;
    bool isLost_ = false;
};

}  // namespace dayward
