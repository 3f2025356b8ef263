#include "Classes/App/FirstLaunch.h"

#include <gtest/gtest.h>

#include "Classes/App/ArchiveRegistration.h"
#include "Classes/Event/EventLocalStore.h"
#include "Submodules/CorpLibrary2/App/CCAppHistory.h"
#include "support/FaultFileSystem.h"
#include "support/TestEnvironment.h"

namespace dayward {
namespace {

const CCApp::Information kInformation{.bundleIdentifier = "dayward",
                                      .displayName = "Dayward",
                                      .shortVersion = "1.0",
                                      .bundleVersion = "1"};
constexpr std::size_t kDefaultEvents = 7;

class FirstLaunch : public testing::Test {
protected:
    FirstLaunch() { files->store("/home/mark", {}); }

    /// A process of its own on the home.
    std::unique_ptr<TestEnvironment> start() {
        TestEnvironment::Options options;
        options.home = "/home";
        options.files = files;
        options.archiveClasses = allArchiveClasses();
        return std::make_unique<TestEnvironment>(options);
    }

    static std::size_t starts() { return CCAppHistory::countEvent(CCAppHistoryKeys::start, {}, {}); }

    std::shared_ptr<FaultFileSystem> files = std::make_shared<FaultFileSystem>();
};

TEST_F(FirstLaunch, AddsTheDefaultEventsOnceAndRecordsTheInstall) {
    {
        const auto first = start();
        ASSERT_TRUE(performFirstLaunchIfNeeded(**first, kInformation));
        EXPECT_EQ(EventLocalStore::shared().itemsCount(), kDefaultEvents);
        EXPECT_TRUE(CCAppHistory::containsEvent(CCAppHistoryKeys::install));
        EXPECT_EQ(starts(), 1);
        EventLocalStore::shared().removeAllEvents();
        ASSERT_TRUE(EventLocalStore::shared().flush());
    }
    const auto second = start();
    ASSERT_TRUE(performFirstLaunchIfNeeded(**second, kInformation));
    EXPECT_EQ(EventLocalStore::shared().itemsCount(), 0);
    EXPECT_EQ(starts(), 1);
}

TEST_F(FirstLaunch, AFullDiskIsReportedAndTheNextLaunchTriesAgain) {
    {
        const auto first = start();
        EventLocalStore::shared();
        files->fillDiskAt(1);
        const Result<> result = performFirstLaunchIfNeeded(**first, kInformation);
        ASSERT_FALSE(result);
        files->heal();
    }
    const auto second = start();
    EXPECT_EQ(EventLocalStore::shared().itemsCount(), 0);
    ASSERT_TRUE(performFirstLaunchIfNeeded(**second, kInformation));
    EXPECT_EQ(EventLocalStore::shared().itemsCount(), kDefaultEvents);
}

}  // namespace
}  // namespace dayward
