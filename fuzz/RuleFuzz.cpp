// Recurrence rules: eight bytes choose zone, start and the moment that is asked for, the rest is the text.
// Answers ascend, lie where they were asked for, agree with each other, and come in bounded time.
#include <algorithm>
#include <cmath>

#include "platform/Environment.h"
#include "recurrence/ParsedRule.h"
#include "recurrence/RuleBatch.h"
#include "recurrence/XELEventMath.h"
#include "recurrence/XELFormatter.h"
#include "recurrence/XELRRuleIterator.h"
#include "recurrence/XELRRuleMath.h"
#include "support/Fuzz.h"
#include "support/TestEnvironment.h"

namespace {

using namespace dayward;

constexpr const char* kZones[] = {"UTC", "America/New_York", "Australia/Lord_Howe", "Pacific/Apia"};
constexpr double kDay = 86400;

void checkTexts(const std::string& rule) {
    const auto rewritten = [](const std::string& text) { return XELRRuleComponents(text).rfc2445String(); };
    const std::string normal = rewritten(rewritten(rule));  // numbers are cut once, which may disorder them
    require(rewritten(normal) == normal, "a rule in its normal form stays", normal);
    (void)XELFormatter().stringForRRule(rule);
    (void)answerRuleRequest("describe\t" + rule);
    (void)answerRuleRequest(rule);
}

void checkAscending(const std::vector<Date>& dates, Date from, Date to) {
    require(std::ranges::adjacent_find(dates, std::greater_equal<>()) == dates.end(), "dates ascend");
    require(dates.empty() || (dates.front() > from && dates.back() <= to), "dates lie in the range");
}

template <class Math>
void checkAnswers(const Math& math, Date start, Date asked) {
    const auto next = math.dateAfterDate(asked);
    require(!next || *next > asked, "the next date is after the one asked for");
    require(!next || next->secondsSinceReference() >= std::floor(start.secondsSinceReference()) - kDay,
            "no date is before the start");
    const auto dates = math.datesFromDate(asked, asked + TimeInterval(400 * kDay), 20);
    checkAscending(dates, asked, asked + TimeInterval(400 * kDay));
    require(dates.empty() || (next && dates.front() == *next), "the first date of a range is the next one");
    (void)math.lastDate();
}

void checkRule(const std::string& rule, Date start, Date asked) {
    const XELRRuleMath math(rule, start);
    checkAnswers(math, start, asked);
    (void)math.intervalsToDate(asked);
    std::optional<Date> at = start;
    for (int left = 5; left > 0 && at; --left) {
        const auto next = math.dateAfterDate(*at);
        require(!next || *next > *at, "dates ascend");
        at = next;
    }
    XELRRuleIterator iterator(rule, start);  // in the order of the rule's lists
    for (int left = 10; left > 0; --left) {
        const auto date = iterator.getNextDate();
        if (!date) break;
        require(*date != iterator.startDate(), "the start is not iterated");
    }
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    static const TestEnvironment environment;
    FuzzInput input(bytes, size);
    const auto zone = static_cast<std::size_t>(input.number(1) & 3);
    environment->setTimeZone(TimeZone::named(kZones[zone]).value());
    const Date start =
        environment.at("2020-01-01T09:30:00") + TimeInterval(static_cast<double>(input.number(3)) * 900);
    const Date asked = start + TimeInterval(static_cast<double>(input.number(4)));
    const std::string rule = input.text();
    checkTexts(rule);
    checkRule(rule, start, asked);
    checkAnswers(XELEventMath(rule, start, {0, 150, 1439}), start, asked);
    return 0;
}
