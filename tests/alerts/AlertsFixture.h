// Events in a store, and a device's schedule that counts what it is asked.
#pragma once

#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <vector>

#include "Classes/Event/EventLocalStore.h"
#include "Classes/Event/HHEvent.h"
#include "alerts/EventNotification.h"
#include "support/FakeLocalNotifications.h"
#include "support/TestEnvironment.h"

namespace dayward {

inline std::shared_ptr<HHEvent> eventOn(const std::string& identifier, Date date, std::vector<XDIDateInterval> alerts,
                                        std::vector<std::int64_t> times = {0},
                                        std::optional<std::string> rule = std::nullopt) {
    auto event = std::make_shared<HHEvent>(identifier);
    event->setName("Event " + identifier);
    event->setDate(date);
    event->setTimes(std::move(times));
    event->setRrule(std::move(rule));
    event->alerts().list = std::move(alerts);
    return event;
}

inline XDIDateInterval before(CalendarUnit unit, double value) { return {unit, value}; }
inline XDIDateInterval after(CalendarUnit unit, double value) { return {unit, -value}; }
inline const XDIDateInterval onEvent;

class AlertsFixture : public testing::Test {
protected:
    explicit AlertsFixture(TestEnvironment::Options options = {}) : environment(with(std::move(options), device)) {}

    static TestEnvironment::Options with(TestEnvironment::Options options,
                                         const std::shared_ptr<FakeLocalNotifications>& device) {
        options.localNotifications = device;
        return options;
    }
    [[nodiscard]] static EventLocalStore& store() { return EventLocalStore::shared(); }
    [[nodiscard]] Date at(const std::string& time) const { return environment.at(time); }

    /// "2026-03-11T09:00:00 Event a is happening!", by fire date.
    [[nodiscard]] std::vector<std::string> lines(const std::vector<LocalNotification>& notifications) const {
        std::vector<std::string> result;
        for (const LocalNotification& one : notifications)
            result.push_back(environment.text(*one.fireDate) + " " + one.alertBody.value_or(""));
        return result;
    }
    [[nodiscard]] std::vector<std::string> scheduled() const { return lines(device->scheduledLocalNotifications()); }
    [[nodiscard]] std::size_t countOf(const std::string& identifier) const {
        const auto all = device->scheduledLocalNotifications();
        return static_cast<std::size_t>(
            std::ranges::count_if(all, [&](const LocalNotification& one) { return eventIdentifier(one) == identifier; }));
    }

    std::shared_ptr<FakeLocalNotifications> device = std::make_shared<FakeLocalNotifications>();
    TestEnvironment environment;
};

}  // namespace dayward
