// An agent over a file system in memory, with clocks that stand until a test moves them.
#pragma once

#include <gmock/gmock.h>

#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "agent/Agent.h"
#include "agent/DeliveryKey.h"
#include "alerts/EventNotification.h"
#include "platform/Archivable.h"
#include "support/FaultFileSystem.h"

namespace dayward {

class ManualTime final : public AgentTime {
public:
    [[nodiscard]] Date now() const override { return now_; }
    [[nodiscard]] TimeInterval elapsed() const override { return elapsed_; }
    [[nodiscard]] TimeZone zone() const override { return zone_; }

    void pass(double seconds) {
        now_ = now_ + TimeInterval(seconds);
        elapsed_ = elapsed_ + TimeInterval(seconds);
    }
    /// The device sleeps, or the clock is set.
    void jump(double seconds) { now_ = now_ + TimeInterval(seconds); }
    void travel(const std::string& zone) { zone_ = *TimeZone::named(zone); }

private:
    Date now_ = Date::sinceReference(800000000);
    TimeInterval elapsed_{100};
    TimeZone zone_ = TimeZone::utc();
};

inline std::string bodies(const std::vector<DueAlert>& alerts) {
    std::string line = "[";
    for (const DueAlert& alert : alerts) line += (line.size() > 1 ? " " : "") + alert.notification.alertBody.value();
    return line + "]";
}

/// Writes down what it is asked to do: bodies, a digest's in brackets.
class ListingDisplay final : public NotificationDisplay {
public:
    void setListener(NotificationDisplayListener* one) override { listener = one; }
    Result<> show(const DueAlert& alert) override {
        if (isBroken) return failure("display");
        lines.push_back((alert.isLate ? "late " : "") + alert.notification.alertBody.value());
        keys.insert(alert.key);
        return {};
    }
    Result<> showDigest(const std::vector<DueAlert>& alerts) override {
        if (isBroken) return failure("display");
        for (const DueAlert& alert : alerts) keys.insert(alert.key);
        lines.push_back(bodies(alerts));
        return {};
    }
    void withdraw(const std::string& key) override { withdrawn.push_back(key); }
    void setBadgeNumber(std::int64_t number) override { badges.push_back(number); }

    std::vector<std::string> takeLines() { return std::exchange(lines, {}); }

    NotificationDisplayListener* listener = nullptr;
    std::vector<std::string> lines, withdrawn;
    std::vector<std::int64_t> badges;
    std::set<std::string> keys;
    bool isBroken = false;
};

class ListingLink final : public ApplicationLink {
public:
    bool deliver(const LocalNotification& notification) override {
        if (isInFront) delivered.push_back(notification.alertBody.value());
        return isInFront;
    }
    bool deliverDigest(const std::vector<DueAlert>& alerts) override {
        if (isInFront) delivered.push_back(bodies(alerts));
        return isInFront;
    }
    Result<> open(const LocalNotification& notification) override {
        opened.push_back(notification);
        return {};
    }
    void performFetch(std::function<void(bool)> done) override {
        if (whileAsked) whileAsked();
        if (!isRunning) return done(false);
        ++fetches;
        isSlow ? void(finishFetch = std::move(done)) : done(true);
    }

    bool isInFront = false, isRunning = false;
    bool isSlow = false;  ///< a fetch ends when the test says so
    std::function<void(bool)> finishFetch;
    std::function<void()> whileAsked;
    int fetches = 0;
    std::vector<std::string> delivered;
    std::vector<LocalNotification> opened;
};

class ManualRefresher final : public ScheduleRefresher {
public:
    Result<> start(std::function<void(bool)> done) override {
        ++starts;
        finish = std::move(done);
        return {};
    }

    int starts = 0;
    std::function<void(bool)> finish;
};

class AgentTest : public testing::Test {
protected:
    static constexpr const char* kDirectory = "/state";

    AgentTest() {
        EXPECT_TRUE(files->createDirectories(kDirectory));
        link.isRunning = true;
        start();
    }
    /// A new process in the place of the one that there was.
    void start() {
        agent.reset();
        const std::string claimant = "agent " + std::to_string(++processes);
        living = {claimant};
        agent = makeAgent(claimant);
    }
    std::unique_ptr<Agent> makeAgent(const std::string& claimant) {
        return std::make_unique<Agent>(
            Deliverer::Parts{schedule, record, time, display, link, claimant,
                             [this](const std::string& one) { return living.contains(one); }},
            refresher);
    }
    /// What was shown.
    std::vector<std::string> wake() {
        do agent->wake();
        while (agent->wantsWake());
        EXPECT_NE(agent->retryAfter(), TimeInterval()) << "it would spin";
        return display.takeLines();
    }

    LocalNotification in(double seconds, const std::string& body) const {
        LocalNotification notification;
        notification.fireDate = time.now() + TimeInterval(seconds);
        notification.alertBody = body;
        setEventIdentifier(notification, "owner of " + body);
        return notification;
    }
    void add(const std::vector<LocalNotification>& notifications) {
        ASSERT_TRUE(schedule.change([&](NotificationSchedule::Content& content) {
            for (const auto& notification : notifications) content.schedule(notification);
        }));
    }
    NotificationSchedule::Content content() const { return schedule.read().value(); }

    const std::shared_ptr<FaultFileSystem> files = std::make_shared<FaultFileSystem>();
    const std::shared_ptr<const ArchiveClasses> classes = std::make_shared<ArchiveClasses>();
    NotificationSchedule schedule{files, classes, kDirectory};
    DeliveryRecord record{files, classes, kDirectory};
    ManualTime time;
    ListingDisplay display;
    ListingLink link;
    ManualRefresher refresher;
    std::set<std::string> living;
    int processes = 0;
    std::unique_ptr<Agent> agent;
};

}  // namespace dayward
