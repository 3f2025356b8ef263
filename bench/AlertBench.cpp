// Keeping the schedule of notifications: everything anew, against asking each event once for its next date, and the
// change of one event in a large store. The schedule is kept in memory, and stands as it is after the first round.
#include <map>
#include <string>
#include <vector>

#include "Classes/Event/EventLocalStore.h"
#include "Classes/Event/HHEvent.h"
#include "alerts/NotificationsManager.h"
#include "platform/LocalNotifications.h"
#include "recurrence/XELEventMath.h"
#include "support/Bench.h"
#include "support/StoreHome.h"
#include "support/TypicalEvent.h"
#include "tests/support/FakeLocalNotifications.h"

namespace {

using namespace dayward;

/// Of twenty events: birthdays and the like, single dates, what comes each month, week or day.
std::optional<std::string> ruleOf(int number) {
    switch (number % 20) {
        case 0: return "FREQ=DAILY;INTERVAL=1";
        case 1: case 2: return "FREQ=WEEKLY;INTERVAL=1;BYDAY=MO,TH";
        case 3: case 4: return "FREQ=MONTHLY;INTERVAL=1";
        case 5: case 6: case 7: case 8: return std::nullopt;
        default: return "FREQ=YEARLY;INTERVAL=1";
    }
}

/// With the three alerts of the typical event.
std::shared_ptr<HHEvent> eventOf(int number) {
    auto event = std::make_shared<HHEvent>(bench::typicalEvent(number));
    constexpr int kDays = 730;
    event->setDate(Environment::current().now() + TimeInterval(86400.0 * (number * 7 % kDays - kDays / 3)));
    event->setRrule(ruleOf(number));
    return event;
}

/// Of a home with so many events, all of them scheduled; kept until the program ends.
Environment& environmentOf(int count) {
    // The directory first: it goes when the environments over it have ended.
    static const std::string homes = bench::freshPath();
    static std::map<int, std::unique_ptr<Environment>> environments;
    auto& environment = environments[count];
    if (environment) return *environment;
    environment = bench::linuxEnvironment(homes + "/" + std::to_string(count), std::make_shared<FakeLocalNotifications>());
    const EnvironmentScope scope(environment.get());
    std::vector<std::shared_ptr<HHEvent>> events;
    for (int number = 0; number < count; ++number) events.push_back(eventOf(number));
    EventLocalStore::shared().updateEvents(events);
    if (!EventLocalStore::shared().flush()) std::abort();
    NotificationsManager::syncRefresh();
    if (environment->localNotifications()->scheduledLocalNotifications().size() != LocalNotifications::kMaximumCount)
        std::abort();
    return *environment;
}

void refresh(benchmark::State& state, int count) {
    const EnvironmentScope scope(&environmentOf(count));
    for (auto _ : state) NotificationsManager::syncRefresh();
}

void askEach(benchmark::State& state, int count) {
    const EnvironmentScope scope(&environmentOf(count));
    const auto events = EventLocalStore::shared().allEvents();
    for (auto _ : state) {
        const Date now = Environment::current().now();
        for (const auto& event : events) {
            const XELEventMath math(event->rrule(), event->date(), event->times());
            benchmark::DoNotOptimize(math.dateAfterDate(now));
        }
    }
}

void updateOne(benchmark::State& state, int count) {
    const EnvironmentScope scope(&environmentOf(count));
    const auto event = EventLocalStore::shared().eventByIdentifier(bench::typicalEvent(20).identifier());
    for (auto _ : state) {
        NotificationsManager::updateForEvent(event);
        NotificationsManager::flush();
    }
}

}  // namespace

DAYWARD_BENCH(refresh_alerts_100, ours) { refresh(state, 100); }
DAYWARD_BENCH(refresh_alerts_100, ask_each) { askEach(state, 100); }
DAYWARD_BENCH(refresh_alerts_1000, ours) { refresh(state, 1000); }
DAYWARD_BENCH(refresh_alerts_1000, ask_each) { askEach(state, 1000); }
DAYWARD_BENCH(refresh_alerts_10000, ours) { refresh(state, 10000); }
DAYWARD_BENCH(refresh_alerts_10000, ask_each) { askEach(state, 10000); }
DAYWARD_BENCH(update_alerts, ours) { updateOne(state, 10000); }
DAYWARD_BENCH(update_alerts, few) { updateOne(state, 100); }
