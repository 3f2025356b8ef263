// The walk against libical's own iterator: every occurrence the same, over random rules of every kind.
// DAYWARD_RULE_CASES sets the number of rules of a week and more (500 without it); libical is slow below.
#include "recurrence/RuleWalk.h"

#include <gtest/gtest.h>
#include <libical/ical.h>

#include <cstdlib>
#include <random>
#include <string>
#include <vector>

#include "support/TestEnvironment.h"

namespace dayward {
namespace {

constexpr unsigned kSeed = 20270314;

class RandomRules {
public:
    std::string rule(int shortest = 0) {
        static const std::vector<std::string> frequencies = {"SECONDLY", "MINUTELY", "HOURLY", "DAILY",
                                                             "WEEKLY",   "MONTHLY",  "YEARLY"};
        const int frequency = number(shortest, 6);
        std::string text = "FREQ=" + frequencies[static_cast<std::size_t>(frequency)];
        if (chance(2)) text += ";INTERVAL=" + std::to_string(number(1, frequency > 4 ? 5 : 40));
        if (chance(3)) text += ";BYDAY=" + days(frequency >= 4 && chance(2));
        if (chance(4)) text += ";BYMONTH=" + list(1, 12);
        if (chance(4) && frequency != 4) text += ";BYMONTHDAY=" + list(1, 31, frequency >= 5);
        if (chance(8) && (frequency < 3 || frequency == 6)) text += ";BYYEARDAY=" + list(1, 366, true);
        // Without a day libical writes beyond its table of days.
        if (chance(2) && frequency == 6 && text.contains("BYDAY")) text += ";BYWEEKNO=" + list(1, 53, true);
        if (chance(5)) text += ";BYHOUR=" + list(0, 23);
        if (chance(5)) text += ";BYMINUTE=" + list(0, 59);
        if (chance(5)) text += ";BYSECOND=" + list(0, 59);
        if (chance(6) && frequency >= 5) text += ";BYSETPOS=" + list(1, 4, true);
        if (chance(4)) text += std::string(";WKST=") + kWeekdays[number(0, 6)];
        if (chance(4)) {
            text += ";COUNT=" + std::to_string(number(1, 30));
        } else if (chance(4)) {
            text += ";UNTIL=20" + std::to_string(number(26, 40)) + "0" + std::to_string(number(1, 9)) + "15T120000Z";
        }
        return text;
    }

    IcalTime start() {
        const int year = number(2000, 2030), month = number(1, 12);
        const int day = chance(6) ? icaltime_days_in_month(month, year) : number(1, 28);
        return {year, month, day, true, number(0, 23), number(0, 59), number(0, 59)};
    }

    int number(int low, int high) { return std::uniform_int_distribution<int>(low, high)(engine_); }
    bool chance(int oneIn) { return number(1, oneIn) == 1; }

private:
    std::string list(int low, int high, bool mayBeNegative = false) {
        std::string text;
        for (int i = number(1, 4); i > 0; --i) {
            const int value = number(low, high);
            text += (mayBeNegative && chance(4) ? "-" : "") + std::to_string(value) + (i > 1 ? "," : "");
        }
        return text;
    }

    std::string days(bool numbered) {
        std::string text;
        for (int i = number(1, 3); i > 0; --i) {
            if (numbered && chance(2)) text += std::to_string(chance(2) ? number(1, 5) : -number(1, 2));
            text += kWeekdays[number(0, 6)] + std::string(i > 1 ? "," : "");
        }
        return text;
    }

