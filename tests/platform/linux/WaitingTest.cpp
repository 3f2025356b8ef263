#include <gtest/gtest.h>
#include <poll.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "platform/Clock.h"
#include "platform/linux/PathWatch.h"
#include "platform/linux/WallClockAlarm.h"
#include "support/TestEnvironment.h"

namespace dayward {
namespace {

bool isReadable(int descriptor) {
    pollfd waiting{descriptor, POLLIN, 0};
    return poll(&waiting, 1, 0) == 1;
}

void write(const std::string& path, const std::string& text) { std::ofstream(path) << text; }

TEST(PathWatchTest, TellsOfEachChangeOfItsFilesOnceAndOfNothingElse) {
    const TestEnvironment environment;
    const std::string& directory = environment.home;
    const std::string inner = directory + "/made/later", file = inner + "/file";
    auto watch = PathWatch::make({file, directory + "/other"});
    ASSERT_TRUE(watch);
    EXPECT_FALSE(watch->take());
    std::filesystem::create_directories(inner);
    EXPECT_FALSE(watch->take()) << "its directory is no change of the file";
    write(file, "a");
    EXPECT_TRUE(isReadable(watch->descriptor()));
    EXPECT_TRUE(watch->take());
    EXPECT_FALSE(watch->take());
    write(inner + "/beside", "b");
    EXPECT_FALSE(watch->take());
    write(file + ".new", "a");
    std::filesystem::rename(file + ".new", file);
    EXPECT_TRUE(watch->take());
    std::filesystem::remove_all(directory + "/made");
    EXPECT_TRUE(watch->take());
    std::filesystem::create_directories(inner);
    EXPECT_FALSE(watch->take());
    write(file, "c");
    EXPECT_TRUE(watch->take()) << "of a directory that came back";
    write(directory + "/other", "d");
    EXPECT_TRUE(watch->take());
}

TEST(WallClockAlarmTest, RingsForAPassedMomentAndWaitsForOthers) {
    auto alarm = WallClockAlarm::make();
    ASSERT_TRUE(alarm);
    for (const auto moment : {std::optional<Date>(), std::optional(SystemClock().now() + TimeInterval(3600))}) {
        alarm->arm(moment);
        EXPECT_FALSE(isReadable(alarm->descriptor()));
        EXPECT_FALSE(alarm->take());
    }
    for (const Date moment : {SystemClock().now() - TimeInterval(3600), Date::since1970(-5)}) {
        alarm->arm(moment);
        EXPECT_TRUE(isReadable(alarm->descriptor()));
        EXPECT_EQ(alarm->take(), WallClockAlarm::Ring::time);
        EXPECT_FALSE(alarm->take());
    }
}

}  // namespace
}  // namespace dayward
