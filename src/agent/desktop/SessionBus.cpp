#include "agent/desktop/SessionBus.h"

#include <poll.h>

#include <algorithm>
#include <chrono>
#include <utility>

#include "agent/desktop/BusCalls.h"
#include "platform/Log.h"

namespace dayward {

namespace {

constexpr const char* kDaemon = "org.freedesktop.DBus";
constexpr const char* kDaemonPath = "/org/freedesktop/DBus";

}  // namespace

Result<std::unique_ptr<SessionBus>> SessionBus::connect() {
    return onBus("connect",
                 [] { return std::unique_ptr<SessionBus>(new SessionBus(sdbus::createSessionBusConnection())); });
}

SessionBus::SessionBus(std::unique_ptr<sdbus::IConnection> connection)
    : connection_(std::move(connection)), daemon_(sdbus::createProxy(*connection_, kDaemon, kDaemonPath)) {}

SessionBus::~SessionBus() = default;

pollfd SessionBus::descriptor() const {
    if (isLost_) return {-1, 0, 0};
    const auto data = connection_->getEventLoopPollData();
    return {data.fd, data.events, 0};
}

std::optional<TimeInterval> SessionBus::timeout() const {
    if (!later_.empty()) return TimeInterval(0);
    if (isLost_) return std::nullopt;
    const auto left = connection_->getEventLoopPollData().getRelativeTimeout();
    if (!left) return std::nullopt;
    return TimeInterval(std::max(0.0, std::chrono::duration<double>(*left).count()));
}

void SessionBus::dispatch() {
    process();
    runLater();
}

void SessionBus::process() {
    if (isLost_) return;
    const auto processed = onBus("process", [this] {
        while (connection_->processPendingRequest()) {
        }
    });
    if (processed) return;
    isLost_ = true;
    logDebug([&] { return processed.error().description(); });
}

void SessionBus::runLater() {
    for (std::size_t count = later_.size(); count > 0; --count) {
        const auto block = std::move(later_.front());
        later_.pop_front();
        block();
    }
}

void SessionBus::later(std::function<void()> block) { later_.push_back(std::move(block)); }

bool SessionBus::waitUntil(const std::function<bool()>& condition, TimeInterval limit) {
    using Clock = std::chrono::steady_clock;
    const auto end =
        Clock::now() + std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(limit.seconds()));
    for (;;) {
        process();
        if (condition()) return true;
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now()).count();
        if (isLost_ || left <= 0) return false;
        const auto data = connection_->getEventLoopPollData();
        const int own = data.getPollTimeout();
        pollfd waiting{data.fd, data.events, 0};
        poll(&waiting, 1, own < 0 ? static_cast<int>(left) : std::min(own, static_cast<int>(left)));
    }
}

std::string SessionBus::id() {
    std::string id;
    const auto asked = onBus("GetId", [&] {
        daemon_->callMethod("GetId").onInterface(kDaemon).withTimeout(microseconds(kPatience)).storeResultsTo(id);
    });
    if (!asked) logDebug([&] { return asked.error().description(); });
    return id;
}

std::string SessionBus::ownerOf(const std::string& name) {
    std::string owner;
    // Nobody's name is an error on the bus, and no news.
    (void)onBus("GetNameOwner", [&] {
        daemon_->callMethod("GetNameOwner")
            .onInterface(kDaemon)
            .withTimeout(microseconds(kPatience))
            .withArguments(name)
            .storeResultsTo(owner);
    });
    return owner;
}

Result<> SessionBus::start(const std::string& name) {
    return onBus("start " + name, [&] {
        std::uint32_t answer = 0;
        daemon_->callMethod("StartServiceByName")
            .onInterface(kDaemon)
            .withTimeout(microseconds(kPatience))
            .withArguments(name, std::uint32_t(0))
            .storeResultsTo(answer);
    });
}

bool SessionBus::canStart(const std::string& name) {
    std::vector<std::string> names;
    (void)onBus("ListActivatableNames", [&] {
        daemon_->callMethod("ListActivatableNames")
            .onInterface(kDaemon)
            .withTimeout(microseconds(kPatience))
            .storeResultsTo(names);
    });
    return std::ranges::find(names, name) != names.end();
}

Result<> SessionBus::startWithoutWaiting(const std::string& name) {
    return onBus("start " + name, [&] {
        daemon_->callMethod("StartServiceByName")
            .onInterface(kDaemon)
            .withArguments(name, std::uint32_t(0))
            .dontExpectReply();
    });
}

// Of this name alone: whatever else comes and goes on the bus wakes nobody.
void SessionBus::watchOwner(const std::string& name, std::function<void(const std::string& owner)> changed) {
    const std::string rule = std::string("type='signal',sender='") + kDaemon + "',interface='" + kDaemon +
                             "',member='NameOwnerChanged',arg0='" + name + "'";
    const auto watched = onBus("watch " + name, [&] {
        const auto tell = [this, changed = std::move(changed)](sdbus::Message& message) {
            std::string changedName, before, owner;
            message >> changedName >> before >> owner;
            later([changed, owner] { changed(owner); });
        };
        connection_->addMatch(rule, tell, sdbus::floating_slot);
    });
    if (!watched) logError(watched.error().description());
}

Result<> SessionBus::requestName(const std::string& name) {
    return onBus("take the name " + name, [&] { connection_->requestName(name); });
}

}  // namespace dayward
