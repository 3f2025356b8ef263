#include <gmock/gmock.h>

#include <algorithm>
#include <random>

#include "Classes/Event/HHEvent.h"
#include "alerts/AppBadge.h"
#include "alerts/BadgeNumbers.h"
#include "platform/Calendar.h"
#include "recurrence/XELEventMath.h"
#include "support/TestEnvironment.h"

namespace dayward {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr TimeInterval kDay{86400};

std::shared_ptr<HHEvent> event(const TestEnvironment& environment, const std::string& day,
                               std::vector<std::int64_t> times, std::optional<std::string> rrule = {}) {
    auto made = std::make_shared<HHEvent>();
    made->setDate(environment.at(day));
    made->setTimes(std::move(times));
    made->setRrule(std::move(rrule));
    return made;
}

/// As asked at that moment: what events keep of a later one is no answer.
std::int64_t freshDaysBefore(const Events& events, Date now) {
    for (const auto& event : events) event->moduleEventDateRefresh();
    return daysBefore(events, now);
}

class BadgeDays : public ::testing::Test {
protected:
    std::vector<std::string> texts(const std::vector<BadgeChange>& changes) const {
        std::vector<std::string> lines;
        for (const BadgeChange& change : changes) {
            lines.push_back(environment.text(change.date) + " " + std::to_string(change.number));
        }
        return lines;
    }
    [[nodiscard]] std::vector<std::string> before(const Events& events) const {
        return texts(changesOfDaysBefore(events, environment->now(), environment->now() + AppBadge::kWindow));
    }
    [[nodiscard]] std::vector<std::string> after(const HHEvent& event) const {
        return texts(changesOfDaysAfter(event, environment->now(), environment->now() + AppBadge::kWindow));
    }

