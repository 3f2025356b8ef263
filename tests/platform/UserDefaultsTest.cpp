#include "platform/UserDefaults.h"

#include <gmock/gmock.h>

#include "platform/Color.h"
#include "platform/FileSystem.h"
#include "platform/KeyedArchiver.h"
#include "platform/KeyedUnarchiver.h"
#include "platform/UnreadableFiles.h"
#include "support/FaultFileSystem.h"
#include "support/TestEnvironment.h"

namespace dayward {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class Refused final : public Archivable {
public:
    [[nodiscard]] std::vector<std::string> archiveClassNames() const override { return {"Refused"}; }
    void encodeWithCoder(KeyedArchiver&) const override {}
};

const Object kRefused = std::make_shared<Refused>();

constexpr const char* kPath = "/home/test/dayward/config/test.defaults";

class UserDefaultsTest : public testing::Test {
protected:
    [[nodiscard]] std::unique_ptr<UserDefaults> open() const {
        auto classes = std::make_shared<ArchiveClasses>();
        registerColorClass(*classes);
        classes->add("Refused", [](KeyedUnarchiver& coder) -> std::shared_ptr<Archivable> {
            coder.refuse("no program writes this");
            return nullptr;
        });
        return std::make_unique<UserDefaults>(files, classes, kPath);
    }

    [[nodiscard]] Dictionary stored() const { return open()->dictionaryRepresentation(); }

    void writeFile(const Data& bytes) const { ASSERT_TRUE(writeFileAtomically(*files, kPath, bytes)); }

    std::shared_ptr<FaultFileSystem> files = std::make_shared<FaultFileSystem>();
    TestEnvironment environment{TestEnvironment::Options{.files = files}};
};

TEST_F(UserDefaultsTest, changesAreSeenAtOnceAndStoredOnSynchronize) {
    const auto defaults = open();
    defaults->setObject(true, "on");
    defaults->setObject(7, "count");
    defaults->setObject("text", "text");
    defaults->archiveObject(colorObject(Color{1, 0, 0, 1}), "colour");
    EXPECT_TRUE(defaults->boolForKey("on"));
    EXPECT_TRUE(stored().empty());
    ASSERT_TRUE(defaults->synchronize());
    const auto again = open();
    EXPECT_EQ(again->integerForKey("count"), 7);
    EXPECT_EQ(again->stringForKey("text"), "text");
    EXPECT_EQ(colorOf(again->unarchiveObjectForKey("colour")), (Color{1, 0, 0, 1}));
}

TEST_F(UserDefaultsTest, processesMergeByKey) {
    const auto one = open();
    one->setObject("old", "both");
    one->setObject("old", "removed");
    ASSERT_TRUE(one->synchronize());
    const auto other = open();
    EXPECT_EQ(other->stringForKey("both"), "old");
    one->setObject("one", "both");
    one->setObject("one", "ones");
    one->removeObjectForKey("removed");
    ASSERT_TRUE(one->synchronize());
    other->setObject("other", "both");
    other->setObject("other", "others");
    EXPECT_EQ(other->stringForKey("ones"), std::nullopt) << "not before it synchronizes";
    ASSERT_TRUE(other->synchronize());
    const Dictionary expected{{"both", "other"}, {"ones", "one"}, {"others", "other"}};
    EXPECT_EQ(other->dictionaryRepresentation(), expected);
    ASSERT_TRUE(one->synchronize());
    EXPECT_EQ(one->dictionaryRepresentation(), expected);
}

TEST_F(UserDefaultsTest, synchronizeWithoutChangesWritesNothing) {
    const auto defaults = open();
    defaults->setObject(1, "key");
    ASSERT_TRUE(defaults->synchronize());
    const auto inode = (*files->status(kPath))->inode;
    ASSERT_TRUE(defaults->synchronize());
    EXPECT_EQ((*files->status(kPath))->inode, inode);
}

TEST_F(UserDefaultsTest, anUnreadableFileIsKeptAsideAndReplacesNoEarlierOne) {
    int number = 0;
    for (const Data& bytes : {dataOf("no archive"), Data(), KeyedArchiver::archivedDataWithRootObject("no dictionary"),
                              KeyedArchiver::archivedDataWithRootObject(Dictionary{{"key", kRefused}})}) {
        writeFile(bytes);
        const auto defaults = open();
        EXPECT_TRUE(defaults->dictionaryRepresentation().empty());
        ++number;
        EXPECT_EQ(*files->readFile(unreadableCopyPath(kPath, number)), bytes);
        EXPECT_FALSE(files->exists(kPath));
        EXPECT_THAT(environment.log->errors(), testing::Contains(testing::HasSubstr(kPath)));
        defaults->setObject(1, "key");
        ASSERT_TRUE(defaults->synchronize());
        EXPECT_EQ(stored(), (Dictionary{{"key", 1}}));
    }
}

TEST_F(UserDefaultsTest, whatIsKnownSurvivesAFileThatBecameUnreadable) {
    const auto defaults = open();
    defaults->setObject(1, "key");
    ASSERT_TRUE(defaults->synchronize());
    writeFile(dataOf("overwritten"));
    ASSERT_TRUE(defaults->synchronize());
    EXPECT_EQ(stored(), (Dictionary{{"key", 1}}));
}

/// Whichever operation fails, the file holds the old or the new values, the failure is told and
/// logged, and the next call makes up for it.
TEST_F(UserDefaultsTest, aFailedSynchronizeLosesNothing) {
    const auto defaults = open();
    defaults->setObject("old", "key");
    ASSERT_TRUE(defaults->synchronize());
    std::size_t failures = 0;
    for (std::size_t number = 1; number < 30; ++number) {
        const std::string value = "value " + std::to_string(number);
        const Object before = stored().at("key");
        const std::size_t lines = environment.log->errors().size();
        defaults->setObject(value, "key");
        files->failOperation(number, ENOSPC);
        const auto result = defaults->synchronize();
        files->restart();
        EXPECT_EQ(defaults->stringForKey("key"), value);
        if (!result) {
            ++failures;
            EXPECT_GT(environment.log->errors().size(), lines) << number;
            EXPECT_TRUE(stored().at("key") == before || stored().at("key") == Object(value)) << number;
        }
        ASSERT_TRUE(defaults->synchronize()) << number;
        EXPECT_EQ(stored().at("key").stringValue(), value) << number;
    }
    EXPECT_GT(failures, 4U) << "reading, locking, writing, syncing and renaming can fail";
}

TEST_F(UserDefaultsTest, anUnreadableValueIsLogged) {
    const auto defaults = open();
    defaults->setObject(dataOf("no archive"), "key");
    defaults->archiveObject(kRefused, "refused");
    EXPECT_TRUE(defaults->unarchiveObjectForKey("key").isNull());
    EXPECT_TRUE(defaults->unarchiveObjectForKey("refused").isNull());
    EXPECT_THAT(environment.log->errors(), ElementsAre(HasSubstr("key"), HasSubstr("no program writes this")));
}

}  // namespace
}  // namespace dayward
