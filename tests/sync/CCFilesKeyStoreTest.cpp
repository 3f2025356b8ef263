#include "sync/CCFilesKeyStore.h"

#include <gmock/gmock.h>

#include "platform/FileSystem.h"
#include "support/FaultFileSystem.h"
#include "support/NotificationRecorder.h"
#include "support/TestEnvironment.h"

namespace dayward {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

/// Texts in files KEY.txt; what the hooks saw.
class TextStore final : public CCFilesKeyStore, public CCFilesKeyStoreDelegate {
public:
    TextStore(Environment& environment, std::shared_ptr<FileVersions> versions = nullptr)
        : CCFilesKeyStore(environment, std::move(versions)) {
        setDelegate(this);
    }

    std::string keyForURL(CCFilesKeyStore&, const std::string& url) const override {
        return lastPathComponent(deletingPathExtension(url));
    }
    Result<std::string> URLForKey(CCFilesKeyStore&, const std::string& key) const override {
        if (key == "forbidden") return failure("text", 1);
        return joinPath(environment().paths().documents, key + ".txt");
    }
    Result<Object> readValueFromURL(CCFilesKeyStore&, const std::string& url) override {
        const Data bytes = TRY(environment().files().readFile(url));
        return textOf(bytes);
    }
    Result<> writeValue(CCFilesKeyStore&, const Object& value, const std::string& url) override {
        if (value.string() == nullptr) return failure("text", 2);
        return writeFileAtomically(environment().files(), url, dataOf(*value.string()));
    }
    void storeValueDidUpdate(const std::string& key) override { hooks.push_back("update " + key); }
    void storeValueDidRemove(const std::string& key) override { hooks.push_back("remove " + key); }

    std::vector<std::string> hooks;
};

/// Versions that fail or remain as told.
class ScriptedVersions final : public FileVersions {
public:
    Result<> removeOtherVersionsOfItem(const std::string&) override { return removal; }
    Result<std::vector<std::string>> unresolvedConflictVersionsOfItem(const std::string&) override { return remaining; }
    Result<> setResolved(const std::string& version) override {
        resolved.push_back(version);
        return {};
    }
    Result<> startDownloading(const std::string&) override { return download; }

    Result<> removal, download;
    std::vector<std::string> remaining, resolved;
};

class CCFilesKeyStoreTest : public testing::Test {
protected:
    static TestEnvironment::Options inMemory(const std::shared_ptr<FaultFileSystem>& files) {
        TestEnvironment::Options options;
        options.files = files;
        return options;
    }

