#include "agent/desktop/DBusApplicationLink.h"

#include <chrono>
#include <limits>
#include <utility>

#include "agent/desktop/AlertTexts.h"
#include "agent/desktop/BusCalls.h"
#include "agent/desktop/NotificationMessage.h"
#include "alerts/EventNotification.h"
#include "platform/Log.h"
#include "platform/linux/DetachedProcess.h"

namespace dayward {

namespace {

using NotificationsObject::kInterface;
using NotificationsObject::kPath;

/// A program that is only now started answers when it is there.
constexpr std::uint64_t kForEver = std::numeric_limits<std::uint64_t>::max();

std::uint64_t monotonicMicroseconds() {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<std::uint64_t>(std::chrono::duration_cast<std::chrono::microseconds>(now).count());
}

std::map<std::string, sdbus::Variant> platformData(const std::string& token) {
    if (token.empty()) return {};
    return {{"activation-token", sdbus::Variant(token)}};
}

/// The program took it and is only slow to say so, or has ended.
bool isNoAnswer(const sdbus::Error& error) {
    const std::string name = error.getName();
    return name == "org.freedesktop.DBus.Error.NoReply" || name == "org.freedesktop.DBus.Error.Timeout" ||
           name == "System.Error.ETIMEDOUT";
}

}  // namespace

DBusApplicationLink::DBusApplicationLink(SessionBus& bus, Parts parts)
    : bus_(bus), parts_(std::move(parts)), name_(applicationBusName(parts_.home)) {}

// The owner is called by its own name, so that the bus does not start an application that has just ended.
bool DBusApplicationLink::deliver(const LocalNotification& notification) {
    const std::string owner = bus_.ownerOf(name_);
    if (owner.empty()) return false;
    const auto delivered = onBus("Deliver", [&] {
        bool isShown = false;
        sdbus::createProxy(bus_.connection(), owner, kPath)
            ->callMethod("Deliver")
            .onInterface(kInterface)
            .withTimeout(microseconds(kTimeToShow * 1.5))
            .withArguments(parts_.home.directory, messageOfNotification(notification),
                           monotonicMicroseconds() + microseconds(kTimeToShow))
            .storeResultsTo(isShown);
        return isShown;
    });
    if (!delivered) logDebug([&] { return delivered.error().description(); });
    return delivered.value_or(false);
}

bool DBusApplicationLink::deliverDigest(const std::vector<DueAlert>& alerts) {
    if (bus_.ownerOf(name_).empty()) return false;
    if (parts_.willSay) parts_.willSay();
    return deliver(notificationOfDigest(alerts));
}

Result<> DBusApplicationLink::open(const LocalNotification& notification) {
    const std::string token = parts_.takeToken ? parts_.takeToken() : std::string();
    const std::string owner = bus_.ownerOf(name_);
    if (!owner.empty()) {
        const auto handedOver = handOver(owner, notification, token);
        const bool hasEnded = !handedOver && bus_.ownerOf(owner).empty();
        if (!hasEnded) return handedOver;
    }
    return parts_.home.root.empty() ? activate(notification, token) : startProgram(notification, token);
}

Result<> DBusApplicationLink::handOver(const std::string& owner, const LocalNotification& notification,
                                       const std::string& token) {
    return onBus("Open", [&] {
        try {
            sdbus::createProxy(bus_.connection(), owner, kPath)
                ->callMethod("Open")
                .onInterface(kInterface)
                .withTimeout(microseconds(SessionBus::kPatience))
                .withArguments(parts_.home.directory, messageOfNotification(notification), platformData(token));
        } catch (const sdbus::Error& error) {
            if (!isNoAnswer(error) || bus_.ownerOf(owner).empty()) throw;
        }
    });
}

Result<> DBusApplicationLink::activate(const LocalNotification& notification, const std::string& token) {
    return onBus("Open", [&] {
        const std::shared_ptr<sdbus::IProxy> proxy = sdbus::createProxy(bus_.connection(), name_, kPath);
        const auto answered = [this, proxy, notification, token](const sdbus::Error* error) {
            const bool isStarted = error == nullptr || isNoAnswer(*error);
            // The proxy may not go while it calls this.
            bus_.later([this, proxy, isStarted, notification, token] {
                const auto started = isStarted ? Result<>() : startProgram(notification, token);
                if (!started) logError("open: " + started.error().description());
            });
        };
        proxy->callMethodAsync("Open")
            .onInterface(kInterface)
            .withTimeout(kForEver)
            .withArguments(parts_.home.directory, messageOfNotification(notification), platformData(token))
            .uponReplyInvoke(answered);
    });
}

Result<> DBusApplicationLink::startProgram(const LocalNotification& notification, const std::string& token) const {
    std::vector<std::string> command{parts_.program}, variables;
    if (!parts_.home.root.empty()) command.insert(command.end(), {"--home", parts_.home.root});
    if (const auto event = eventIdentifier(notification)) command.insert(command.end(), {"--event", *event});
    if (!token.empty()) variables = {"XDG_ACTIVATION_TOKEN=" + token, "DESKTOP_STARTUP_ID=" + token};
    return startDetached(command, variables);
}

void DBusApplicationLink::performFetch(std::function<void(bool)> done) {
    const std::string owner = bus_.ownerOf(name_);
    if (owner.empty()) return done(false);
    const auto sent = onBus("Fetch", [&] {
        const std::shared_ptr<sdbus::IProxy> proxy = sdbus::createProxy(bus_.connection(), owner, kPath);
        const auto answered = [this, proxy, done](const sdbus::Error* error, bool isDone) {
            if (error != nullptr) logDebug([&] { return busFailure("Fetch", *error).error().description(); });
            // The proxy may not go while it calls this.
            bus_.later([proxy, done, isDone = error == nullptr && isDone] { done(isDone); });
        };
        proxy->callMethodAsync("Fetch")
            .onInterface(kInterface)
            .withTimeout(microseconds(kTimeToFetch))
            .withArguments(parts_.home.directory)
            .uponReplyInvoke(answered);
    });
    if (sent) return;
    logError(sent.error().description());
    done(false);
}

}  // namespace dayward
