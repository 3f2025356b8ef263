#include "resources/FavoriteData.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>

#include "Submodules/CorpLibrary2/Foundation/StandardPaths.h"
#include "platform/Color.h"
#include "support/TestEnvironment.h"

namespace dayward {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(FavoriteData, NewestFirstWithoutEqualOnes) {
    TestEnvironment environment;
    EXPECT_THAT(FavoriteData::getObjectsForKey("icons", 5), IsEmpty());
    for (const char* name : {"a", "b", "c", "a"}) FavoriteData::addObject(name, "icons");
    FavoriteData::addObject("z", "sounds");
    EXPECT_THAT(FavoriteData::getObjectsForKey("icons", 9), ElementsAre("a", "c", "b"));
    EXPECT_THAT(FavoriteData::getObjectsForKey("icons", 2), ElementsAre("a", "c"));
    EXPECT_THAT(FavoriteData::getObjectsForKey("sounds", 9), ElementsAre("z"));

    TestEnvironment later({.home = environment.home});
    EXPECT_THAT(FavoriteData::getObjectsForKey("icons", 1), ElementsAre("a"));
}

TEST(FavoriteData, RecordsAreComparedByValue) {
    TestEnvironment environment;
    const auto color = [](double red) { return Object(std::make_shared<ColorRecord>(Color{red, 0, 0, 1})); };
    for (const double red : {1.0, 0.5, 1.0}) FavoriteData::addObject(color(red), "colors");
    EXPECT_THAT(FavoriteData::getObjectsForKey("colors", 9), ElementsAre(color(1), color(0.5)));
}

TEST(FavoriteData, TheTwentyFirstPushesOutTheOldest) {
    TestEnvironment environment;
    for (int index = 0; index <= 20; ++index) FavoriteData::addObject(index, "icons");
    const auto objects = FavoriteData::getObjectsForKey("icons", 100);
    ASSERT_EQ(objects.size(), FavoriteData::kMost);
    EXPECT_EQ(objects.front(), Object(20));
    EXPECT_EQ(objects.back(), Object(1));
}

TEST(FavoriteData, ABrokenFileCountsAsEmpty) {
    TestEnvironment environment;
    const std::string path = pathForPrivateFile("favoriteData.dat");
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    std::ofstream(path) << "no archive";
    EXPECT_THAT(FavoriteData::getObjectsForKey("icons", 5), IsEmpty());
    FavoriteData::addObject("a", "icons");
    EXPECT_THAT(FavoriteData::getObjectsForKey("icons", 5), ElementsAre("a"));
}

}  // namespace
}  // namespace dayward
