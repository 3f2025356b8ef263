#include "Submodules/CorpLibrary2/App/CCApp.h"

#include <gmock/gmock.h>

#include "Submodules/CorpLibrary2/App/CCAppHistory.h"
#include "Submodules/CorpLibrary2/App/CCAppValues.h"
#include "Submodules/CorpLibrary2/Foundation/FoundationFixture.h"
#include "platform/Application.h"
#include "platform/NotificationCenter.h"

namespace dayward {
namespace {

constexpr const char* kWritingMoments[] = {Application::kDidFinishLaunchingNotification,
                                           Application::kDidEnterBackgroundNotification};

/// A device whose application is started again and again, each time as a new process.
class CCAppTest : public testing::Test {
protected:
    CCAppTest() { restart("2026-03-10T12:00:00"); }

    void restart(const std::string& now) {
        device.reset();
        auto options = withFoundationClasses(files);
        options.now = now;
        device = std::make_unique<TestEnvironment>(std::move(options));
    }
    void start(const std::optional<std::string>& version) {
        CCApp::setInformation(
            {.bundleIdentifier = "id", .displayName = "Name", .shortVersion = version, .bundleVersion = std::nullopt});
        CCApp::initializeAppWithAppId("19", "12345");
    }
    void startAt(const std::string& now, const std::optional<std::string>& version) {
        restart(now);
        start(version);
    }
    static std::size_t count(const char* event) { return CCAppHistory::countEvent(event, std::nullopt, std::nullopt); }
    static Object value(const char* key) { return CCAppValues::valueForKey(key); }

    std::shared_ptr<FaultFileSystem> files = std::make_shared<FaultFileSystem>();
    std::unique_ptr<TestEnvironment> device;
};

TEST_F(CCAppTest, TheFirstStartRecordsInstallAndStartButNoUpdate) {
    start("2.4");
    EXPECT_TRUE(CCApp::isFirstStart());
    EXPECT_EQ(count(CCAppHistoryKeys::install), 1u);
    EXPECT_EQ(count(CCAppHistoryKeys::update), 0u);
    EXPECT_EQ(value(CCAppValueKeys::astAppVersion), "2.4");
    EXPECT_TRUE(value(CCAppValueKeys::previousAppVersion).isNull());
    EXPECT_EQ(CCApp::appId(), "19");
    CCApp::setStoreAddress("https://store.invalid");
    EXPECT_EQ(CCApp::shareLink(), "https://store.invalid/app/id12345?ct=share&mt=8");
}

TEST_F(CCAppTest, LaterStartsCountFromTheNewestRelease) {
    start("2.4");
    startAt("2026-03-11T08:00:00", "2.4");
    EXPECT_FALSE(CCApp::isFirstStart());
    EXPECT_EQ(CCApp::releaseStartCount(), 2u);
    startAt("2026-03-12T08:00:00", "2.5");
    EXPECT_EQ(value(CCAppValueKeys::astAppVersion), "2.5");
    EXPECT_EQ(value(CCAppValueKeys::previousAppVersion), "2.4");
    EXPECT_EQ(CCApp::releaseDate(), device->at("2026-03-12T08:00:00"));
    EXPECT_EQ(CCApp::installDate(), device->at("2026-03-10T12:00:00"));
    startAt("2026-03-13T08:00:00", "2.5");
    EXPECT_EQ(CCApp::startCount(), 4u);
    EXPECT_EQ(CCApp::releaseStartCount(), 2u);
    EXPECT_EQ(count(CCAppHistoryKeys::install), 1u);
    EXPECT_EQ(count(CCAppHistoryKeys::update), 1u);
}

TEST_F(CCAppTest, AStoredVersionThatIsNoStringCountsAsNone) {
    CCAppValues::setValue(24, CCAppValueKeys::astAppVersion);
    start("2.4");
    EXPECT_EQ(value(CCAppValueKeys::astAppVersion), "2.4");
    EXPECT_TRUE(value(CCAppValueKeys::previousAppVersion).isNull());
    EXPECT_EQ(count(CCAppHistoryKeys::update), 0u);
}

TEST_F(CCAppTest, ThePlatformsNotificationsWriteWhatChanged) {
    start("2.4");
    start("2.4");
    for (const char* name : kWritingMoments) {
        CCAppHistory::addEvent(name);
        CCAppValues::setValue(true, name);
        (*device)->notifications().post(name, nullptr);
    }
    restart("2026-03-11T08:00:00");
    for (const char* name : kWritingMoments) {
        EXPECT_EQ(count(name), 1u);
        EXPECT_EQ(value(name), true);
    }
    EXPECT_EQ(CCApp::startCount(), 2u);
}

TEST_F(CCAppTest, ADiskThatIsFullDoesNotStopTheLaunch) {
    files->fillDiskAt(1);
    start("2.4");
    EXPECT_TRUE(CCApp::isFirstStart());
    EXPECT_THAT(device->log->errors(), testing::ElementsAre(testing::StartsWith("CCAppHistory writeToFile: "),
                                                            testing::StartsWith("CCAppValues writeToFile: ")));
    files->heal();
    CCApp::synchronize();
    restart("2026-03-11T08:00:00");
    EXPECT_TRUE(CCApp::isFirstStart());
    EXPECT_EQ(value(CCAppValueKeys::astAppVersion), "2.4");
}

}  // namespace
}  // namespace dayward
