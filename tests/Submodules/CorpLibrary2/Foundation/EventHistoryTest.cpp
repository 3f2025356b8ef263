#include <gmock/gmock.h>

#include <limits>

#include "FoundationFixture.h"
#include "Submodules/CorpLibrary2/Foundation/CCEventHistory.h"
#include "Submodules/CorpLibrary2/Foundation/XXEventHistory.h"

namespace dayward {
namespace {

using testing::ElementsAre;

Date second(double seconds) { return Date::sinceReference(seconds); }

/// What both histories promise alike.
template <class History>
class EventHistoryTest : public FoundationTest {
protected:
    static void add(CCEventHistory& history, Date date) { history.addEvent("e", std::nullopt, date); }
    static void add(XXEventHistory& history, Date date) { history.addEvent("e", date); }
    static std::vector<double> seconds(const CCEventHistory& history) {
        std::vector<double> result;
        for (const auto& entry : history.entriesForEvent("e")) result.push_back(entry.date.secondsSinceReference());
        return result;
    }
    static std::vector<double> seconds(const XXEventHistory& history) {
        std::vector<double> result;
        for (const auto& date : history.datesForEvent("e")) result.push_back(date.secondsSinceReference());
        return result;
    }
    static History reread(const CCEventHistory&, const std::string& path) {
        return CCEventHistory::readContentsOfFile(path).value();
    }
    static History reread(const XXEventHistory&, const std::string& path) {
        return XXEventHistory::historyWithContentsOfFile(path);
    }

