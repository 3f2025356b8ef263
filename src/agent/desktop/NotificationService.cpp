#include "agent/desktop/NotificationService.h"

#include <limits>
#include <utility>

#include "agent/desktop/BusCalls.h"
#include "platform/Log.h"

namespace dayward {

namespace {

constexpr const char* kName = "org.freedesktop.Notifications";
constexpr const char* kPath = "/org/freedesktop/Notifications";
constexpr const char* kDunst = "org.dunstproject.cmd0";

constexpr const char* kProgram = "Dayward";
constexpr const char* kDesktopEntry = "org.dayward.Dayward";
constexpr const char* kCategory = "x-dayward.event";
constexpr std::uint8_t kNormalUrgency = 1;
constexpr std::int32_t kServiceChoosesTime = -1;

/// Why a bubble is gone.
constexpr std::uint32_t kDismissed = 2, kClosedByCall = 3;

using Hints = std::map<std::string, sdbus::Variant>;

Hints hintsOf(const Bubble& bubble) {
    Hints hints{{"desktop-entry", sdbus::Variant(std::string(kDesktopEntry))},
                {"category", sdbus::Variant(std::string(kCategory))},
                {"urgency", sdbus::Variant(kNormalUrgency)},
                {"x-dunst-stack-tag", sdbus::Variant(bubble.tag)},
                {"x-canonical-private-synchronous", sdbus::Variant(bubble.tag)}};
    if (bubble.soundFile) {
        hints.emplace("sound-file", sdbus::Variant(*bubble.soundFile));
    } else {
        hints.emplace("suppress-sound", sdbus::Variant(true));
    }
    return hints;
}

std::vector<std::string> actionsOf(const Bubble& bubble) {
    std::vector<std::string> actions;
    for (const auto& [name, label] : bubble.actions) {
        actions.push_back(name);
        actions.push_back(label);
    }
    return actions;
}

}  // namespace

NotificationService::NotificationService(SessionBus& bus, NotificationServiceListener* listener)
    : bus_(bus), listener_(listener), proxy_(sdbus::createProxy(bus.connection(), kName, kPath)) {
    if (listener_ != nullptr) follow();
}

NotificationService::~NotificationService() = default;

void NotificationService::follow() {
    proxy_->uponSignal("ActionInvoked")
        .onInterface(kName)
        .call([this](std::uint32_t number, const std::string& action) {
            bus_.later([this, number, action] {
                const auto token = tokens_.extract(number);
                listener_->didInvoke(number, action, token ? token.mapped() : std::string());
            });
        });
    proxy_->uponSignal("ActivationToken")
        .onInterface(kName)
        .call([this](std::uint32_t number, const std::string& token) {
            bus_.later([this, number, token] { tokens_ = {{number, token}}; });
        });
    proxy_->uponSignal("NotificationClosed")
        .onInterface(kName)
        .call([this](std::uint32_t number, std::uint32_t reason) {
            bus_.later([this, number, reason] {
                // One that expired may come back out of the service's history.
                if (reason == kDismissed || reason == kClosedByCall) listener_->didClose(number);
            });
        });
    proxy_->finishRegistration();
    bus_.watchOwner(kName, [this](const std::string& owner) {
        capabilities_.reset();
        tokens_.clear();
        listener_->serviceDidChange(!owner.empty());
    });
}

bool NotificationService::isReachable() { return !bus_.ownerOf(kName).empty() || bus_.start(kName).has_value(); }

std::string NotificationService::identity() {
    const std::string owner = bus_.ownerOf(kName);
    return owner.empty() ? owner : bus_.id() + ' ' + owner;
}

std::optional<std::string> NotificationService::name() {
    if (!isReachable()) return std::nullopt;
    const auto name = onBus("GetServerInformation", [&] {
        std::string program, maker, version, standard;
        proxy_->callMethod("GetServerInformation")
            .onInterface(kName)
            .withTimeout(microseconds(SessionBus::kPatience))
            .storeResultsTo(program, maker, version, standard);
        return program;
    });
    return name ? std::optional(*name) : std::nullopt;
}

bool NotificationService::can(const std::string& capability) {
    if (!capabilities_) {
        std::vector<std::string> known;
        const auto asked = onBus("GetCapabilities", [&] {
            proxy_->callMethod("GetCapabilities")
                .onInterface(kName)
                .withTimeout(microseconds(SessionBus::kPatience))
                .storeResultsTo(known);
        });
        if (!asked) return false;
        capabilities_.emplace(known.begin(), known.end());
    }
    return capabilities_->contains(capability);
}

std::optional<bool> NotificationService::isQuiet() {
    const std::pair<const char*, const char*> known[] = {{kName, "Inhibited"}, {kDunst, "paused"}};
    for (const auto& [interface, property] : known) {
        const auto quiet = onBus(property, [&] {
            sdbus::Variant value;
            proxy_->callMethod("Get")
                .onInterface("org.freedesktop.DBus.Properties")
                .withTimeout(microseconds(SessionBus::kPatience))
                .withArguments(interface, property)
                .storeResultsTo(value);
            return value.get<bool>();
        });
        if (quiet) return *quiet;
    }
    return std::nullopt;
}

void NotificationService::notify(const Bubble& bubble, std::function<void(Result<std::uint32_t>)> answered) {
    const auto sent = onBus("Notify", [&] {
        proxy_->callMethodAsync("Notify")
            .onInterface(kName)
            .withTimeout(std::numeric_limits<std::uint64_t>::max())
            .withArguments(kProgram, bubble.replaces, kDesktopEntry, bubble.summary, bubble.body, actionsOf(bubble),
                           hintsOf(bubble), kServiceChoosesTime)
            .uponReplyInvoke([answered](const sdbus::Error* error, std::uint32_t number) {
                if (error == nullptr) return answered(number);
                answered(busFailure("Notify", *error));
            });
    });
    if (!sent) answered(std::unexpected(sent.error()));
}

void NotificationService::close(std::uint32_t number) {
    const auto sent = onBus("CloseNotification", [&] {
        proxy_->callMethodAsync("CloseNotification")
            .onInterface(kName)
            .withArguments(number)
            .uponReplyInvoke([](const sdbus::Error*) {});
    });
    if (!sent) logDebug([&] { return sent.error().description(); });
}

}  // namespace dayward
