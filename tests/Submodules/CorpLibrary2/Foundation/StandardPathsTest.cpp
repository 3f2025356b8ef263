#include "Submodules/CorpLibrary2/Foundation/StandardPaths.h"

#include <gmock/gmock.h>

#include "Submodules/CorpLibrary2/Foundation/CCApplicationGroup.h"
#include "support/FaultFileSystem.h"
#include "support/TestEnvironment.h"

namespace dayward {

namespace {

using testing::ElementsAre;

class StandardPaths : public testing::Test {
protected:
    std::shared_ptr<FaultFileSystem> files = std::make_shared<FaultFileSystem>();
    TestEnvironment environment{{.files = files}};
};

TEST_F(StandardPaths, areMadeAndMarkedOnTheFirstReadOnly) {
    const std::string offline = offlineDataPath();
    EXPECT_EQ(offline, environment->paths().applicationSupport + "/Offline Data");
    EXPECT_TRUE(files->isDirectory(offline));
    EXPECT_EQ(files->extendedAttribute(offline, "user.com.apple.MobileBackup"), dataOf("1"));
    EXPECT_EQ(temporaryDataPath(), environment->paths().caches + "/Temporary Files");
    EXPECT_TRUE(files->isDirectory(temporaryDataPath()));

    const std::size_t before = files->operationCount();
    EXPECT_EQ(pathForOfflineFile("a.dat"), offline + "/a.dat");
    EXPECT_EQ(pathForTemporaryFile("a"), temporaryDataPath() + "/a");
    EXPECT_EQ(pathForPrivateFile("HHSettings"), environment->paths().applicationSupport + "/HHSettings");
    EXPECT_EQ(files->operationCount(), before);
}

TEST_F(StandardPaths, findTheFirstExistingFile) {
    for (const char* name : {"a.png", "a.jpg", "b", "c.tar.gz"}) {
        files->store(joinPath(publicDataPath(), name), dataOf("x"));
    }
    struct Case {
        const char* name;
        std::vector<std::string> types;
        const char* found;  // null: nothing
    };
    const Case cases[] = {
        {"a", {"gif", "jpg", "png"}, "a.jpg"}, {"a.png", {"jpg"}, nullptr},   {"b", {}, "b"},
        {"c.tar.gz", {}, "c.tar.gz"},          {"c.tar", {"gz"}, "c.tar.gz"},
    };
    for (const Case& tested : cases) {
        const auto expected = tested.found == nullptr ? std::nullopt : std::optional(pathForPublicFile(tested.found));
        EXPECT_EQ(findPathForPublicFileName(tested.name, tested.types), expected) << tested.name;
    }
    EXPECT_THAT(getTestExtensionsForFileName("a.png", {"x", "y"}), ElementsAre("x", "y"));
}

TEST_F(StandardPaths, withoutTheirPlaceTheProcessStops) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    ASSERT_TRUE(files->removeTree(environment->paths().library));
    ASSERT_TRUE(files->removeTree(environment->paths().group));
    files->fillDiskAt(1);
    EXPECT_DEATH((void)systemDirectory(SystemDirectory::library),
                 "The application directory doesn't exist and could not be created. Error: file");
    EXPECT_DEATH((void)CCApplicationGroup("group.dayward").groupDirectory(),
                 "The shared application group container is unavailable. Check your entitlements and provisioning");
}

}  // namespace

}  // namespace dayward
