// The program's own pictures, as the build has drawn them.
#include <gtest/gtest.h>

#include "resources/HHResources.h"
#include "support/TestEnvironment.h"

namespace dayward {
namespace {

TEST(PicturesOfTheProgram, CataloguesAreWhole) {
    TestEnvironment::Options options;
    options.resources = DAYWARD_BUILT_RESOURCES;
    TestEnvironment environment(options);
    EXPECT_GE(HHResources::icons().size(), 8U);
    EXPECT_GE(HHResources::backgrounds().size(), 17U);
    EXPECT_TRUE(environment.log->errors().empty());

    for (const auto& name : HHResources::icons()) {
        const auto icon = HHResources::image(name);
        ASSERT_FALSE(icon->isEmpty()) << name;
        EXPECT_EQ(icon->rgba()[3], 0) << name << " has no transparent corner";
    }
    for (const auto& name : HHResources::backgrounds()) EXPECT_GE(HHResources::image(name)->width(), 640) << name;
    for (const char* name : {"remind", "BackgroundInfoRandomName.png", "BackgroundInfoRandomColor.png"}) {
        EXPECT_FALSE(HHResources::image(name)->isEmpty()) << name;
    }
}

}  // namespace
}  // namespace dayward
