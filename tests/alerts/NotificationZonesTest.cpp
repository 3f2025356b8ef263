// Fire dates around every change of a clock: in each zone, around each change of offset of 2020 to 2040, events at
// midnight, 02:30 and 09:00 against days counted on the wall clock, without rules or calendars.
// DAYWARD_ALL_ZONES=1 asks in every zone instead of some.
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iostream>
#include <iterator>
#include <set>

#include "alerts/XELNotificationCreator.h"
#include "platform/CivilDay.h"
#include "support/TestEnvironment.h"

namespace dayward {
namespace {

constexpr std::int64_t kDay = 86400;
constexpr std::size_t kDates = 6;

/// What the clocks of a zone show, as day numbers and seconds of the day.
class WallClock {
public:
    struct Shown {
        std::int64_t day, second;
    };

    explicit WallClock(TimeZone zone) : zone_(std::move(zone)) {}

    [[nodiscard]] Shown at(Date instant) const {
        const auto local = static_cast<std::int64_t>(zone_.localOfInstant(instant)) + kReferenceSeconds;
        return {floorDivide(local, kDay), floorModulo(local, kDay)};
    }
    [[nodiscard]] Date instantOf(Shown shown) const {
        return zone_.instantOfLocal(static_cast<double>(shown.day * kDay + shown.second - kReferenceSeconds));
    }
    [[nodiscard]] bool shows(Shown time) const { return at(instantOf(time)).second == time.second; }

private:
    TimeZone zone_;
};

struct Offset {
    std::int64_t months = 0, days = 0, seconds = 0;

    [[nodiscard]] XDIDateInterval interval() const {
        XDIDateInterval interval;
        if (months != 0) interval.month = static_cast<double>(months);
        if (days != 0) interval.day = static_cast<double>(days);
        if (seconds % 3600 != 0) {
            interval.minute = static_cast<double>(seconds / 60);
        } else if (seconds != 0) {
            interval.hour = static_cast<double>(seconds / 3600);
        }
        return interval;
    }
    /// The instant moved by the offset, `sign` 1 or -1.
    [[nodiscard]] Date from(Date date, std::int64_t sign, const WallClock& clock) const {
        if (months != 0 || days != 0) {
            WallClock::Shown shown = clock.at(date);
            const CivilDay civil = civilDayOf(shown.day);
            const std::int64_t month = civil.year * 12 + civil.month - 1 + sign * months;
            const std::int64_t year = floorDivide(month, 12);
            const int ofYear = static_cast<int>(floorModulo(month, 12)) + 1;
            shown.day = dayNumberOf(year, ofYear, std::min(civil.day, daysInMonthOf(year, ofYear))) + sign * days;
            date = clock.instantOf(shown);
        }
        return date + TimeInterval(static_cast<double>(sign * seconds));
    }
};

struct Repeat {
    const char* rule;
    std::int64_t begins;  ///< so many days before the day in question, or months below 0
    bool (*includes)(std::int64_t start, std::int64_t day);
};

constexpr Repeat kRepeats[] = {
    {"FREQ=DAILY;INTERVAL=1", 3, [](std::int64_t, std::int64_t) { return true; }},
    {"FREQ=WEEKLY;INTERVAL=1", 14, [](std::int64_t start, std::int64_t day) { return (day - start) % 7 == 0; }},
    {"FREQ=MONTHLY;INTERVAL=1", -3,
     [](std::int64_t start, std::int64_t day) { return civilDayOf(start).day == civilDayOf(day).day; }},
    {"FREQ=YEARLY;INTERVAL=1", -24,
     [](std::int64_t start, std::int64_t day) {
         const CivilDay first = civilDayOf(start), other = civilDayOf(day);
         return first.month == other.month && first.day == other.day;
     }},
};

constexpr Offset kOffsets[] = {{},          {0, 0, 90 * 60}, {0, 0, -90 * 60}, {0, 0, 3 * 3600}, {0, 0, -3 * 3600},
                               {0, 1, 0},   {0, -1, 0},      {1, 0, 0},        {-1, 0, 0}};

std::int64_t startDay(const Repeat& repeat, std::int64_t day) {
    if (repeat.begins > 0) return day - repeat.begins;
    const CivilDay civil = civilDayOf(day);
    const std::int64_t month = civil.year * 12 + civil.month - 1 + repeat.begins;
    // What a rule makes of a month that lacks its day is no matter of zones.
    constexpr int kDayOfEveryMonth = 28;
    return dayNumberOf(floorDivide(month, 12), static_cast<int>(floorModulo(month, 12)) + 1,
                       std::min(civil.day, kDayOfEveryMonth));
}

struct Expected {
    Date occurrence, fires;
};

class ZoneCheck {
public:
    explicit ZoneCheck(const std::string& zone)
        : environment_(optionsIn(zone)), clock_(environment_->timeZone()), zone_(environment_->timeZone()) {}

    void run() {
        Date transition = Date::since1970(static_cast<double>(dayNumberOf(2020, 1, 1) * kDay));
        const Date end = Date::since1970(static_cast<double>(dayNumberOf(2041, 1, 1) * kDay));
        while (const auto next = zone_.nextTransitionAfter(transition)) {
            transition = *next;
            if (transition >= end || ::testing::Test::HasFailure()) break;
            ++transitions;
            for (const double days : {-1.0, 0.0, 1.0}) checkAt(transition, transition + TimeInterval(days * kDay));
        }
    }

    std::size_t transitions = 0, lists = 0, dates = 0;

private:
    static TestEnvironment::Options optionsIn(const std::string& zone) {
        TestEnvironment::Options options;
        options.zone = zone;
        return options;
    }

