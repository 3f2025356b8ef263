// Rules: the next occurrence and the occurrences of a year, each question with the rule's text, asked
// where the lists ask (in New York, with all conversions). The peer is libical after the same jump, on
// wall-clock fields that it is given. With DAYWARD_BENCH_RULES set, prints the ratio of each rule.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "platform/Environment.h"
#include "recurrence/XELEventMath.h"
#include "recurrence/XELRRuleMath.h"
#include "support/Bench.h"
#include "support/LibicalJump.h"
#include "support/RuleCases.h"

namespace {

using namespace dayward;
using bench::RuleCase;

constexpr std::size_t kMostOfYear = 30;
constexpr IcalTime kFarTime = {2582, 12, 31, true, 23, 59, 59};

/// New York for all that runs here.
Calendar newYork() {
    static Environment environment([] {
        Environment::Services services;
        services.zone = *TimeZone::named("America/New_York");
        return services;
    }());
    static const EnvironmentScope scope(&environment);
    return *Environment::current().calendar();
}

IcalTime timeOf(const char* text) {
    IcalTime time;
    std::sscanf(text, "%d-%d-%dT%d:%d:%d", &time.year, &time.month, &time.day, &time.hour, &time.minute,
                &time.second);
    return time;
}

struct Question {
    std::optional<std::string> rule;
    IcalTime start, after, yearLater;
    Date startDate, afterDate, yearLaterDate, day;
    std::vector<std::int64_t> times;  ///< of day, in minutes
};

Question questionOf(const std::string& rule, const IcalTime& start, const IcalTime& after) {
    const auto calendar = newYork();
    IcalTime later = after;
    ++later.year;
    const auto date = [&](const IcalTime& time) { return notz_dateForICalTime(time, calendar); };
    IcalTime midnight = start;
    midnight.hour = midnight.minute = midnight.second = 0;
    return {rule,        start,          after,
            later,       date(start),    date(after),
            date(later), date(midnight), {start.hour * 60 + start.minute}};
}

Question questionOf(const RuleCase& given) {
    return questionOf(given.rule, timeOf(given.start), timeOf(given.after));
}

std::vector<Question> questionsOf(const std::vector<RuleCase>& cases) {
    std::vector<Question> questions;
    for (const RuleCase& given : cases) questions.push_back(questionOf(given));
    return questions;
}

const auto kClosed = questionsOf(bench::kClosedRules);
const auto kTenYears = questionsOf(bench::kTenYearRules);
const auto kTypical = questionsOf(bench::kTypicalRules);

struct Next {
    static auto ours(const Question& q) { return XELRRuleMath::dateAfterDate(q.afterDate, q.rule, q.startDate); }
    static auto libical(const Question& q) {
        return bench::libicalBetween(q.rule->c_str(), q.start, q.after, kFarTime, 1);
    }
};

struct NextOfEvent {
    static auto ours(const Question& q) {
        return XELEventMath::dateAfterDate(q.afterDate, q.rule, q.day, q.times);
    }
    static auto libical(const Question& q) { return Next::libical(q); }
};

struct OfYear {
    static auto ours(const Question& q) {
        return XELRRuleMath(q.rule, q.startDate).datesFromDate(q.afterDate, q.yearLaterDate, kMostOfYear);
    }
    static auto libical(const Question& q) {
        return bench::libicalBetween(q.rule->c_str(), q.start, q.after, q.yearLater, kMostOfYear);
    }
};

template <typename Answer>
void cycle(benchmark::State& state, const std::vector<Question>& questions, Answer answer) {
    std::size_t at = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(answer(questions[at]));
        at = at + 1 == questions.size() ? 0 : at + 1;
    }
}

template <typename Answer>
double secondsOfOne(const Question& question, Answer answer) {
    using Clock = std::chrono::steady_clock;
    double best = std::numeric_limits<double>::max();
    for (int round = 0; round < 5; ++round) {
        const auto begin = Clock::now();
        int done = 0;
        std::chrono::duration<double> spent{};
        for (; done == 0 || (done < 50 && spent.count() < 1e-3); ++done) {
            benchmark::DoNotOptimize(answer(question));
            spent = Clock::now() - begin;
        }
        best = std::min(best, spent.count() / done);
    }
    return best;
}