    TestEnvironment environment;  // 2026-03-10T12:00:00 UTC
};

TEST_F(BadgeDays, ABegunDayBeforeCountsWhole) {
    const auto noon = event(environment, "2026-03-11", {720});
    const struct {
        const char* now;
        std::int64_t number;
    } cases[] = {{"2026-03-10T12:00:00", 1}, {"2026-03-10T11:59:59", 2}, {"2026-03-09T12:00:00", 2},
                 {"2026-03-11T11:59:59", 1}, {"2026-03-11T12:00:00", 0}, {"2026-03-12T00:00:00", 0}};
    for (const auto& each : cases) EXPECT_EQ(freshDaysBefore({noon}, environment.at(each.now)), each.number) << each.now;
    EXPECT_EQ(freshDaysBefore({noon}, environment->now() - TimeInterval(0.25)), 2) << "a moment more than a day";
    EXPECT_EQ(daysBefore({}, environment->now()), 0);
}

TEST_F(BadgeDays, FallDayByDayAndEndWithTheEvent) {
    EXPECT_THAT(before({event(environment, "2026-03-13", {1080})}),
                ElementsAre("2026-03-10T18:00:00 3", "2026-03-11T18:00:00 2", "2026-03-12T18:00:00 1",
                            "2026-03-13T18:00:00 0"));
    EXPECT_THAT(before({event(environment, "2026-03-12", {720})}),
                ElementsAre("2026-03-11T12:00:00 1", "2026-03-12T12:00:00 0"))
        << "what would fire now is left out";
    EXPECT_THAT(before({event(environment, "2026-03-01", {0})}), IsEmpty());
    EXPECT_EQ(before({event(environment, "2026-06-01", {720})}).size(), 30U) << "the event is beyond the window";
}

TEST_F(BadgeDays, GoOnWithTheNextEventOrOccurrence) {
    const auto soon = event(environment, "2026-03-11", {600});
    const auto later = event(environment, "2026-03-13", {1200});
    const std::vector<std::string> steps{"2026-03-11T10:00:00 3", "2026-03-11T20:00:00 2", "2026-03-12T20:00:00 1",
                                         "2026-03-13T20:00:00 0"};
    EXPECT_EQ(before({later, soon}), steps);
    const auto weekly = event(environment, "2026-03-05", {540}, "FREQ=WEEKLY;INTERVAL=1;UNTIL=20260312T100000Z");
    EXPECT_THAT(before({weekly}), ElementsAre("2026-03-11T09:00:00 1", "2026-03-12T09:00:00 0"));
}

TEST_F(BadgeDays, DoNotChangeWhileSomethingHappensEachDay) {
    EXPECT_THAT(before({event(environment, "2026-01-01", {540}, "FREQ=DAILY;INTERVAL=1")}), IsEmpty());
    EXPECT_THAT(before({event(environment, "2026-01-01", {540}, "FREQ=MINUTELY;INTERVAL=1")}), IsEmpty());
    // Far more than 30 dates before the number changes.
    EXPECT_THAT(before({event(environment, "2026-01-01", {0}, "FREQ=MINUTELY;INTERVAL=1;UNTIL=20260320T100000Z")}),
                ElementsAre("2026-03-20T10:00:00 0"));
}

TEST_F(BadgeDays, ARunningOccurrenceIsOverForTheCount) {
    const auto trip = event(environment, "2026-03-10", {600}, "FREQ=WEEKLY;INTERVAL=1");
    trip->setDuration(XDIDateInterval(CalendarUnit::hour, 5));
    EXPECT_TRUE(trip->isComing());
    EXPECT_EQ(daysBefore({trip}, environment->now()), 7);
}

TEST_F(BadgeDays, CountUpOnTheWallClockAfterTheLatestOccurrence) {
    const auto past = event(environment, "2026-03-08", {1080});
    EXPECT_EQ(daysAfter(*past, environment->now()), 1);
    EXPECT_EQ(daysAfter(*past, environment.at("2026-03-10T18:00:00")), 2);
    EXPECT_EQ(after(*past).size(), 30U);
    EXPECT_EQ(after(*past).front(), "2026-03-10T18:00:00 2");

    const auto coming = event(environment, "2026-03-12", {0}, "FREQ=WEEKLY;INTERVAL=2");
    EXPECT_EQ(daysAfter(*coming, environment->now()), 0);
    const auto steps = after(*coming);
    EXPECT_EQ(steps.front(), "2026-03-13T00:00:00 1") << "nothing changes when it happens for the first time";
    EXPECT_THAT(steps, ::testing::Contains("2026-03-26T00:00:00 0"));
    EXPECT_THAT(after(*event(environment, "2026-03-01", {540}, "FREQ=DAILY;INTERVAL=1")), IsEmpty());
    EXPECT_THAT(after(*event(environment, "2026-03-01", {})), IsEmpty());
}

TEST(BadgeDaysAcrossAClockChange, CountBeforeInSecondsAndAfterOnTheWallClock) {
    TestEnvironment environment({.zone = "Europe/Berlin", .now = "2026-03-28T12:00:00"});
    const Date until = environment->now() + kDay * 3;
    const auto past = event(environment, "2026-03-27", {0});
    const auto steps = changesOfDaysAfter(*past, environment->now(), until);
    ASSERT_EQ(steps.size(), 3U);
    EXPECT_EQ(environment.text(steps[0].date), "2026-03-29T00:00:00");
    EXPECT_EQ(environment.text(steps[1].date), "2026-03-30T00:00:00") << "the day had 23 hours";
    const auto coming = event(environment, "2026-03-30", {540});
    const auto falls = changesOfDaysBefore({coming}, environment->now(), until);
    ASSERT_EQ(falls.size(), 2U);
    EXPECT_EQ(environment.text(falls[0].date), "2026-03-29T09:00:00");
    EXPECT_EQ(freshDaysBefore({coming}, environment.at("2026-03-28T12:00:00")), 2);
    const auto earlier = event(environment, "2026-03-29", {540});
    EXPECT_EQ(daysBefore({earlier}, environment.at("2026-03-28T08:00:00")), 1) << "24 hours, though 25 on the clock";
}

// The whole window: what the last silent notification set is the number of every moment.

constexpr const char* kZones[] = {"UTC",          "Europe/Berlin",      "America/New_York",
                                  "Asia/Tehran",  "Australia/Lord_Howe", "America/Havana",
                                  "Asia/Kolkata", "Pacific/Apia",        "Africa/Cairo"};
constexpr const char* kMoments[] = {"2026-03-10T12:00:00", "2026-03-20T23:30:00", "2026-10-20T00:00:00",
                                    "2026-04-20T02:30:00", "2026-12-31T23:59:59", "2011-12-20T06:00:00"};
constexpr const char* kRules[] = {"",
                                  "FREQ=DAILY;INTERVAL=1",
                                  "FREQ=DAILY;INTERVAL=2",
                                  "FREQ=DAILY;INTERVAL=9;UNTIL=20260401T000000Z",
                                  "FREQ=WEEKLY;INTERVAL=1",
                                  "FREQ=WEEKLY;INTERVAL=1;BYDAY=MO,TH",
                                  "FREQ=MONTHLY;INTERVAL=1",
                                  "FREQ=HOURLY;INTERVAL=7;UNTIL=20260322T100000Z",
                                  "FREQ=HOURLY;INTERVAL=25",
                                  "FREQ=MINUTELY;INTERVAL=50;UNTIL=20261029T033000Z",
                                  "FREQ=YEARLY;INTERVAL=1"};

class BadgeWindow : public ::testing::TestWithParam<int> {
protected:
    int below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random); }
    template <std::size_t count>
    const char* oneOf(const char* const (&texts)[count]) {
        return texts[below(count)];
    }
    std::shared_ptr<HHEvent> randomEvent(const TestEnvironment& environment) {
        auto made = std::make_shared<HHEvent>();
        Calendar::Fields day = environment->calendar()->fields(environment->now() + kDay * (below(80) - 40));
        day.day = std::min(day.day, 28);  // the evaluation moves later days of a monthly rule
        made->setDate(environment->calendar()->date(day));
        std::vector<std::int64_t> times;
        for (int count = 1 + below(3); count > 0; --count) times.push_back(std::vector{0, 150, 540, below(1440)}[below(4)]);
        made->setTimes(times);
        if (const std::string rule = oneOf(kRules); !rule.empty()) made->setRrule(rule);
        if (below(3) == 0) made->setDuration(XDIDateInterval(CalendarUnit::hour, 1 + below(40)));
        return made;
    }
    /// Every occurrence of the time that matters, found by nothing but the evaluation of the events.
    static std::vector<Date> occurrences(const Events& events, Date now) {
        std::vector<Date> dates;
        for (const auto& each : events) {
            const XELEventMath math(each->rrule(), each->date(), each->times());
            const auto own = math.datesFromDate(now - kDay * 500, now + kDay * 500, 100000);
            dates.insert(dates.end(), own.begin(), own.end());
        }
        std::ranges::sort(dates);
        return dates;
    }
    static std::int64_t expectedBefore(const std::vector<Date>& dates, Date now) {
        const auto next = std::ranges::upper_bound(dates, now);
        if (next == dates.end()) return 0;
        return static_cast<std::int64_t>(std::ceil((*next - now).seconds() / 86400));
    }
    static std::int64_t expectedAfter(const std::vector<Date>& dates, Date now, const Calendar& calendar) {
        const auto next = std::ranges::upper_bound(dates, now);
        if (next == dates.begin()) return 0;
        Calendar::Fields day = calendar.fields(*std::prev(next));
        std::int64_t days = -1;
        for (; calendar.date(day) <= now; ++day.day) ++days;
        return days;
    }
    /// The moments to look at: around each change of either side, and some others.
    std::vector<Date> moments(const std::vector<BadgeChange>& changes, const std::vector<Date>& dates, Date now) {
        std::vector<Date> result{now, now + AppBadge::kWindow};
        const auto around = [&](Date date) {
            for (const double shift : {-1.0, -0.5, 0.0, 0.5, 1.0}) result.push_back(date + TimeInterval(shift));
        };
        for (const BadgeChange& change : changes) around(change.date);
        for (int count = 0; count < 60 && !dates.empty(); ++count) {
            around(dates[static_cast<std::size_t>(below(static_cast<int>(dates.size())))] + kDay * (below(9) - 4));
        }
        for (int count = 0; count < 200; ++count) result.push_back(now + TimeInterval(below(30 * 86400)));
        std::erase_if(result, [&](Date date) { return date < now || date > now + AppBadge::kWindow; });
        return result;
    }
    template <class Expected>
    void check(const std::vector<BadgeChange>& changes, std::int64_t first, const std::vector<Date>& dates, Date now,
               const Expected& expected) {
        ASSERT_TRUE(std::ranges::is_sorted(changes, std::less_equal<>(), &BadgeChange::date));
        for (const Date moment : moments(changes, dates, now)) {
            std::int64_t shown = first;
            for (const BadgeChange& change : changes) {
                if (change.date <= moment) shown = change.number;
            }
            ASSERT_EQ(shown, expected(moment)) << (moment - now).seconds() << " s later";
        }
        for (std::size_t index = 0; index < changes.size(); ++index) {
            ASSERT_NE(changes[index].number, index == 0 ? first : changes[index - 1].number) << "says nothing new";
        }
    }

    std::mt19937 random{static_cast<unsigned>(GetParam())};
};

