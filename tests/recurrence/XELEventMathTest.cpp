#include "recurrence/XELEventMath.h"

#include <gtest/gtest.h>

#include "recurrence/RuleBatch.h"
#include "support/TestEnvironment.h"

namespace dayward {
namespace {

class XELEventMathTest : public ::testing::Test {
protected:
    [[nodiscard]] std::string text(const std::vector<Date>& dates) const {
        std::string result;
        for (const Date date : dates) result += (result.empty() ? "" : " ") + environment_.text(date);
        return result;
    }
    [[nodiscard]] Date at(const char* time) const { return environment_.at(time); }

    TestEnvironment environment_{TestEnvironment::Options{.zone = "Europe/Moscow"}};
};

TEST_F(XELEventMathTest, StartsAtEachTimeOfTheDay) {
    const XELEventMath event(std::nullopt, at("2026-05-01T17:30:00"), {1080, 540});
    EXPECT_EQ(text(event.getStartDates()), "2026-05-01T09:00:00 2026-05-01T18:00:00");
    EXPECT_EQ(event.dateAfterDate(at("2026-05-01T09:00:00")), at("2026-05-01T18:00:00"));
    EXPECT_EQ(event.lastDate(), at("2026-05-01T18:00:00"));
    EXPECT_EQ(XELEventMath("FREQ=DAILY", at("2026-05-01"), {}).dateAfterDate(at("2026-01-01")), std::nullopt);
    EXPECT_EQ(XELEventMath("FREQ=DAILY", std::nullopt, {540}).dateAfterDate(at("2026-01-01")), std::nullopt);
}

TEST_F(XELEventMathTest, SharesTheLimitAmongTheTimes) {
    const XELEventMath event("FREQ=DAILY", at("2026-05-01"), {1080, 540});
    EXPECT_EQ(text(event.datesFromDate(at("2026-06-01T12:00:00"), at("2026-07-01"), 3)),
              "2026-06-01T18:00:00 2026-06-02T09:00:00 2026-06-02T18:00:00 2026-06-03T09:00:00");
    const XELEventMath twice("FREQ=DAILY", at("2026-05-01"), {540, 540});
    EXPECT_EQ(text(twice.datesFromDate(at("2026-06-01"), at("2026-06-02"), 4)), "2026-06-01T09:00:00");
}

TEST_F(XELEventMathTest, TakesTheEarliestNextAndTheLatestLast) {
    const XELEventMath event("FREQ=WEEKLY;BYDAY=MO;UNTIL=20260629T120000Z", at("2026-05-04"), {1080, 540});
    EXPECT_EQ(event.dateAfterDate(at("2026-06-01T10:00:00")), at("2026-06-01T18:00:00"));
    EXPECT_EQ(event.dateAfterDate(at("2026-06-29T09:00:00")), std::nullopt);
    EXPECT_EQ(event.lastDate(), at("2026-06-29T09:00:00"));
}

TEST_F(XELEventMathTest, AnswersBatchLines) {
    const std::pair<std::string, std::string> cases[] = {
        {"next\tFREQ=DAILY\t2026-01-01T09:00:00\t2026-03-10T12:00:00", "2026-03-11T09:00:00+03:00"},
        {"next\tFREQ=DAILY;UNTIL=20260101T000000Z\t2025-01-01\t2026-03-10\r", "-"},
        {"next\t\t2026-05-01\t2026-03-10", "2026-05-01T00:00:00+03:00"},
        {"between\tFREQ=WEEKLY\t2026-01-05\t2026-02-01\t2026-02-10\t5",
         "2026-02-02T00:00:00+03:00 2026-02-09T00:00:00+03:00"},
        {"between\tFREQ=WEEKLY\t2026-01-05\t2026-02-01\t2026-02-10\t1", "2026-02-02T00:00:00+03:00"},
        {"last\tFREQ=DAILY;UNTIL=20260201T000000Z\t2026-01-01T09:00:00", "2026-01-31T09:00:00+03:00"},
        {"last\tFREQ=DAILY\t2026-01-01", "-"},
        {"normalize\tbyday=mo;freq=weekly", "FREQ=WEEKLY;INTERVAL=1;BYDAY=MO"},
        {"normalize\t", "FREQ=NO;INTERVAL=1"},
        {"describe\tFREQ=NO", "-"},
        {"", "error: no such request: \"\""},
        {"nearest\tFREQ=DAILY", "error: no such request: \"nearest\""},
        {"next\tFREQ=DAILY\t2026-01-01", "error: expected 3 fields after \"next\""},
        {"next\tFREQ=DAILY\t2026-02-30\t2026-01-01", "error: not a date: \"2026-02-30\""},
        {"between\tFREQ=DAILY\t2026-01-01\t2026-01-01\t2027-01-01\t-1", "error: not a number up to 1000000: \"-1\""},
        {"between\tFREQ=DAILY\t2026-01-01\t2026-01-01\t2027-01-01\t99999999999999999999",
         "error: not a number up to 1000000: \"99999999999999999999\""},
        {std::string(100000, '\t'), "error: no such request: \"\""},
    };
    for (const auto& [line, answer] : cases) EXPECT_EQ(answerRuleRequest(line), answer) << line.substr(0, 80);
}

}  // namespace
}  // namespace dayward