/// Of all rules the one in which we are slowest against libical, found once for each process.
template <typename Work>
const Question& worst() {
    static const Question found = [] {
        std::vector<RuleCase> cases = bench::kTypicalRules;
        cases.insert(cases.end(), bench::kClosedRules.begin(), bench::kClosedRules.end());
        cases.insert(cases.end(), bench::kHardRules.begin(), bench::kHardRules.end());
        double greatest = 0;
        std::optional<Question> slowest;
        for (const Question& question : questionsOf(cases)) {
            const double ratio = secondsOfOne(question, Work::ours) / secondsOfOne(question, Work::libical);
            if (std::getenv("DAYWARD_BENCH_RULES"))
                std::fprintf(stderr, "%8.4f  %s\n", ratio, question.rule->c_str());
            if (ratio <= greatest) continue;
            greatest = ratio;
            slowest = question;
        }
        return *slowest;
    }();
    return found;
}

template <typename Work, typename Answer>
void runWorst(benchmark::State& state, Answer answer) {
    const Question& question = worst<Work>();
    state.SetLabel(*question.rule);
    for (auto _ : state) benchmark::DoNotOptimize(answer(question));
}

/// The same rule as another text, by the case of its letters.
std::string spelled(std::string rule, unsigned number) {
    for (char& letter : rule) {
        if (letter < 'A') continue;
        if (number % 2 != 0) letter = static_cast<char>(letter + 32);
        number /= 2;
    }
    return rule;
}

/// More texts than are kept parsed.
const std::vector<Question>& manyTexts() {
    static const auto made = [] {
        std::vector<Question> questions;
        for (unsigned number = 0; number < 1000; ++number) {
            questions.push_back(questionOf(bench::kTypicalRules[number % bench::kTypicalRules.size()]));
            questions.back().rule = spelled(*questions.back().rule, number);
        }
        return questions;
    }();
    return made;
}

/// A distance of whole weeks from the start, and the same and a bit.
std::vector<Question> atDistance(const char* rule, int days, int moreSeconds) {
    const IcalTime start = {2004, 3, 12, true, 9, 30, 0};
    const IcalTime after = icalTimeOfSeconds(secondsOf(start) + days / 7 * 7 * 86400LL + moreSeconds);
    return {questionOf(rule, start, after)};
}

}  // namespace

#define DAYWARD_BENCH_RULES(row, Work, questions)                     \
    DAYWARD_BENCH(row, ours) { cycle(state, questions, Work::ours); } \
    DAYWARD_BENCH(row, libical) { cycle(state, questions, Work::libical); }

DAYWARD_BENCH_RULES(rule_next, Next, kTypical)
DAYWARD_BENCH_RULES(rule_next_closed, Next, kClosed)
DAYWARD_BENCH_RULES(rule_next_event, NextOfEvent, kTypical)
DAYWARD_BENCH_RULES(rule_next_unkept, Next, manyTexts())
DAYWARD_BENCH_RULES(rule_year, OfYear, kTypical)

DAYWARD_BENCH(rule_ten_years, ours) { cycle(state, kTenYears, Next::ours); }

#define DAYWARD_BENCH_WORST_RULE(row, Work)                         \
    DAYWARD_BENCH(row, ours) { runWorst<Work>(state, Work::ours); } \
    DAYWARD_BENCH(row, libical) { runWorst<Work>(state, Work::libical); }

DAYWARD_BENCH_WORST_RULE(rule_next_worst, Next)
DAYWARD_BENCH_WORST_RULE(rule_year_worst, OfYear)

#define DAYWARD_BENCH_WHOLE_WEEKS(row, rule, days)                                    \
    DAYWARD_BENCH(row, ours) { cycle(state, atDistance(rule, days, 0), Next::ours); } \
    DAYWARD_BENCH(row, other_distance) { cycle(state, atDistance(rule, days, 4007), Next::ours); }

DAYWARD_BENCH_WHOLE_WEEKS(rule_weeks_daily, "FREQ=DAILY", 20 * 365)
DAYWARD_BENCH_WHOLE_WEEKS(rule_weeks_hourly, "FREQ=HOURLY;INTERVAL=5", 10 * 365)
DAYWARD_BENCH_WHOLE_WEEKS(rule_weeks_minutely, "FREQ=MINUTELY", 365)
DAYWARD_BENCH_WHOLE_WEEKS(rule_weeks_secondly, "FREQ=SECONDLY", 31)
DAYWARD_BENCH_WHOLE_WEEKS(rule_weeks_numbered, "FREQ=WEEKLY;BYDAY=MO,2WE", 20 * 365)
