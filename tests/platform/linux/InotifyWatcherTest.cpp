#include "platform/linux/InotifyWatcher.h"

#include <gmock/gmock.h>

#include <atomic>
#include <condition_variable>
#include <set>
#include <thread>

#include "platform/Environment.h"
#include "platform/linux/LinuxFileSystem.h"
#include "support/TestEnvironment.h"

namespace dayward {

namespace {

using Names = std::set<std::string>;
using testing::ElementsAre;

class Watching : public testing::Test {
protected:
    void SetUp() override {
        directory = environment->paths().documents;
        store("old.evn");
        start();
    }

    void start() {
        auto made = watcher.watch(directory, [this](const std::vector<std::string>& names) {
            const Lock lock(mutex);
            ++calls;
            lost = lost || names.empty();
            seen.insert(names.begin(), names.end());
            sawEnvironment = Environment::hasCurrent() && &Environment::current() == environment.environment.get();
            told.notify_all();
        });
        ASSERT_TRUE(made);
        watch = std::move(*made);
        store("early.evn");
        EXPECT_THAT(namesUntil("early.evn"), ElementsAre("early.evn"));
        watch->watchInside();
        ASSERT_TRUE(waitFor([&] { return std::exchange(lost, false); }));
    }

    void store(const std::string& key, const std::string& text = "content") {
        const std::vector<PackageFile> content = {{"general.t", dataOf(text)}};
        ASSERT_TRUE(writePackageAtomically(files, joinPath(directory, key), content));
    }

    /// Waits for a call of the handler that makes the condition true.
    template <class Condition>
    bool waitFor(const Condition& condition) {
        const Lock lock(mutex);
        const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        while (!condition()) {
            if (told.wait_until(mutex, limit) == std::cv_status::timeout) return false;
        }
        return true;
    }

    /// The names told, once the last of them is there.
    Names namesUntil(const std::string& last) {
        EXPECT_TRUE(waitFor([&] { return seen.contains(last); })) << last;
        const Lock lock(mutex);
        return std::exchange(seen, {});
    }

    TestEnvironment environment;
    LinuxFileSystem files;
    InotifyWatcher watcher;
    std::string directory;
    Mutex mutex;
    std::condition_variable_any told;
    Names seen;
    std::atomic<int> calls = 0;
    bool lost = false;
    std::atomic<bool> sawEnvironment = false;
    std::unique_ptr<DirectoryWatch> watch;
};

TEST_F(Watching, tellsNewReplacedAndRemovedPackagesByTheirNamesOnly) {
    store("new.evn");
    EXPECT_THAT(namesUntil("new.evn"), ElementsAre("new.evn"));
    store("old.evn", "replaced by an exchange");
    EXPECT_THAT(namesUntil("old.evn"), ElementsAre("old.evn"));
    ASSERT_TRUE(files.removeTree(joinPath(directory, "new.evn")));
    EXPECT_THAT(namesUntil("new.evn"), ElementsAre("new.evn"));
    EXPECT_TRUE(sawEnvironment);
}

TEST_F(Watching, tellsFilesWrittenInsideAPackageAlsoAfterItWasReplaced) {
    const std::string inside = joinPath(joinPath(directory, "old.evn"), "general.t");
    ASSERT_TRUE(writeFileAtomically(files, inside, dataOf("x")));
    EXPECT_THAT(namesUntil("old.evn"), ElementsAre("old.evn"));
    for (int round = 0; round < 3; ++round) {
        store("old.evn");
        (void)namesUntil("old.evn");
        auto handle = files.openForWriting(inside);
        ASSERT_TRUE(handle);
        ASSERT_TRUE((*handle)->write(dataOf("in place")));
        ASSERT_TRUE((*handle)->close());
        EXPECT_THAT(namesUntil("old.evn"), ElementsAre("old.evn"));
    }
}

TEST_F(Watching, followsTwoPackagesThatSwapTheirNames) {
    store("other.evn");
    (void)namesUntil("other.evn");
    ASSERT_TRUE(files.exchange(joinPath(directory, "old.evn"), joinPath(directory, "other.evn")));
    EXPECT_THAT(namesUntil("other.evn"), ElementsAre("old.evn", "other.evn"));
    ASSERT_TRUE(writeFileAtomically(files, joinPath(directory, "old.evn/added"), dataOf("x")));
    EXPECT_THAT(namesUntil("old.evn"), ElementsAre("old.evn"));
}

TEST_F(Watching, gathersQuickChanges) {
    for (int number = 0; number < 40; ++number) store(std::to_string(number) + ".evn");
    EXPECT_TRUE(waitFor([&] { return seen.size() == 40; }));
    const Lock lock(mutex);
    EXPECT_LT(calls, 20);
}

TEST_F(Watching, callsNobodyAfterItsEnd) {
    store("new.evn");
    watch.reset();
    const int before = calls;
    store("later.evn");
    std::this_thread::yield();
    EXPECT_EQ(calls, before);
    EXPECT_FALSE(seen.contains("later.evn"));
}

TEST_F(Watching, mayEndInItsOwnHandler) {
    std::unique_ptr<DirectoryWatch> own;
    bool ended = false;
    auto made = watcher.watch(directory, [&](const std::vector<std::string>&) {
        const Lock lock(mutex);
        own.reset();
        ended = true;
        told.notify_all();
    });
    ASSERT_TRUE(made);
    {
        const Lock lock(mutex);
        own = std::move(*made);
    }
    store("new.evn");
    EXPECT_TRUE(waitFor([&] { return ended; }));
}

TEST_F(Watching, tellsThatEverythingMayHaveChangedWhenTheDirectoryGoes) {
    ASSERT_TRUE(files.rename(directory, directory + "-moved"));
    EXPECT_TRUE(waitFor([&] { return lost; }));
}

TEST_F(Watching, failsWithoutADirectory) {
    const auto result = watcher.watch(joinPath(directory, "absent"), [](const auto&) {});
    ASSERT_FALSE(result);
    EXPECT_EQ(result.error().code, ENOENT);
    EXPECT_FALSE(watcher.watch(joinPath(directory, "old.evn/general.t"), [](const auto&) {}));
}

}  // namespace

}  // namespace dayward
