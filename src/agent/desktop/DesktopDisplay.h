// Shows alerts through the desktop's notification service: one bubble an alert, with buttons that open it or put it
// off, one bubble a digest. One thread.
//
// A service that does not answer in time may still show what it was given. Such an alert counts as not shown and is
// not sent again until the service has answered, which displayDidAppear() tells, or has gone away.
#pragma once

#include <functional>
#include <memory>
#include <set>
#include <utility>

#include "agent/NotificationDisplay.h"
#include "agent/desktop/AlertSound.h"
#include "agent/desktop/AlertTexts.h"
#include "agent/desktop/BubbleMemory.h"
#include "agent/desktop/LauncherBadge.h"
#include "agent/desktop/NotificationService.h"

namespace dayward {

class SessionBus;

class DesktopDisplay final : public NotificationDisplay, private NotificationServiceListener {
public:
    struct Options {
        std::string application;         ///< its bus name; its own badge goes with it
        std::function<void()> willShow;  ///< brings the environment up to date; may be empty
        std::string bubbles;             ///< the path of a file of the session; empty: none
    };

    /// The bus outlives it.
    DesktopDisplay(SessionBus& bus, Options options);

    // NotificationDisplay
    void setListener(NotificationDisplayListener* listener) override { listener_ = listener; }
    Result<> show(const DueAlert& alert) override;
    Result<> showDigest(const std::vector<DueAlert>& alerts) override;
    void withdraw(const std::string& key) override;
    void setBadgeNumber(std::int64_t number) override;

    [[nodiscard]] NotificationService& service() { return service_; }
    /// Lets the window that the last tap opens come to the front; empty where the desktop gave none. Given once.
    [[nodiscard]] std::string takeActivationToken() { return std::exchange(token_, {}); }

private:
    using Keys = BubbleMemory::Keys;
    struct Sending;

    // NotificationServiceListener
    void didInvoke(std::uint32_t number, const std::string& action, const std::string& token) override;
    void didClose(std::uint32_t number) override { bubbles_.take(number); }
    void serviceDidChange(bool isThere) override;

    Result<> prepare();
    [[nodiscard]] BodyKind bodyKind();
    Result<> send(Keys keys, const AlertText& text, const std::vector<DueAlert>& alerts);
    void finish(const std::shared_ptr<Sending>& sending, Result<std::uint32_t> answer);

    SessionBus& bus_;
    const Options options_;
    NotificationService service_;
    LauncherBadge badge_;
    AlertSound sound_;
    NotificationDisplayListener* listener_ = nullptr;
    BubbleMemory bubbles_;
    std::set<std::string> unanswered_;    ///< sent, and given up waiting for
    std::set<std::string> answeredLate_;  ///< shown, but the caller does not know
    std::string token_;
    std::int64_t badgeNumber_ = 0;
};

}  // namespace dayward
