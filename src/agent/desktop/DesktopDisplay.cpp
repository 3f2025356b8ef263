#include "agent/desktop/DesktopDisplay.h"

#include <algorithm>
#include <utility>

#include "agent/desktop/AlertSound.h"
#include "agent/desktop/SessionBus.h"
#include "platform/Log.h"
#include "platform/Strings.h"

namespace dayward {

namespace {

constexpr const char* kDefaultAction = "default";
constexpr const char* kShowAction = "show";
constexpr std::pair<const char*, Snooze> kSnoozes[] = {{"snooze-ten-minutes", Snooze::tenMinutes},
                                                       {"snooze-one-hour", Snooze::oneHour},
                                                       {"snooze-tomorrow", Snooze::tomorrow}};

std::vector<Bubble::Action> actionsFor(const LocalNotification& notification) {
    const std::string show = notification.alertAction.value_or(localized("Show"));
    std::vector<Bubble::Action> actions{{kDefaultAction, show}, {kShowAction, show}};
    for (const auto& [name, snooze] : kSnoozes) actions.push_back({name, snoozeLabel(snooze)});
    return actions;
}

std::optional<std::string> soundOf(const std::vector<DueAlert>& alerts) {
    for (const DueAlert& alert : alerts) {
        if (auto path = AlertSound::path(alert.notification)) return path;
    }
    return std::nullopt;
}

}  // namespace

struct DesktopDisplay::Sending {
    Keys keys;
    std::optional<Result<std::uint32_t>> answer;
    bool isGivenUp = false;
};

DesktopDisplay::DesktopDisplay(SessionBus& bus, Options options)
    : bus_(bus), options_(std::move(options)), service_(bus, this), badge_(bus), bubbles_(options_.bubbles) {
    bubbles_.setService(service_.identity());
    bus.watchOwner(options_.application, [this](const std::string& owner) {
        if (owner.empty()) badge_.show(badgeNumber_);
    });
}

Result<> DesktopDisplay::prepare() {
    if (!service_.isReachable()) return failure("no notification service runs");
    bubbles_.setService(service_.identity());
    if (options_.willShow) options_.willShow();
    return {};
}

BodyKind DesktopDisplay::bodyKind() {
    if (!service_.can("body")) return BodyKind::none;
    return service_.can("body-markup") ? BodyKind::markup : BodyKind::plain;
}

Result<> DesktopDisplay::show(const DueAlert& alert) {
    TRY_VOID(prepare());
    return send({alert.key}, textOfAlert(alert, bodyKind()), {alert});
}

Result<> DesktopDisplay::showDigest(const std::vector<DueAlert>& alerts) {
    if (alerts.empty()) return {};
    TRY_VOID(prepare());
    Keys keys;
    for (const DueAlert& alert : alerts) keys.push_back(alert.key);
    return send(std::move(keys), textOfDigest(alerts, bodyKind()), alerts);
}

Result<> DesktopDisplay::send(Keys keys, const AlertText& text, const std::vector<DueAlert>& alerts) {
    const auto isUnanswered = [&](const std::string& key) { return unanswered_.contains(key); };
    if (std::ranges::any_of(keys, isUnanswered)) return failure("the notification service has not answered yet");
    const auto wasLate = std::ranges::count_if(keys, [&](const auto& key) { return answeredLate_.erase(key) > 0; });
    if (wasLate == std::ranges::ssize(keys)) return {};

    Bubble bubble{bubbles_.numberOf(keys), text.summary, text.body, {}, keys.back(), std::nullopt};
    if (service_.can("actions")) bubble.actions = actionsFor(alerts.back().notification);
    const auto sound = soundOf(alerts);
    const bool serviceCanPlay = sound && service_.can("sound") && AlertSound::isForServices(*sound);
    if (serviceCanPlay) bubble.soundFile = sound;

    const auto sending = std::make_shared<Sending>(std::move(keys));
    service_.notify(bubble, [this, sending](Result<std::uint32_t> answer) { finish(sending, std::move(answer)); });
    if (!bus_.waitUntil([&] { return sending->answer.has_value(); })) {
        sending->isGivenUp = true;
        unanswered_.insert(sending->keys.begin(), sending->keys.end());
        return failure("the notification service does not answer");
    }
    if (!*sending->answer) return std::unexpected(sending->answer->error());
    if (sound && !serviceCanPlay && !service_.isQuiet().value_or(false)) sound_.play(*sound);
    return {};
}

void DesktopDisplay::finish(const std::shared_ptr<Sending>& sending, Result<std::uint32_t> answer) {
    if (answer) bubbles_.remember(*answer, sending->keys);
    if (sending->isGivenUp) {
        for (const std::string& key : sending->keys) {
            if (unanswered_.erase(key) > 0 && answer) answeredLate_.insert(key);
        }
        bus_.later([this] {
            if (listener_ != nullptr) listener_->displayDidAppear();
        });
    }
    sending->answer = std::move(answer);
}

void DesktopDisplay::withdraw(const std::string& key) {
    if (const std::uint32_t number = bubbles_.withdraw(key); number != 0) service_.close(number);
}

void DesktopDisplay::setBadgeNumber(std::int64_t number) {
    badgeNumber_ = number;
    badge_.show(number);
}

void DesktopDisplay::didInvoke(std::uint32_t number, const std::string& action, const std::string& token) {
    const auto keys = bubbles_.take(number);
    if (!keys || listener_ == nullptr) return;
    service_.close(number);  // some services leave it where it is
    const auto snooze =
        std::ranges::find(kSnoozes, action, [](const auto& known) { return std::string_view(known.first); });
    if (snooze != std::end(kSnoozes)) {
        for (const std::string& key : *keys) listener_->didSnooze(key, snooze->second);
    } else {
        token_ = token;
        listener_->didOpen(keys->back());
    }
}

/// A new service knows nothing of what the old one was given; that one's answers have come as errors.
void DesktopDisplay::serviceDidChange(bool isThere) {
    bubbles_.setService(service_.identity());
    answeredLate_.clear();
    if (isThere && listener_ != nullptr) listener_->displayDidAppear();
}

}  // namespace dayward
