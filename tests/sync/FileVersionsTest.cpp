#include "sync/FileVersions.h"

#include <gmock/gmock.h>

#include "support/FaultFileSystem.h"

namespace dayward {
namespace {

using testing::ElementsAre;
using testing::Key;

TEST(ConflictCopyName, TellsTheOriginal) {
    const std::pair<const char*, const char*> cases[] = {
        {"a.sync-conflict-20260310-120000-ABCDEFG.evn", "a.evn"},
        {"a.b.sync-conflict-20260310-120000-A1.evn", "a.b.evn"},
        {"Categories.sync-conflict-20260310-120000-A.dat", "Categories.dat"},
        {"plain.sync-conflict-20260310-120000-ABCDEFG", "plain"},
        {"a.sync-conflict-20260310-120000-AAA.sync-conflict-20260311-120000-BBB.evn",
         "a.sync-conflict-20260310-120000-AAA.evn"},
        {"a.evn", ""},
        {"", ""},
        {".sync-conflict-20260310-120000-ABCDEFG.evn", ""},
        {"a.sync-conflict-2026031-120000-ABCDEFG.evn", ""},
        {"a.sync-conflict-20260310-12000x-ABCDEFG.evn", ""},
        {"a.sync-conflict-20260310-120000-.evn", ""},
        {"a.sync-conflict-20260310-120000.evn", ""},
        {"a.sync-conflict-20260310-120000-AB/C.evn", ""},
        {"a.sync-conflict-", ""},
        {"a.sync-conflict-20260310_120000-ABCDEFG.evn", ""},
    };
    for (const auto& [name, original] : cases) EXPECT_EQ(originalNameOfConflictCopy(name), original) << name;
}

class FolderFileVersionsTest : public testing::Test {
protected:
    FolderFileVersionsTest() {
        for (const char* path : {"/d/a.evn/general.t", "/d/a.evn/general.sync-conflict-20260310-120000-AAA.t",
                                 "/d/a.sync-conflict-20260310-120000-BBB.evn/general.t",
                                 "/d/ab.sync-conflict-20260310-120000-CCC.evn/general.t", "/d/b.evn/general.t"})
            files->store(path, dataOf("x"));
    }
    std::shared_ptr<FaultFileSystem> files = std::make_shared<FaultFileSystem>();
    FolderFileVersions versions{files};
};

TEST_F(FolderFileVersionsTest, FindsCopiesBesideAndInsideThePackage) {
    const auto found = versions.unresolvedConflictVersionsOfItem("/d/a.evn");
    ASSERT_TRUE(found);
    EXPECT_THAT(*found, ElementsAre("/d/a.evn/general.sync-conflict-20260310-120000-AAA.t",
                                    "/d/a.sync-conflict-20260310-120000-BBB.evn"));
    EXPECT_THAT(versions.unresolvedConflictVersionsOfItem("/d/b.evn"), testing::Optional(testing::IsEmpty()));
}

TEST_F(FolderFileVersionsTest, RemovesTheCopiesOfThisItemOnly) {
    ASSERT_TRUE(versions.removeOtherVersionsOfItem("/d/a.evn"));
    EXPECT_THAT(files->tree("/d"),
                ElementsAre(Key("a.evn/general.t"), Key("ab.sync-conflict-20260310-120000-CCC.evn/general.t"),
                            Key("b.evn/general.t")));
}

TEST_F(FolderFileVersionsTest, SettlingACopyThatIsGoneIsNoError) {
    EXPECT_TRUE(versions.setResolved("/d/no.sync-conflict-20260310-120000-AAA.evn"));
    EXPECT_TRUE(versions.startDownloading("/d/a.evn"));
}

}  // namespace
}  // namespace dayward
