// Rules without BY parts: the closed form against libical's walk on the wall clock; rules of days with BY parts:
// the whole answer against the same. All rules: the short road to an instant against the walk over instants
// where clocks change. DAYWARD_RULE_CASES sets the number of random cases (20000 without it).
#include "recurrence/ClosedForm.h"

#include <gtest/gtest.h>
#include <libical/ical.h>

#include <cstdlib>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "platform/CivilDay.h"
#include "recurrence/InstantWalk.h"
#include "recurrence/XELRRuleMath.h"
#include "support/TestEnvironment.h"

namespace dayward {
namespace {

constexpr unsigned kSeed = 20290228;
constexpr std::int64_t kDay = 86400;

int numberOfCases() {
    const char* given = std::getenv("DAYWARD_RULE_CASES");
    return given ? std::atoi(given) : 20000;
}

icaltimetype libicalTime(std::int64_t seconds) {
    const IcalTime time = icalTimeOfSeconds(seconds);
    icaltimetype result = icaltime_null_time();
    result.year = time.year;
    result.month = time.month;
    result.day = time.day;
    result.hour = time.hour;
    result.minute = time.minute;
    result.second = time.second;
    icaltime_set_timezone(&result, icaltimezone_get_utc_timezone());
    return result;
}

std::string text(std::int64_t seconds) {
    return seconds == kNoOccurrence ? "none" : icaltime_as_ical_string(libicalTime(seconds));
}

class Cases {
public:
    struct Case {
        std::string rule;
        std::int64_t start, after;
    };

    /// With starts from one year to another.
    Case make(int firstYear, int lastYear) {
        static constexpr const char* frequencies[] = {"SECONDLY", "MINUTELY", "HOURLY", "DAILY",
                                                      "WEEKLY",   "MONTHLY",  "YEARLY"};
        static constexpr std::int64_t seconds[] = {1, 60, 3600, kDay, 7 * kDay, 30 * kDay, 365 * kDay};
        const int frequency = chance(2) ? number(5, 6) : number(0, 4);
        Case made;
        made.rule = std::string("FREQ=") + frequencies[frequency];
        std::int64_t step = seconds[frequency];
        if (!chance(3)) {
            const int interval = chance(12) ? number(1, 32767) : number(1, frequency < 5 ? 50 : 14);
            made.rule += ";INTERVAL=" + std::to_string(interval);
            step *= interval;
        }
        if (chance(8)) made.rule += ";WKST=SU";
        made.start = startIn(number(firstYear, lastYear));
        made.after = near(made.start, step, frequency >= 5);
        if (chance(4)) {
            made.rule += ";COUNT=" + std::to_string(number(1, chance(3) ? 400 : 6));
        } else if (chance(3)) {
            const std::int64_t end = near(chance(2) ? made.start : made.after, step, frequency >= 5);
            const std::string until = text(std::max(end, kFirstDay * kDay));
            made.rule += ";UNTIL=" + (chance(5) ? until.substr(0, 8) : until);
        }
        return made;
    }

    /// BY parts, by days and, unsorted, by times of day about a change of the clock.
    std::string lists() {
        static constexpr const char* parts[] = {
            ";BYDAY=SU",     ";BYDAY=MO,SU,TU", ";BYMONTHDAY=1,-1,15",         ";BYDAY=-1SU",
            ";BYMONTH=3,11", ";BYDAY=1SU,2SU",  ";BYMONTH=3,10;BYDAY=-1SU,1SU"};
        static constexpr const char* times[] = {"", ";BYHOUR=2", ";BYHOUR=3,1,2", ";BYHOUR=0,1,2;BYMINUTE=45,15"};
        return (chance(4) ? "" : parts[number(0, 6)]) + std::string(times[number(0, 3)]);
    }

