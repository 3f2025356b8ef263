#include "Submodules/CorpLibrary2/App/CCAppValues.h"

#include <gmock/gmock.h>

#include "Submodules/CorpLibrary2/App/CCAppHistory.h"
#include "Submodules/CorpLibrary2/App/XXAppData.h"
#include "Submodules/CorpLibrary2/Foundation/FoundationFixture.h"

namespace dayward {
namespace {

class AppFilesTest : public FoundationTest {
protected:
    [[nodiscard]] std::string inLibrary(const char* name) { return joinPath(environment->paths().library, name); }
    [[nodiscard]] std::string inPrivateData(const char* name) {
        return joinPath(environment->paths().applicationSupport, name);
    }
    /// Runs as another process over the same files.
    void asOther(const std::function<void()>& act) {
        TestEnvironment other(withFoundationClasses(files));
        act();
    }
};

TEST_F(AppFilesTest, ValuesAreWrittenBySynchronizeOnly) {
    CCAppValues::setValue("x", "a");
    CCAppValues::setValue(nullptr, "b");
    EXPECT_TRUE(CCAppValues::containsValueWithKey("a"));
    EXPECT_FALSE(files->exists(inLibrary("CCAppValues.dat")));
    CCAppValues::synchronize();
    EXPECT_EQ(onDisk(inLibrary("CCAppValues.dat")), Object(Dictionary{{"a", "x"}}));
    CCAppValues::removeAllValues();
    CCAppValues::synchronize();
    EXPECT_EQ(onDisk(inLibrary("CCAppValues.dat")), Object(Dictionary()));
}

TEST_F(AppFilesTest, TwoProcessesKeepEachOthersValuesAndEvents) {
    CCAppValues::setValue(1, "mine");
    CCAppHistory::addEvent("mine");
    asOther([] {
        CCAppValues::setValue(2, "theirs");
        CCAppValues::synchronize();
        CCAppHistory::addEvent("theirs");
        CCAppHistory::addEvent("gone");
        CCAppHistory::synchronize();
    });
    CCAppHistory::removeEvent("gone");
    CCAppValues::synchronize();
    CCAppHistory::synchronize();
    CCAppHistory::synchronize();
    EXPECT_EQ(onDisk(inLibrary("CCAppValues.dat")), Object(Dictionary{{"mine", 1}, {"theirs", 2}}));
    for (const char* name : {"mine", "theirs"}) EXPECT_EQ(CCAppHistory::countEvent(name, {}, {}), 1u) << name;
    EXPECT_FALSE(CCAppHistory::containsEvent("gone"));
    EXPECT_EQ(CCAppValues::valueForKey("theirs"), 2);
}

TEST_F(AppFilesTest, AnEventIsRecordedOnceWhicheverStepsOfItsWritesFail) {
    CCAppHistory::addEvent("first");
    const std::size_t before = files->operationCount();
    CCAppHistory::synchronize();
    const std::size_t steps = files->operationCount() - before;
    for (std::size_t step = 1; step <= 2 * steps; ++step) {
        const std::string event = "e" + std::to_string(step);
        for (const std::size_t failing : {step, (step - 1) % steps + 1}) {
            CCAppHistory::addEvent(event);
            files->failOperation(failing);
            CCAppHistory::synchronize();
            files->heal();
            if (step > steps) files->failOperation(steps);
            CCAppHistory::synchronize();
            files->heal();
        }
        CCAppHistory::synchronize();
        EXPECT_EQ(onDisk(inLibrary("CCAppHistory.dat")).as<CCEventHistory>()->countEvent(event), 2u) << step;
        EXPECT_EQ(CCAppHistory::countEvent(event, {}, {}), 2u) << step;
    }
}

TEST_F(AppFilesTest, FilesThatCannotBeReadCountAsEmptyAndAreReplaced) {
    store(inLibrary("CCAppValues.dat"), storedArchive("array.archive"));
    store(inLibrary("CCAppHistory.dat"), dataOf("no archive"));
    EXPECT_FALSE(CCAppHistory::containsEvent("__start"));
    CCAppValues::setValue(1, "a");
    CCAppHistory::addEvent("e");
    CCAppValues::synchronize();
    CCAppHistory::synchronize();
    EXPECT_EQ(onDisk(inLibrary("CCAppValues.dat")), Object(Dictionary{{"a", 1}}));
    EXPECT_NE(onDisk(inLibrary("CCAppHistory.dat")).as<CCEventHistory>(), nullptr);
}

TEST_F(AppFilesTest, ReadsAHistoryThatAnotherWriterMade) {
    store(inLibrary("CCAppHistory.dat"), storedArchive("history.archive"));
    EXPECT_EQ(CCAppHistory::countEvent(CCAppHistoryKeys::start, {}, environment->now()), 2u);
    EXPECT_EQ(CCAppHistory::countEvent(CCAppHistoryKeys::start, environment.at("2026-01-15"), {}), 1u);
    CCAppHistory::addEvent(CCAppHistoryKeys::crash, Dictionary{{"reason", "?"}}, environment.at("2026-03-01"));
    EXPECT_EQ(CCAppHistory::dateToLastEvent(CCAppHistoryKeys::crash, 0), environment.at("2026-03-01"));
    CCAppHistory::removeAllEvents();
    CCAppHistory::synchronize();
    EXPECT_FALSE(onDisk(inLibrary("CCAppHistory.dat")).as<CCEventHistory>()->containsEvent("__install"));
}

TEST_F(AppFilesTest, TheOlderPairIsReadAndWritten) {
    EXPECT_FALSE(XXAppData::isExistsEvent("opened"));
    store(inPrivateData(XXAppData::kValuesFileName), storedArchive("older-values.archive"));
    store(inPrivateData(XXAppData::kEventsFileName), storedArchive("older-history.archive"));
    EXPECT_FALSE(XXAppData::isExistsValueForKey("__lastAppVersion")) << "read once";
    XXAppData::dataWithContentsOfFile();
    EXPECT_EQ(XXAppData::valueForKey("__lastAppVersion"), "1.9");
    EXPECT_EQ(XXAppData::countEvent("opened", environment.at("2015-01-01")), 2u);
    XXAppData::setValue(nullptr, "__lastAppVersion");
    XXAppData::setValue(3, "count");
    XXAppData::removeEvent("opened");
    XXAppData::addEvent("closed");
    XXAppData::values_writeToFile();
    XXAppData::events_writeToFile();
    asOther([&] {
        EXPECT_EQ(XXAppData::valueForKey("count"), 3);
        EXPECT_FALSE(XXAppData::isExistsValueForKey("__lastAppVersion"));
        EXPECT_EQ(XXAppData::dateToFirstEvent("closed"), environment->now());
    });
    store(inPrivateData(XXAppData::kValuesFileName), storedArchive("array.archive"));
    store(inPrivateData(XXAppData::kEventsFileName), dataOf("no archive"));
    XXAppData::dataWithContentsOfFile();
    EXPECT_FALSE(XXAppData::isExistsValueForKey("count"));
    EXPECT_EQ(XXAppData::countEvent("closed"), 0u);
}

}  // namespace
}  // namespace dayward
