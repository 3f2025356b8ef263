#include "Classes/Event/EventLocalStore.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <random>
#include <set>
#include <thread>

#include "Classes/Category/ImageEventIconPicture.h"
#include "EventStoreDevice.h"
#include "platform/FailedSave.h"
#include "platform/linux/AsioQueues.h"
#include "support/FaultFileSystem.h"

namespace dayward {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class EventLocalStoreTest : public testing::Test {
protected:
    EventStoreDevice device;
};

TEST_F(EventLocalStoreTest, AnEmptyDirectoryGivesAnInitializedEmptyStore) {
    EventLocalStore& store = device.store();
    EXPECT_TRUE(store.initialized());
    EXPECT_EQ(store.itemsCount(), 0U);
    EXPECT_THAT(device.notifications.take(), ElementsAre(kRefreshed));
    EXPECT_THAT(device.environment.log->errors(), IsEmpty());
}

TEST_F(EventLocalStoreTest, TheFirstRefreshReachesObserversThatAskForTheStore) {
    device.writePackage(*makeEvent("a", "at start"));
    std::vector<const void*> seen;
    const auto observation =
        device.environment->notifications().addObserver(kRefreshed, [&](const Notification& notification) {
            // From another thread, which must not wait for the one that makes the store.
            std::thread([&] { seen.push_back(storeIdentity(device.store())); }).join();
            EXPECT_EQ(seen.back(), notification.object);
            EXPECT_EQ(EventLocalStore::shared().itemsCount(), 1U);
        });
    EventLocalStore& store = device.store();
    EXPECT_THAT(seen, ElementsAre(storeIdentity(store)));
}

TEST_F(EventLocalStoreTest, ADirectoryThatCannotBeListedIsLoggedAndEmpty) {
    ASSERT_TRUE(device.environment->files().removeTree(device.environment->paths().documents));
    EXPECT_TRUE(device.store().initialized());
    EXPECT_THAT(device.environment.log->errors(), Contains(HasSubstr(device.environment->paths().documents)));
    ASSERT_EQ(device.store().leftOut().size(), 1U);
    EXPECT_EQ(device.store().leftOut()[0].path, device.environment->paths().documents);
    EXPECT_THAT(device.notifications.take(), ElementsAre(kRefreshed));
    ASSERT_TRUE(device.environment->files().createDirectory(device.environment->paths().documents));
    device.store().refreshFromDisk();
    EXPECT_THAT(device.store().leftOut(), IsEmpty());
}

TEST_F(EventLocalStoreTest, LoadsWhatCanBeReadAndKeepsTheRestOnDisk) {
    device.writeManyPackages(300);
    const std::string& documents = device.environment->paths().documents;
    device.writeFile(documents + "/plain.evn", dataOf("no package"));
    device.writeFile(documents + "/empty.evn/other", {});
    device.writeFile(documents + "/broken.evn/general.t", dataOf("bplist00 broken"));
    device.writeFile(documents + "/notes.txt", dataOf("no event"));
    device.writeFile(documents + "/.evn", dataOf("a name without extension"));
    EventLocalStore& store = device.store();
    EXPECT_EQ(store.itemsCount(), 300U);
    EXPECT_EQ(device.nameInMemory("key299"), "n299");
    std::vector<std::string> leftOut;
    for (const auto& file : store.leftOut()) {
        leftOut.push_back(lastPathComponent(file.path));
        EXPECT_FALSE(file.reason.empty());
    }
    EXPECT_THAT(leftOut, UnorderedElementsAre("broken.evn", "empty.evn", "plain.evn"));
    EXPECT_EQ(device.environment.log->errors().size(), 3U);
    for (const char* key : {"broken", "empty", "plain"}) EXPECT_TRUE(device.hasPackage(key)) << key;
}

TEST_F(EventLocalStoreTest, AnUpdateIsInMemoryAtOnceAndOnDiskLater) {
    EventLocalStore& store = device.store();
    (void)device.notifications.take();
    store.updateEvents({makeEvent("a", "first"), makeEvent("b", "second")});
    EXPECT_EQ(device.nameInMemory("a"), "first");
    EXPECT_EQ(store.syncVersionForKey("a"), CCSyncItemVersion(device.environment.clock->now()));
    EXPECT_THAT(device.notifications.take(), ElementsAre(eventsUpdated("a b")));
    EXPECT_FALSE(device.hasPackage("a"));
    device.run();
    EXPECT_EQ(device.nameOnDisk("a"), "first");
    EXPECT_EQ(device.nameOnDisk("b"), "second");
    EXPECT_THAT(device.notifications.take(), ElementsAre(keysChanged("a", ""), keysChanged("b", "")));

    store.removeEvent(store.eventByIdentifier("a"));
    EXPECT_EQ(store.eventByIdentifier("a"), nullptr);
    EXPECT_THAT(device.notifications.take(), ElementsAre(eventsRemoved("a")));
    EXPECT_TRUE(device.hasPackage("a"));
    device.run();
    EXPECT_FALSE(device.hasPackage("a"));
    EXPECT_THAT(device.notifications.take(), ElementsAre(keysChanged("", "a")));
    EXPECT_TRUE(store.flush());
}

TEST_F(EventLocalStoreTest, RemovesAll) {
    EventLocalStore& store = device.store();
    store.updateEvents({makeEvent("a"), makeEvent("b")});
    store.removeAllEvents();
    EXPECT_EQ(store.itemsCount(), 0U);
    ASSERT_TRUE(store.flush());
    EXPECT_FALSE(device.hasPackage("a") || device.hasPackage("b"));
}

TEST_F(EventLocalStoreTest, AnswersByKeyNameAndBlock) {
    EventLocalStore& store = device.store();
    store.updateEvents({makeEvent("a", "Name"), makeEvent("b", "name"), makeEvent("c", "other")});
    EXPECT_EQ(store.eventByIdentifier(std::nullopt), nullptr);
    EXPECT_EQ(store.eventByIdentifier("nobody"), nullptr);
    EXPECT_EQ(store.eventByName("name")->identifier(), "b");
    EXPECT_EQ(store.eventByName("nam"), nullptr);
    EXPECT_EQ(store.findEvent([](const HHEvent& e) { return e.name() != "other"; }).size(), 2U);
    EXPECT_EQ(store.allEvents().size(), 3U);
    EXPECT_EQ(store.syncVersionForKey("nobody"), std::nullopt);
}

TEST_F(EventLocalStoreTest, WritesTheStateOfTheUpdateWhateverBecomesOfTheRecord) {
    EventLocalStore& store = device.store();
    const auto event = makeEvent("a", "as updated");
    store.updateEvent(event);
    event->setName("changed without an update");
    device.run();
    EXPECT_EQ(device.nameOnDisk("a"), "as updated");
}

TEST_F(EventLocalStoreTest, LoadingAgainReadsTheDiskButKeepsWhatWaitsForIt) {
    EventLocalStore& store = device.store();
    store.updateEvents({makeEvent("a", "old"), makeEvent("b", "old"), makeEvent("c", "old")});
    ASSERT_TRUE(store.flush());
    device.writePackage(*makeEvent("a", "by another"));
    store.updateEvent(makeEvent("b", "waiting"));
    store.removeEvent(makeEvent("c"));
    store.initialize();
    EXPECT_EQ(device.nameInMemory("a"), "by another");
    EXPECT_EQ(device.nameInMemory("b"), "waiting");
    EXPECT_EQ(device.nameInMemory("c"), "-");
    ASSERT_TRUE(store.flush());
    EXPECT_EQ(device.nameOnDisk("b"), "waiting");
    EXPECT_EQ(device.nameOnDisk("c"), "-");
}

TEST_F(EventLocalStoreTest, KeysThatAreNoFileNamesStayInMemory) {
    EventLocalStore& store = device.store();
    const std::string& home = device.environment.home;
    const std::vector<std::string> keys{
        "", ".", "..", "../escape", "a/b", "/tmp/escape", ".a", std::string("a\0b", 3), std::string(201, 'x')};
    for (const std::string& key : keys) {
        store.updateEvent(makeEvent(key));
        const auto written = store.flush();
        ASSERT_FALSE(written) << key;
        EXPECT_THAT(written.error().userInfo.at("reason"), HasSubstr("identifier"));
        EXPECT_NE(store.eventByIdentifier(key), nullptr);
        EXPECT_FALSE(store.syncRead(key, store));
        EXPECT_FALSE(store.syncWrite(device.path("a"), key, store));
    }
    EXPECT_THAT(device.environment->files().listDirectory(device.environment->paths().documents),
                testing::Optional(testing::IsEmpty()));
    EXPECT_FALSE(device.environment->files().exists(joinPath(parentPath(home), "escape.evn")));
    for (const std::string& key :
         {std::string(200, 'x'), std::string("a.b"), std::string("ключ ☃"), std::string("a..b")}) {
        store.updateEvent(makeEvent(key, "good"));
        EXPECT_TRUE(store.flush()) << key;
        EXPECT_EQ(store.keyForURL(store, *store.URLForKey(store, key)), key);
        EXPECT_EQ(device.nameOnDisk(key), "good");
    }
}

TEST_F(EventLocalStoreTest, LoadsPicturesFromThePackageOnDemand) {
    EventLocalStore& store = device.store();
    const auto image = std::make_shared<const Image>(1, 1, Data{10, 20, 30, 255});
    const auto event = makeEvent("a");
    event->setIcon(std::make_shared<ImageEventIconPicture>(image));
    store.updateEvent(event);
    ASSERT_TRUE(store.flush());
    const auto loaded = store.loadIconImageAtEvent("a");
    ASSERT_NE(loaded, nullptr);
    EXPECT_EQ(*loaded, *image);
    EXPECT_THAT(device.environment.log->errors(), IsEmpty());
    EXPECT_EQ(store.loadBackgroundImageAtEvent("a"), nullptr);
    EXPECT_EQ(store.loadIconImageAtEvent("../a"), nullptr);
    EXPECT_EQ(device.environment.log->errors().size(), 2U);
}

TEST_F(EventLocalStoreTest, RemovingAnEventWithoutAFileIsAFailureThatIsLogged) {
    EventLocalStore& store = device.store();
    (void)device.notifications.take();
    store.removeEvent(makeEvent("ghost"));
    const auto removed = store.flush();
    ASSERT_FALSE(removed);
    EXPECT_EQ(removed.error().code, ENOENT);
    EXPECT_THAT(device.environment.log->errors(), ElementsAre(HasSubstr("ghost.evn")));
    EXPECT_THAT(device.notifications.take(), ElementsAre(eventsRemoved("ghost")));
    EXPECT_TRUE(store.flush());
}

TEST(EventLocalStoreFaults, AnyFailingStepIsReportedOnceAndMemoryKeepsTheEvent) {
    auto files = std::make_shared<FaultFileSystem>();
    TestEnvironment::Options options;
    options.files = files;
    EventStoreDevice device(options);
    EventLocalStore& store = device.store();
    store.updateEvent(makeEvent("a", "0"));
    ASSERT_TRUE(store.flush());
    const std::size_t before = files->operationCount();
    store.updateEvent(makeEvent("a", "0"));
    ASSERT_TRUE(store.flush());
    const std::size_t steps = files->operationCount() - before;
    ASSERT_GT(steps, 5U);
    std::size_t failures = 0;
    for (std::size_t step = 1; step <= steps; ++step) {
        const std::string old = device.nameOnDisk("a");
        const std::string name = std::to_string(step);
        const std::size_t logged = device.environment.log->errors().size();
        (void)device.notifications.take();
        files->failOperation(step);
        store.updateEvent(makeEvent("a", name));
        const auto written = store.flush();
        files->heal();
        EXPECT_EQ(device.nameInMemory("a"), name);
        const std::string onDisk = device.nameOnDisk("a");
        EXPECT_TRUE(onDisk == name || (!written && onDisk == old)) << "step " << step << ": " << onDisk;
        EXPECT_EQ(device.notifications.take().size(), written ? 2U : 1U);
        if (written) continue;
        ++failures;
        EXPECT_GT(device.environment.log->errors().size(), logged);
        EXPECT_TRUE(store.flush()) << "a failure is told once";
    }
    EXPECT_GT(failures, 3U);
}

TEST(EventLocalStoreFaults, AFullDiskLeavesTheOldPackageAndTheOthersGetTheirTurn) {
    auto files = std::make_shared<FaultFileSystem>();
    TestEnvironment::Options options;
    options.files = files;
    EventStoreDevice device(options);
    EventLocalStore& store = device.store();
    store.updateEvent(makeEvent("a", "old"));
    ASSERT_TRUE(store.flush());
    store.updateEvents({makeEvent("../bad"), makeEvent("b", "behind a failure")});
    EXPECT_FALSE(store.flush());
    EXPECT_EQ(device.nameOnDisk("b"), "behind a failure");
    files->fillDiskAt(1);
    store.updateEvent(makeEvent("a", "new"));
    const auto written = store.flush();
    ASSERT_FALSE(written);
    EXPECT_EQ(written.error().code, ENOSPC);
    files->heal();
    EXPECT_EQ(device.nameOnDisk("a"), "old");
    EXPECT_EQ(device.nameInMemory("a"), "new");
}

TEST(EventLocalStoreFaults, WhatCouldNotBeWrittenIsToldAndWrittenWhenThereIsRoom) {
    auto files = std::make_shared<FaultFileSystem>();
    TestEnvironment::Options options;
    options.files = files;
    EventStoreDevice device(options);
    EventLocalStore& store = device.store();
    store.updateEvents({makeEvent("changed", "old"), makeEvent("removed")});
    ASSERT_TRUE(store.flush());
    std::vector<Object> reasons;
    const auto observation = device.environment->notifications().addObserver(
        DidFailToSaveNotification,
        [&](const Notification& told) { reasons.push_back(told.userInfo.at(FailedSaveCodeKey)); });
    files->failOperation(1, EROFS);
    store.removeEvent(store.eventByIdentifier("removed"));
    EXPECT_FALSE(store.flush());
    files->fillDiskAt(1);
    store.updateEvent(makeEvent("changed", "new"));
    store.retryFailedWrites();
    EXPECT_FALSE(store.flush());
    files->heal();
    EXPECT_EQ(device.nameOnDisk("changed"), "old");
    store.retryFailedWrites();
    EXPECT_TRUE(store.flush());
    EXPECT_EQ(device.nameOnDisk("changed"), "new");
    EXPECT_FALSE(files->exists(joinPath(store.directory(), "removed.evn")));
    ASSERT_GE(reasons.size(), 2U);
    EXPECT_EQ(reasons.front(), Object(EROFS));
    EXPECT_EQ(reasons.back(), Object(ENOSPC));
    const std::size_t done = files->operationCount();
    store.retryFailedWrites();
    EXPECT_TRUE(store.flush());
    EXPECT_EQ(files->operationCount(), done) << "nothing is left";
}

TEST(EventLocalStoreFaults, EachEventOfAFailedBatchIsNamed) {
    auto files = std::make_shared<FaultFileSystem>();
    TestEnvironment::Options options;
    options.files = files;
    EventStoreDevice device(options);
    const auto save = [&] {
        std::vector<std::shared_ptr<HHEvent>> events;
        for (char key = 'a'; key < 'i'; ++key) events.push_back(makeEvent(std::string("event-") + key));
        device.store().updateEvents(events);
        return device.store().flush();
    };
    (void)device.store();
    ASSERT_TRUE(save());
    const std::size_t first = files->operationCount();
    ASSERT_TRUE(save());
    const auto operations = files->operations();
    const auto sync = std::find(operations.begin() + static_cast<std::ptrdiff_t>(first), operations.end(), "sync all");
    ASSERT_NE(sync, operations.end());
    files->failOperation(static_cast<std::size_t>(sync - operations.begin()) + 1 - first);
    const auto saved = save();
    ASSERT_FALSE(saved);
    EXPECT_THAT(saved.error().description(), HasSubstr("event-"));
    const auto lines = device.environment.log->errors();
    ASSERT_EQ(lines.size(), 8U);
    EXPECT_EQ(std::set<std::string>(lines.begin(), lines.end()).size(), 8U) << lines[0];
}

TEST(EventLocalStoreThreads, TheNewestStateOfEveryKeyIsWhatStays) {
    const unsigned seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    TestEnvironment::Options options;
    options.queues = std::make_shared<AsioQueues>(4);
    EventStoreDevice device(options);
    EventLocalStore& store = device.store();
    const auto work = [&](unsigned worker) {
        const EnvironmentScope scope(&*device.environment);
        std::mt19937 random(seed + worker);
        for (int i = 0; i < 100; ++i) {
            const std::string key = std::to_string(random() % 4);
            if (random() % 3 == 0) {
                store.removeEvent(makeEvent(key));
            } else {
                store.updateEvent(makeEvent(key, std::to_string(worker) + "." + std::to_string(i)));
            }
        }
    };
    std::vector<std::jthread> workers;
    for (unsigned worker = 0; worker < 3; ++worker) workers.emplace_back(work, worker);
    workers.clear();
    (void)store.flush();  // removing twice in a row fails, and rightly
    for (const std::string key : {"0", "1", "2", "3"}) EXPECT_EQ(device.nameOnDisk(key), device.nameInMemory(key));
}

}  // namespace
}  // namespace dayward