    void checkAt(Date transition, Date now) {
        environment_.clock->set(now);
        const std::int64_t middle = clock_.at(transition).day;
        for (const Repeat& repeat : kRepeats) {
            for (const std::int64_t shift : {-1, 0, 1}) {
                const std::int64_t start = startDay(repeat, middle + shift);
                for (const std::int64_t minutes : {0, 150, 540}) {
                    for (const Offset& offset : kOffsets) check(now, repeat, start, minutes, offset);
                }
            }
        }
    }

    void check(Date now, const Repeat& repeat, std::int64_t start, std::int64_t minutes, const Offset& offset) {
        // An event that begins at a skipped time lives at the later one.
        const std::int64_t second = clock_.at(clock_.instantOf({start, minutes * 60})).second;
        const std::vector<Expected> expected = expectedDates(now, repeat, start, second, offset);
        const std::vector<LocalNotification> found = notifications(repeat, start, minutes, offset);
        ++lists;
        dates += found.size();
        const auto context = [&] {
            return zone_.name() + " " + environment_.text(now) + " " + repeat.rule + " from day " +
                   std::to_string(start) + " at " + std::to_string(minutes) + ", alert " +
                   std::to_string(offset.months) + " " + std::to_string(offset.days) + " " +
                   std::to_string(offset.seconds);
        };
        ASSERT_EQ(found.size(), expected.size()) << context();
        for (std::size_t i = 0; i < found.size(); ++i) {
            const Date fires = *found[i].fireDate;
            ASSERT_EQ(environment_.text(fires), environment_.text(expected[i].fires)) << context();
            ASSERT_EQ(fires, expected[i].fires) << context();
            ASSERT_GE(fires, now) << context();
            if (offset.seconds == 0) checkWallTime(expected[i], second, context());
            if (i == 0) continue;
            const Date last = *found[i - 1].fireDate;
            // Several days of a long month have one day in a shorter one.
            const bool isShared = offset.months != 0 && civilDayOf(clock_.at(fires).day).day >= 28;
            ASSERT_TRUE(fires > last || (isShared && clock_.at(fires).day == clock_.at(last).day)) << context();
            if (offset.seconds == 0 && !isShared) {
                ASSERT_GT(clock_.at(fires).day, clock_.at(last).day) << "twice, " << context();
            }
        }
    }

    /// The event's time of day, where the clocks of its day and of the alert's day show it.
    void checkWallTime(const Expected& expected, std::int64_t second, const std::string& context) const {
        const bool isShown = clock_.shows({clock_.at(expected.occurrence).day, second}) &&
                             clock_.shows({clock_.at(expected.fires).day, second});
        if (isShown) {
            ASSERT_EQ(clock_.at(expected.fires).second, second) << context;
        }
    }

    std::vector<LocalNotification> notifications(const Repeat& repeat, std::int64_t start, std::int64_t minutes,
                                                 const Offset& offset) const {
        XELNotificationCreator creator;
        creator.startDateDay = clock_.instantOf({start, kDay / 2});
        creator.startDateTimes = {minutes};
        creator.rrule = repeat.rule;
        creator.alerts = {offset.interval()};
        creator.maxNotificationsCount = kDates;
        return creator.getNotifications();
    }

    std::vector<Expected> expectedDates(Date now, const Repeat& repeat, std::int64_t start, std::int64_t second,
                                        const Offset& offset) const {
        const Date from = offset.from(now, 1, clock_), to = from + TimeInterval(365.0 * kDay);
        std::vector<Expected> result;
        std::size_t taken = 0;
        for (std::int64_t day = std::max(start, clock_.at(from).day - 1); taken < kDates; ++day) {
            if (!repeat.includes(start, day)) continue;
            const Date occurrence = clock_.instantOf({day, second});
            if (occurrence <= from) continue;
            if (occurrence > to && taken > 0) break;
            ++taken;
            const Date fires = offset.from(occurrence, -1, clock_);
            if (fires >= now) result.push_back({occurrence, fires});
            if (occurrence > to) break;
        }
        return result;
    }

    TestEnvironment environment_;
    WallClock clock_;
    TimeZone zone_;
};

/// One name for each set of rules.
std::vector<std::string> zones() {
    std::vector<std::string> names;
    std::set<std::string> known;
    for (const std::string& name : TimeZone::knownNames()) {
        std::ifstream file("/usr/share/zoneinfo/" + name, std::ios::binary);
        if (known.insert({std::istreambuf_iterator<char>(file), {}}).second) names.push_back(name);
    }
    if (std::getenv("DAYWARD_ALL_ZONES") != nullptr) return names;
    std::vector<std::string> some{"Africa/Casablanca", "America/New_York", "America/Havana",      "Asia/Beirut",
                                  "Asia/Gaza",         "Australia/Lord_Howe", "Europe/Berlin",     "Pacific/Apia"};
    for (std::size_t index = 0; index < names.size(); index += 60) some.push_back(names[index]);
    return some;
}

TEST(NotificationZones, FireDatesFollowTheWallClockAcrossItsChanges) {
    std::size_t transitions = 0, lists = 0, dates = 0;
    const std::vector<std::string> names = zones();
    for (const std::string& name : names) {
        ZoneCheck check(name);
        check.run();
        if (HasFailure()) return;
        transitions += check.transitions;
        lists += check.lists;
        dates += check.dates;
    }
    std::cout << names.size() << " zones, " << transitions << " changes, " << lists << " lists, " << dates
              << " fire dates\n";
    EXPECT_GT(transitions, 100u);
}

}  // namespace
}  // namespace dayward