TEST_P(BadgeWindow, IsRightAtEveryMoment) {
    const std::string zone = oneOf(kZones), start = oneOf(kMoments);
    SCOPED_TRACE("seed " + std::to_string(GetParam()) + ", " + zone + ", " + start);
    TestEnvironment environment({.zone = zone, .now = start});
    const auto calendar = environment->calendar();
    const Date now = environment->now() + TimeInterval(below(2) * 0.4);
    const Date until = now + AppBadge::kWindow;
    Events events;
    for (int count = 1 + below(6); count > 0; --count) events.push_back(randomEvent(environment));
    const auto all = occurrences(events, now);
    check(changesOfDaysBefore(events, now, until), daysBefore(events, now), all, now, [&](Date moment) {
        EXPECT_EQ(freshDaysBefore(events, moment), expectedBefore(all, moment));
        return expectedBefore(all, moment);
    });
    const HHEvent& one = *events.front();
    const auto own = occurrences({events.front()}, now);
    check(changesOfDaysAfter(one, now, until), daysAfter(one, now), own, now, [&](Date moment) {
        EXPECT_EQ(daysAfter(one, moment), expectedAfter(own, moment, *calendar));
        return expectedAfter(own, moment, *calendar);
    });
}

INSTANTIATE_TEST_SUITE_P(Seeds, BadgeWindow, ::testing::Range(1, 151));

}  // namespace
}  // namespace dayward