    static constexpr const char* kWeekdays[] = {"SU", "MO", "TU", "WE", "TH", "FR", "SA"};
    std::mt19937 engine_{kSeed};
};

icaltimetype libicalTime(const IcalTime& time) {
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

/// Where the comparison of rules below a day ends, so that libical does not walk for minutes.
IcalTime fenceFor(int frequency, const IcalTime& start) {
    static constexpr std::int64_t days[] = {1, 60, 1500};
    return icalTimeOfSeconds(secondsOf(start) + (frequency < 3 ? days[frequency] : 1000000) * 86400);
}

std::vector<IcalTime> byLibical(const std::string& rule, const IcalTime& start, std::size_t limit) {
    std::vector<IcalTime> times;
    icalrecurrencetype recurrence = icalrecurrencetype_from_string(rule.c_str());
    const icaltimetype fence = libicalTime(fenceFor(static_cast<int>(recurrence.freq), start));
    const bool isEndless = icaltime_is_null_time(recurrence.until) || icaltime_compare(fence, recurrence.until) < 0;
    if (recurrence.freq < ICAL_DAILY_RECURRENCE && isEndless) recurrence.until = fence;
    icalrecur_iterator* iterator = icalrecur_iterator_new(recurrence, libicalTime(start));
    while (iterator != nullptr && times.size() < limit) {
        const icaltimetype time = icalrecur_iterator_next(iterator);
        if (icaltime_is_null_time(time)) break;
        times.push_back({time.year, time.month, time.day, true, time.hour, time.minute, time.second});
    }
    if (iterator != nullptr) icalrecur_iterator_free(iterator);
    return times;
}

std::string text(const IcalTime& t) {
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%04d-%02d-%02dT%02d:%02d:%02d", t.year, t.month, t.day, t.hour, t.minute,
                  t.second);
    return buffer;
}

std::string text(const std::vector<IcalTime>& times) {
    std::string result;
    for (const IcalTime& time : times) result += text(time) + " ";
    return result;
}

class RuleWalkTest : public ::testing::Test {
protected:
    static std::vector<IcalTime> walked(const std::string& rule, const IcalTime& start, std::size_t limit,
                                        const std::optional<IcalTime>& skipTo = std::nullopt) {
        std::vector<IcalTime> times;
        const auto walk = RuleWalk::from(ParsedRule::parse(rule), start, skipTo);
        while (walk && times.size() < limit) {
            const auto time = walk->next();
            if (!time) break;
            times.push_back(*time);
        }
        return times;
    }

    TestEnvironment environment_;
};

TEST_F(RuleWalkTest, FindsWhatLibicalFinds) {
    RandomRules random;
    std::printf("seed %u\n", kSeed);
    int compared = 0;
    const char* given = std::getenv("DAYWARD_RULE_CASES");
    const int ofAnyKind = 300, ofWeeks = given ? std::atoi(given) : 500;
    for (int i = 0; i < ofAnyKind + ofWeeks; ++i) {
        const std::string rule = random.rule(i < ofAnyKind ? 0 : 4);
        const IcalTime start = random.start();
        auto mine = walked(rule, start, 25);
        auto expected = byLibical(rule, start, 25);
        const IcalTime fence = fenceFor(static_cast<int>(ParsedRule::parse(rule)->frequency()), start);
        std::erase_if(mine, [&fence](const IcalTime& time) { return time > fence; });
        compared += expected.empty() ? 0 : 1;
        EXPECT_EQ(text(mine), text(expected)) << rule << " from " << text(start);
    }
    EXPECT_GT(compared, (ofAnyKind + ofWeeks) / 2);
}

TEST_F(RuleWalkTest, TakesWeeksIntoTheYearsThatLibicalTakes) {
    const IcalTime start = {2026, 2, 17, true, 19, 28, 56};
    for (const char* rule : {"FREQ=YEARLY;INTERVAL=4;BYDAY=WE;BYWEEKNO=-36,1", "FREQ=YEARLY;BYDAY=WE;BYWEEKNO=53,1",
                             "FREQ=YEARLY;BYDAY=WE,-1FR;BYWEEKNO=-36;WKST=SA", "FREQ=YEARLY;BYDAY=-1FR;BYWEEKNO=20",
                             "FREQ=YEARLY;BYDAY=MO,SU;BYWEEKNO=1,52;BYSETPOS=-1,1"}) {
        EXPECT_EQ(text(walked(rule, start, 40)), text(byLibical(rule, start, 40))) << rule;
    }
}

TEST_F(RuleWalkTest, SkippingChangesNothingFromTheTargetOn) {
    RandomRules random;
    for (int i = 0; i < 200; ++i) {
        const std::string rule = random.rule();
        const IcalTime start = random.start();
        IcalTime target = start;
        target.year += random.number(0, 2);
        target.month = random.number(1, 12);
        if (ParsedRule::parse(rule)->frequency() < ParsedRule::Frequency::hourly) continue;
        const auto isBefore = [&target](const IcalTime& time) { return time < target; };
        auto whole = walked(rule, start, 3000);
        auto skipped = walked(rule, start, 3000, target);
        std::erase_if(whole, isBefore);
        std::erase_if(skipped, isBefore);
        const std::size_t shared = std::min<std::size_t>({whole.size(), skipped.size(), 10});
        whole.resize(shared);
        skipped.resize(shared);
        EXPECT_EQ(text(whole), text(skipped)) << rule << " from " << text(start) << " to " << text(target);
    }
}

}  // namespace
}  // namespace dayward
