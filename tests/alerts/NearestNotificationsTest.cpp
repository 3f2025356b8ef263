// The nearest notifications of many events against building all, sorting and cutting.
// DAYWARD_NEAREST_CASES sets the number of random stores (300 without it).
#include "alerts/NearestNotifications.h"

#include <algorithm>
#include <cstdlib>
#include <random>

#include "AlertsFixture.h"
#include "alerts/EventNotifications.h"
#include "alerts/NotificationDifference.h"

namespace dayward {
namespace {

using Events = std::vector<std::shared_ptr<HHEvent>>;

class Random {
public:
    explicit Random(unsigned seed) : engine_(seed) {}

    int number(int first, int last) { return std::uniform_int_distribution<int>(first, last)(engine_); }
    template <class T, std::size_t N>
    const T& one(const T (&of)[N]) {
        return of[static_cast<std::size_t>(number(0, static_cast<int>(N) - 1))];
    }
    XDIDateInterval alert() {
        static constexpr CalendarUnit units[] = {CalendarUnit::year, CalendarUnit::month,  CalendarUnit::week,  CalendarUnit::day,
                                                 CalendarUnit::hour, CalendarUnit::minute, CalendarUnit::second};
        XDIDateInterval interval;
        for (int count = number(0, 2); count > 0; --count) interval.setValue(number(-40, 40), one(units));
        return number(0, 20) == 0 ? XDIDateInterval(one(units), 1e17 * number(-9, 9)) : interval;
    }
    std::vector<XDIDateInterval> alerts() {
        static const XDIDateInterval usual[] = {onEvent, before(CalendarUnit::day, 1), before(CalendarUnit::hour, 2),
                                                before(CalendarUnit::minute, 5), after(CalendarUnit::day, 1)};
        std::vector<XDIDateInterval> list;
        for (int count = number(0, 4); count > 0; --count) list.push_back(number(0, 3) == 0 ? alert() : one(usual));
        return list;
    }
    std::vector<std::int64_t> times() {
        static constexpr std::int64_t usual[] = {0, 0, 0, 150, 540};
        std::vector<std::int64_t> times;
        for (int count = number(0, 9) == 0 ? 0 : number(1, 2); count > 0; --count)
            times.push_back(number(0, 2) == 0 ? number(0, 1439) : one(usual));
        return times;
    }
    Events events(Date now, int count) {
        static const std::optional<std::string> rules[] = {
            std::nullopt,
            "FREQ=MINUTELY;INTERVAL=7",
            "FREQ=HOURLY;INTERVAL=5",
            "FREQ=DAILY;INTERVAL=1",
            "FREQ=DAILY;INTERVAL=1",
            "FREQ=WEEKLY;INTERVAL=1;BYDAY=MO,FR,SU",
            "FREQ=MONTHLY;INTERVAL=1",
            "FREQ=MONTHLY;INTERVAL=2;BYDAY=-1SU",
            "FREQ=YEARLY;INTERVAL=1",
            "FREQ=YEARLY;INTERVAL=5",
            "FREQ=DAILY;INTERVAL=1;COUNT=9",
            "FREQ=MONTHLY;INTERVAL=1;COUNT=4",
            "FREQ=DAILY;INTERVAL=3;UNTIL=20270101T000000Z",
            "FREQ=WEEKLY;INTERVAL=3;WKST=SU;BYDAY=MO,SU",
            "FREQ=MONTHLY;INTERVAL=1;BYMONTHDAY=31,-1,15",
            "FREQ=MONTHLY;INTERVAL=1;BYDAY=MO,TU,WE;BYSETPOS=2,-1",
            "FREQ=YEARLY;INTERVAL=1;BYYEARDAY=60,366",
            "FREQ=YEARLY;INTERVAL=1;BYWEEKNO=1,10",
            "FREQ=DAILY;INTERVAL=1;BYHOUR=2,3",
            "FREQ=NO",
        };
        Events events;
        for (int index = 0; index < count; ++index) {
            const TimeInterval away(86400.0 * number(-40, 40) + number(-86400, 86400));
            events.push_back(eventOn(std::to_string(index), now + away, alerts(), times(), one(rules)));
        }
        return events;
    }

private:
    std::mt19937 engine_;
};

/// What a difference is seen by.
std::vector<std::string> lines(const TestEnvironment& environment, const std::vector<LocalNotification>& notifications) {
    std::vector<std::string> result;
    for (const LocalNotification& one : notifications)
        result.push_back(environment.text(*one.fireDate) + " " + one.alertBody.value_or("silent"));
    return result;
}

std::vector<LocalNotification> plainly(const Events& events, std::vector<LocalNotification> others,
                                       std::size_t count) {
    for (const auto& event : events) std::ranges::move(notificationsOfEvent(*event), std::back_inserter(others));
    std::ranges::stable_sort(others, firesBefore);
    others.resize(std::min(others.size(), count));
    return others;
}

int numberOfCases() {
    const char* given = std::getenv("DAYWARD_NEAREST_CASES");
    return given ? std::atoi(given) : 300;
}

TEST(NearestNotifications, AreThoseOfTheWholeList) {
    static constexpr const char* zones[] = {"UTC", "Europe/Berlin", "America/New_York", "Australia/Lord_Howe"};
    // Around changes of these clocks, and at month ends.
    static constexpr const char* moments[] = {"2026-03-28T22:00:00", "2026-03-30T00:00:00", "2026-10-25T01:30:00",
                                              "2026-01-31T12:00:00", "2026-10-04T01:00:00", "2026-11-01T00:30:00",
                                              "2028-02-29T23:59:59", "2026-03-08T03:10:00"};
    int seed = 20260310;
    for (const char* zone : zones) {
        TestEnvironment::Options options;
        options.zone = zone;
        TestEnvironment environment(options);
        for (int round = 0; round < numberOfCases() / 4; ++round, ++seed) {
            Random random(static_cast<unsigned>(seed));
            const Date now = environment.at(random.one(moments)) + TimeInterval(random.number(-3600, 3600));
            environment.clock->set(now);
            const Events events = random.events(now, random.number(0, 40));
            std::vector<LocalNotification> others(static_cast<std::size_t>(random.number(0, 3)));
            for (LocalNotification& other : others) {
                other.fireDate = now + TimeInterval(random.number(0, 86400));
                other.applicationIconBadgeNumber = 1;
            }
            const std::size_t count = random.number(0, 2) == 0 ? static_cast<std::size_t>(random.number(0, 5)) : 64;
            const auto found = nearestNotifications(events, others, count);
            ASSERT_EQ(lines(environment, found), lines(environment, plainly(events, others, count)))
                << "seed " << seed << " in " << zone;
        }
    }
}

TEST(NearestNotifications, OfTheSameMomentAreThoseOfTheFirstIdentifiers) {
    TestEnvironment environment;
    Events events;
    for (char name = 'z'; name >= 'a'; --name)
        events.push_back(eventOn({name}, environment.at("2026-01-01"), {onEvent}, {0}, "FREQ=DAILY;INTERVAL=1"));
    LocalNotification silent;
    silent.fireDate = environment.at("2026-03-11");
    silent.applicationIconBadgeNumber = 3;
    const auto found = nearestNotifications(events, {silent}, 28);
    ASSERT_EQ(found.size(), 28u);
    EXPECT_EQ(eventIdentifier(found[0]), "a");
    EXPECT_EQ(eventIdentifier(found[25]), "z");
    EXPECT_EQ(found[26], silent);
    EXPECT_EQ(eventIdentifier(found[27]), "a");
    EXPECT_EQ(environment.text(*found[27].fireDate), "2026-03-12T00:00:00");
}

}  // namespace
}  // namespace dayward