    int number(int low, int high) { return std::uniform_int_distribution<int>(low, high)(engine_); }
    bool chance(int oneIn) { return number(1, oneIn) == 1; }

private:
    /// Often at the end of a month, on a leap day or at the turn of the year.
    std::int64_t startIn(int year) {
        const int month = chance(3) ? 2 : number(1, 12);
        const int day = chance(2) ? daysInMonthOf(year, month) - number(0, 3) : number(1, 28);
        std::int64_t dayNumber = dayNumberOf(year, month, day);
        if (chance(12)) dayNumber = dayNumberOf(year / 4 * 4, 2, 28) + 1;
        if (chance(12)) dayNumber = dayNumberOf(year, 12, 31) + number(0, 1);
        return dayNumber * kDay + (chance(4) ? 0 : number(0, 86399));
    }

    /// On, beside or between the occurrences; before the first one; at whole weeks; on the same day of
    /// another month; far away.
    std::int64_t near(std::int64_t time, std::int64_t step, bool hasMonths) {
        const std::int64_t occurrence = time + step * number(-3, chance(2) ? 8 : 400);
        const std::int64_t weeks = std::clamp<std::int64_t>((kLastDay - time / kDay) / 7, 0, hasMonths ? 900 : 60);
        switch (number(0, 7)) {
            case 0: return time;
            case 1: return time + number(-2, 2);
            case 2: return std::min(occurrence, kLastDay * kDay);
            case 3: return std::min(occurrence + number(-1, 1), kLastDay * kDay);
            case 4: return time + 7 * kDay * number(-2, static_cast<int>(weeks));
            case 5: {
                const CivilDay day = civilDayOf(floorDivide(time, kDay));
                const auto year = std::min<std::int64_t>(day.year + number(0, 30), 2590);
                return dayNumberOf(year, number(1, 12), day.day) * kDay + floorModulo(time, kDay) + number(-1, 1);
            }
            case 6: return time + static_cast<std::int64_t>(number(0, 2'000'000'000)) * number(1, 6);
            default: return time + number(0, 3'000'000);
        }
    }

    static constexpr std::int64_t kFirstDay = dayNumberOf(1583, 1, 1);
    static constexpr std::int64_t kLastDay = dayNumberOf(2600, 1, 1);
    std::mt19937 engine_{kSeed};
};

/// The jump on libical's own times, apart from the product's. Without COUNT whole weeks change no answer, but
/// libical would walk over every second of them.
IcalTime jumpedByLibical(const ParsedRule& rule, const IcalTime& start, const IcalTime& after) {
    using Frequency = ParsedRule::Frequency;
    static constexpr std::int64_t lengths[] = {1, 60, 3600, kDay, 7 * kDay};
    const bool isMonthly = rule.frequency() == Frequency::monthly;
    const bool hasLength = rule.frequency() <= Frequency::weekly;
    const std::int64_t length = hasLength ? lengths[static_cast<std::size_t>(rule.frequency())] : 1;
    const std::int64_t seconds = secondsOf(after) - secondsOf(start);
    const bool isIgnored =
        seconds % (7 * kDay) == 0 && (rule.count() != 0 || rule.frequency() >= Frequency::daily);
    const int years = after.year - start.year;
    const std::int64_t units = hasLength   ? (isIgnored ? 0 : seconds / length)
                               : isMonthly ? years * 12 + after.month - start.month
                                           : years;
    std::int64_t intervals = start < after ? units / rule.interval() : 1;
    if (start < after && intervals < 3) return start;
    intervals = start < after ? intervals - 2 : -1;
    if (hasLength) return icalTimeOfSeconds(secondsOf(start) + intervals * rule.interval() * length);
    icaltimetype moved = libicalTime(secondsOf(start));
    if (isMonthly) {
        moved.day = 1;
        moved.month += static_cast<int>(intervals * rule.interval());
        moved = icaltime_normalize(moved);
        moved.day = std::min(start.day, icaltime_days_in_month(moved.month, moved.year));
    } else {
        const auto yearAt = [&](std::int64_t at) { return static_cast<int>(start.year + at * rule.interval()); };
        while (start.day > daysInMonthOf(yearAt(intervals), start.month)) --intervals;
        moved.year = yearAt(intervals);
    }
    return {moved.year, moved.month, moved.day, true, start.hour, start.minute, start.second};
}

/// The walk from the jumped start by libical itself; nothing where it begins in libical's Julian years.
std::optional<std::int64_t> byLibical(const ParsedRule& rule, const Cases::Case& asked) {
    const IcalTime start = icalTimeOfSeconds(asked.start), after = icalTimeOfSeconds(asked.after);
    const IcalTime jumped = jumpedByLibical(rule, start, after);
    const bool isJumped = jumped.year >= 0;
    if (isJumped && jumped.year < 1753) return std::nullopt;
    const icalrecurrencetype parsed = icalrecurrencetype_from_string(asked.rule.c_str());
    const std::unique_ptr<icalrecur_iterator, void (*)(icalrecur_iterator*)> iterator(
        icalrecur_iterator_new(parsed, libicalTime(isJumped ? secondsOf(jumped) : asked.start)),
        icalrecur_iterator_free);
    while (iterator) {
        const icaltimetype t = icalrecur_iterator_next(iterator.get());
        if (icaltime_is_null_time(t)) break;
        const IcalTime time = {t.year, t.month, t.day, true, t.hour, t.minute, t.second};
        if ((time != jumped || !isJumped) && time >= start && time > after) return secondsOf(time);
    }
    return kNoOccurrence;
}

TEST(ClosedFormTest, AnswersAsLibicalDoes) {
    icalerror_set_errors_are_fatal(0);
    Cases cases;
    const int wanted = numberOfCases();
    int compared = 0, occurring = 0, different = 0;
    while (compared < wanted) {
        const auto asked = cases.chance(6) ? cases.make(1600, 2582) : cases.make(1970, 2040);
        const auto rule = ParsedRule::parse(asked.rule);
        ASSERT_TRUE(hasClosedForm(*rule)) << asked.rule;
        const auto expected = byLibical(*rule, asked);
        if (!expected) continue;
        ++compared;
        const std::int64_t found = closedOccurrenceAfter(*rule, asked.start, asked.after);
        if (*expected != kNoOccurrence) ++occurring;
        if (found == *expected || ++different > 20) continue;
        ADD_FAILURE() << asked.rule << " from " << text(asked.start) << " after " << text(asked.after) << ": "
                      << text(found) << " instead of " << text(*expected);
    }
    std::printf("seed %u: %d cases, %d with an occurrence, %d different\n", kSeed, wanted, occurring, different);
    EXPECT_EQ(different, 0);
    EXPECT_GT(occurring, wanted / 3);
}

/// Few rules by the day: libical tries every day of one that seldom or never occurs.
TEST(ClosedFormTest, RulesOfDaysAreJumpedAndCountedAsOnLibical) {
    const TestEnvironment environment;
    Cases cases;
    int compared = 0, occurring = 0;
    while (compared < numberOfCases() / 40) {
        auto asked = cases.make(1970, 2040);
        if (asked.rule.starts_with("FREQ=DAILY") && !cases.chance(20)) continue;
        asked.rule += cases.lists();
        const bool isEndless = !asked.rule.contains("COUNT") && !asked.rule.contains("UNTIL");
        if (isEndless && !cases.chance(4)) asked.rule += ";COUNT=" + std::to_string(cases.number(1, 6));
        const auto rule = ParsedRule::parse(asked.rule);
        if (rule->frequency() < ParsedRule::Frequency::daily || !rule->canOccur()) continue;
        const auto expected = byLibical(*rule, asked);
        if (!expected) continue;
        ++compared;
        if (*expected != kNoOccurrence) ++occurring;
        const auto dateOf = [](std::int64_t seconds) { return Date::since1970(static_cast<double>(seconds)); };
        const auto found = XELRRuleMath::dateAfterDate(dateOf(asked.after), asked.rule, dateOf(asked.start));
        const auto seconds = found ? static_cast<std::int64_t>(found->secondsSince1970()) : kNoOccurrence;
        EXPECT_EQ(text(seconds), text(*expected))
            << asked.rule << " from " << text(asked.start) << " after " << text(asked.after);
    }
    EXPECT_GT(occurring, compared / 3);
}

TEST(ClosedFormTest, RefusesWhatArithmeticCannotAnswer) {
    for (const char* rule : {"FREQ=DAILY;BYDAY=MO", "FREQ=DAILY;INTERVAL=0", "FREQ=NO", "nonsense",
                             "FREQ=DAILY;UNTIL=20261345T000000Z", "FREQ=YEARLY;BYSETPOS=1"}) {
        EXPECT_FALSE(hasClosedForm(*ParsedRule::parse(rule))) << rule;
    }
}

/// An instant about a change of the clock: in or beside the gap or the repeated hour, both of its
/// passes included, or days away from it.
Date aboutChange(Cases& cases, const Calendar& calendar) {
    Date change = Date::since1970(cases.number(0, 2'000'000'000));
    change = calendar.timeZone().nextTransitionAfter(change).value_or(change);
    const double fraction = cases.chance(4) ? 0.25 * cases.number(1, 3) : 0;
    const int days = cases.chance(3) ? cases.number(-40, 40) : cases.number(-1, 1);
    return change + TimeInterval(days * 86400.0 + 900 * cases.number(-9, 9) + cases.number(-1, 1) + fraction);
}

/// The first ones of the walk, and of the range.
std::pair<std::vector<Date>, std::vector<Date>> fewDates(const std::string& rule, Date start, Date after,
                                                         const std::shared_ptr<const Calendar>& calendar) {
    constexpr std::size_t kCount = 5;
    constexpr TimeInterval kCentury{36525 * 86400.0};
    const Date end = after + kCentury;
    std::vector<Date> walked;
    InstantWalk walk(ParsedRule::parse(rule), start, after, calendar);
    while (walked.size() < kCount) {
        const auto date = walk.next();
        if (!date || *date > end) break;
        walked.push_back(*date);
    }
    return {walked, XELRRuleMath(rule, start).datesFromDate(after, end, kCount)};
}

TEST(ClosedFormTest, AnswersAsTheInstantWalkWhereClocksChange) {
    Cases cases;
    int occurring = 0, different = 0;
    const int wanted = numberOfCases();
    for (const char* zone : {"America/New_York", "Europe/London", "Australia/Lord_Howe", "Antarctica/Troll",
                             "Pacific/Apia", "Africa/Casablanca"}) {
        const TestEnvironment local(TestEnvironment::Options{.zone = zone});
        const auto calendar = local.environment->calendar();
        for (int i = 0; i < wanted / 6; ++i) {
            const std::string rule = cases.make(1990, 2030).rule + (cases.chance(2) ? "" : cases.lists());
            const Date start = aboutChange(cases, *calendar);
            const Date after = cases.chance(2)
                                   ? start + TimeInterval(450.0 * cases.number(-20, 20))
                                   : std::max(start - TimeInterval(9e4), aboutChange(cases, *calendar));
            const auto expected = InstantWalk(ParsedRule::parse(rule), start, after, calendar).next();
            const auto found = XELRRuleMath::dateAfterDate(after, rule, start);
            const auto [walked, range] = fewDates(rule, start, after, calendar);
            EXPECT_EQ(range, walked) << zone << " " << rule << " from " << local.text(start) << " after "
                                     << local.text(after);
            if (expected) ++occurring;
            if (found == expected || ++different > 20) continue;
            ADD_FAILURE() << zone << " " << rule << " from " << local.text(start) << " after " << local.text(after)
                          << ": " << (found ? local.text(*found) : "none") << " instead of "
                          << (expected ? local.text(*expected) : "none");
        }
    }
    std::printf("seed %u: %d cases, %d with an occurrence, %d different\n", kSeed, wanted, occurring, different);
    EXPECT_EQ(different, 0);
    EXPECT_GT(occurring, wanted / 3);
}

}  // namespace
}  // namespace dayward