    std::shared_ptr<FaultFileSystem> files = std::make_shared<FaultFileSystem>();
    TestEnvironment environment{inMemory(files)};
    std::shared_ptr<ScriptedVersions> versions = std::make_shared<ScriptedVersions>();
    TextStore store{*environment, versions};
    NotificationRecorder notifications{
        *environment, {CCKeyStoreDidRefreshNotification, CCKeyStoreDidUpdateNotification}, {}, &store};
};

TEST_F(CCFilesKeyStoreTest, WritesReadsAndRemoves) {
    ASSERT_TRUE(store.setStoreValue("hello", "a"));
    EXPECT_THAT(notifications.take(), ElementsAre("CCKeyStoreDidUpdateNotification removed=[] updated=[a]"));
    EXPECT_EQ(store.readValueForKey("a").value(), Object("hello"));
    ASSERT_TRUE(store.setStoreValue(nullptr, "a"));
    EXPECT_THAT(notifications.take(), ElementsAre("CCKeyStoreDidUpdateNotification removed=[a] updated=[]"));
    EXPECT_FALSE(store.readValueForKey("a"));
    EXPECT_THAT(store.hooks, ElementsAre("update a", "remove a"));
    EXPECT_THAT(
        environment.log->debugLines(),
        testing::IsSupersetOf({"CCFilesKeyStore write: a", "CCFilesKeyStore read: a", "CCFilesKeyStore remove: a"}));
}

TEST_F(CCFilesKeyStoreTest, FailuresReachTheCallerAndNobodyElse) {
    const auto removed = store.setStoreValue(nullptr, "absent");
    ASSERT_FALSE(removed);
    EXPECT_EQ(removed.error().domain, "file");
    EXPECT_EQ(removed.error().code, ENOENT);
    EXPECT_EQ(store.setStoreValue(5, "a").error(), (Error{"text", 2, {}}));
    EXPECT_EQ(store.setStoreValue("x", "forbidden").error(), (Error{"text", 1, {}}));
    EXPECT_EQ(store.readValueForKey("forbidden").error(), (Error{"text", 1, {}}));
    EXPECT_THAT(store.hooks, IsEmpty());
    EXPECT_THAT(notifications.take(), IsEmpty());
}

TEST_F(CCFilesKeyStoreTest, AnyFailingStepOfAWriteLeavesAWholeValueAndSilence) {
    ASSERT_TRUE(store.setStoreValue("old", "a"));
    const std::size_t before = files->operationCount();
    ASSERT_TRUE(store.setStoreValue("old", "a"));
    const std::size_t steps = files->operationCount() - before;
    ASSERT_GT(steps, 3U);
    for (std::size_t step = 1; step <= steps; ++step) {
        (void)notifications.take();
        files->failOperation(step);
        const auto written = store.setStoreValue("new", "a");
        files->heal();
        const auto value = store.readValueForKey("a");
        ASSERT_TRUE(value) << "step " << step;
        EXPECT_EQ(notifications.take().empty(), !written.has_value()) << "step " << step;
        EXPECT_TRUE(*value == Object("new") || (!written && *value == Object("old"))) << "step " << step;
        ASSERT_TRUE(store.setStoreValue("old", "a"));
    }
}

TEST_F(CCFilesKeyStoreTest, PostsNothingForNothing) {
    store.postNotificationStoreDidUpdate({}, {});
    EXPECT_THAT(notifications.take(), IsEmpty());
    store.postNotificationStoreDidUpdate({"a", "b"}, {"c"});
    store.postNotificationStoreDidRefresh();
    EXPECT_THAT(notifications.take(), ElementsAre("CCKeyStoreDidUpdateNotification removed=[c] updated=[a b]",
                                                  "CCKeyStoreDidRefreshNotification"));
}

TEST_F(CCFilesKeyStoreTest, ResolvesTheVersionsThatRemain) {
    const std::string path = joinPath(environment->paths().documents, "a.txt");
    versions->remaining = {"v1", "v2"};
    EXPECT_TRUE(store.unresolveConflictForURL(path));
    EXPECT_THAT(versions->resolved, IsEmpty()) << "no such file: nothing is touched";
    files->store(path, dataOf("x"));
    EXPECT_TRUE(store.unresolveConflictForURL(path));
    EXPECT_THAT(versions->resolved, ElementsAre("v1", "v2"));
    versions->removal = failure("versions", 3);
    EXPECT_FALSE(store.unresolveConflictForURL(path));
    EXPECT_THAT(environment.log->errors(), ElementsAre(HasSubstr("versions")));
    EXPECT_THAT(store.hooks, IsEmpty());
}

TEST_F(CCFilesKeyStoreTest, TellsWhetherADownloadIsAccepted) {
    EXPECT_TRUE(store.requestDownloadingForURL("/x"));
    versions->download = failure("versions", 4);
    EXPECT_FALSE(store.requestDownloadingForURL("/x"));
    EXPECT_THAT(environment.log->errors(), Not(IsEmpty()));
}

TEST_F(CCFilesKeyStoreTest, StopsWithoutADelegate) {
    store.setDelegate(nullptr);
    EXPECT_DEATH((void)store.readValueForKey("a"), "no delegate");
}

}  // namespace
}  // namespace dayward