    History history;
};

using Histories = testing::Types<CCEventHistory, XXEventHistory>;
TYPED_TEST_SUITE(EventHistoryTest, Histories);

TYPED_TEST(EventHistoryTest, KeepsDatesInOrder) {
    for (const double value : {5.0, 2.0, 9.0, 2.0, 1.0, 9.5}) this->add(this->history, second(value));
    this->add(this->history, second(std::numeric_limits<double>::quiet_NaN()));
    EXPECT_THAT(this->seconds(this->history), ElementsAre(1, 2, 2, 5, 9, 9.5));
}

TYPED_TEST(EventHistoryTest, The101stDateDropsTheOldest) {
    for (int i = 0; i <= 100; ++i) this->add(this->history, second(i));
    EXPECT_EQ(this->history.countEvent("e"), 100u);
    EXPECT_EQ(this->seconds(this->history).front(), 1);
    // A date older than all that are kept falls off at once.
    this->add(this->history, second(0.5));
    EXPECT_EQ(this->seconds(this->history).front(), 1);
}

TYPED_TEST(EventHistoryTest, ALoweredLimitCutsAtTheNextAdd) {
    for (int i = 0; i < 10; ++i) this->add(this->history, second(i));
    this->history.setMaxDatesForEvent(3);
    EXPECT_EQ(this->history.countEvent("e"), 10u);
    this->add(this->history, second(10));
    EXPECT_THAT(this->seconds(this->history), ElementsAre(8, 9, 10));
    for (const auto limit : {std::int64_t{0}, std::numeric_limits<std::int64_t>::min()}) {
        this->history.setMaxDatesForEvent(limit);
        this->add(this->history, second(11));
        EXPECT_EQ(this->history.countEvent("e"), 0u);
        EXPECT_EQ(this->history.dateToLastEvent("e"), std::nullopt);
    }
}

TYPED_TEST(EventHistoryTest, CountsBetweenInclusiveBounds) {
    for (int i = 1; i <= 5; ++i) this->add(this->history, second(i));
    EXPECT_EQ(this->history.countEvent("e", second(2), second(4)), 3u);
    EXPECT_EQ(this->history.countEvent("e", second(2.5)), 3u);
    EXPECT_EQ(this->history.countEvent("e", std::nullopt, second(1)), 1u);
    EXPECT_EQ(this->history.countEvent("e", second(4), second(2)), 0u);
    EXPECT_EQ(this->history.countEvent("other", second(0)), 0u);
}

TYPED_TEST(EventHistoryTest, CountsTheLastDays) {
    const Date now = this->environment->now();
    for (const double hours : {-49.0, -48.0, -1.0, 0.0}) this->add(this->history, now + TimeInterval(hours * 3600));
    EXPECT_EQ(this->history.countEventLastDays("e", 0), 1u) << "only this moment";
    EXPECT_EQ(this->history.countEventLastDays("e", 1), 2u);
    EXPECT_EQ(this->history.countEventLastDays("e", 2), 3u);
    EXPECT_EQ(this->history.timeIntervalToLastEvent("e"), TimeInterval(0));
    EXPECT_EQ(this->history.timeIntervalToLastEvent("other"), std::nullopt);
}

TYPED_TEST(EventHistoryTest, ComesBackFromItsFile) {
    this->history.setMaxDatesForEvent(7);
    for (const double value : {3.0, 1.0}) this->add(this->history, second(value));
    this->history.addEvent("now");
    ASSERT_TRUE(this->history.writeToFile(this->path));
    const auto read = this->reread(this->history, this->path);
    EXPECT_TRUE(read.isEqual(this->history));
    EXPECT_EQ(read.maxDatesForEvent(), 7);
    EXPECT_EQ(read.dateToLastEvent("now"), this->environment->now());
    this->history.removeEvent("e");
    EXPECT_FALSE(read.isEqual(this->history));
}

class CCEventHistoryTest : public FoundationTest {};

TEST_F(CCEventHistoryTest, ReadsStoredEntriesAndLeavesOutBrokenOnes) {
    store(path, storedArchive("history.archive"));
    const auto history = CCEventHistory::readContentsOfFile(path);
    ASSERT_TRUE(history);
    EXPECT_EQ(history->maxDatesForEvent(), 3);
    EXPECT_THAT(history->entriesForEvent("__start"),
                ElementsAre(CCEventHistory::Entry{environment.at("2026-01-01"), {}},
                            CCEventHistory::Entry{environment.at("2026-02-01"), Dictionary{{"from", "widget"}}}));
    EXPECT_EQ(history->dateToLastEvent("__start", 1), environment.at("2026-01-01"));
    EXPECT_EQ(history->dateToLastEvent("__start", 2), std::nullopt);
    EXPECT_EQ(history->dateToLastEvent("__start", -1), std::nullopt);
    EXPECT_TRUE(history->containsEvent("__install"));
    EXPECT_FALSE(history->containsEvent("broken"));
}

TEST_F(CCEventHistoryTest, AFileThatCannotBeReadIsAnError) {
    EXPECT_FALSE(CCEventHistory::readContentsOfFile(path));
    for (const char* name : {"history-newer.archive", "older-history.archive", "array.archive"}) {
        store(path, storedArchive(name));
        EXPECT_FALSE(CCEventHistory::readContentsOfFile(path)) << name;
    }
}

class XXEventHistoryTest : public FoundationTest {};

TEST_F(XXEventHistoryTest, ReadsStoredDatesAndLeavesOutBrokenOnes) {
    store(path, storedArchive("older-history.archive"));
    const auto history = XXEventHistory::historyWithContentsOfFile(path);
    EXPECT_EQ(history.maxDatesForEvent(), 7);
    EXPECT_EQ(history.countEvent("opened"), 3u);
    EXPECT_EQ(history.dateToFirstEvent("opened"), environment.at("2014-04-04"));
    EXPECT_EQ(history.dateToLastEvent("opened"), environment.at("2016-06-06"));
    EXPECT_FALSE(history.isExistsEvent("never"));
    EXPECT_EQ(history.dateToFirstEvent("never"), std::nullopt);
}

TEST_F(XXEventHistoryTest, AFileThatCannotBeReadIsAFreshHistory) {
    EXPECT_TRUE(XXEventHistory::historyWithContentsOfFile(path).isEqual(XXEventHistory()));
    for (const char* name : {"history.archive", "dictionary.archive"}) {
        store(path, storedArchive(name));
        EXPECT_TRUE(XXEventHistory::historyWithContentsOfFile(path).isEqual(XXEventHistory())) << name;
    }
}

}  // namespace
}  // namespace dayward
