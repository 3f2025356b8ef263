#include <gmock/gmock.h>

#include <condition_variable>

#include "EventStoreDevice.h"
#include "platform/DirectoryWatch.h"
#include "platform/linux/AsioQueues.h"
#include "platform/linux/InotifyWatcher.h"
#include "support/FaultFileSystem.h"

namespace dayward {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Hands the store's handler to the test.
class HandWatcher final : public DirectoryWatcher {
public:
    Result<std::unique_ptr<DirectoryWatch>> watch(const std::string&, DirectoryWatch::Handler given) override {
        handler = std::move(given);
        return std::make_unique<DirectoryWatch>();
    }
    DirectoryWatch::Handler handler;
};

class EventLocalStoreRefreshTest : public testing::Test {
protected:
    EventLocalStoreRefreshTest() : device(watched()), other(EventStoreDevice::onHome(device.environment.home)) {
        device.writePackage(*makeEvent("a", "at start"));
        (void)device.store();
        (void)other.store();
        forget();
    }
    TestEnvironment::Options watched() const {
        TestEnvironment::Options options;
        options.watcher = watcher;
        options.files = files;
        return options;
    }
    void forget() {
        (void)device.notifications.take();
        (void)other.notifications.take();
    }
    /// The other process changes an event, on its disk at once.
    void otherWrites(const std::string& key, const std::string& name) {
        other.environment.clock->advance(TimeInterval(1));
        other.store().updateEvent(makeEvent(key, name));
        ASSERT_TRUE(other.store().flush());
    }

    std::shared_ptr<HandWatcher> watcher = std::make_shared<HandWatcher>();
    std::shared_ptr<InterruptedFiles> files = std::make_shared<InterruptedFiles>();
    EventStoreDevice device;
    EventStoreDevice other;
};

TEST_F(EventLocalStoreRefreshTest, TakesInWhatAnotherProcessDid) {
    otherWrites("a", "changed");
    otherWrites("b", "added");
    device.store().refreshFromDisk();
    EXPECT_EQ(device.nameInMemory("a"), "changed");
    EXPECT_EQ(device.nameInMemory("b"), "added");
    EXPECT_EQ(device.store().syncVersionForKey("a"), other.store().syncVersionForKey("a"));
    EXPECT_THAT(device.notifications.take(), ElementsAre(eventsUpdated("a b"), keysChanged("a b", "")));

    other.store().removeEvent(makeEvent("a"));
    ASSERT_TRUE(other.store().flush());
    device.store().refreshFromDisk();
    EXPECT_EQ(device.nameInMemory("a"), "-");
    EXPECT_THAT(device.notifications.take(), ElementsAre(eventsRemoved("a"), keysChanged("", "a")));
    device.store().refreshFromDisk();
    EXPECT_THAT(device.notifications.take(), IsEmpty());
}

TEST_F(EventLocalStoreRefreshTest, OwnWritesAreNoNews) {
    device.store().updateEvents({makeEvent("a", "own"), makeEvent("b", "own")});
    device.store().removeEvent(makeEvent("b"));
    device.run();
    forget();
    device.store().refreshFromDisk();
    watcher->handler({"a.evn", "b.evn"});
    device.run();
    EXPECT_THAT(device.notifications.take(), IsEmpty());
}

TEST_F(EventLocalStoreRefreshTest, ARewriteWithoutAChangeIsNoNews) {
    const auto before = device.store().eventByIdentifier("a");
    const HHEvent same(*before);
    device.writePackage(same);
    device.store().refreshFromDisk();
    EXPECT_THAT(device.notifications.take(), IsEmpty());
    HHEvent sameVersion(*before);
    sameVersion.setNote("another content under the same version, as on a clock that stands still");
    device.writePackage(sameVersion);
    device.store().refreshFromDisk();
    EXPECT_THAT(device.notifications.take(), ElementsAre(eventsUpdated("a"), keysChanged("a", "")));
}

TEST_F(EventLocalStoreRefreshTest, AnOwnChangeThatWaitsStands) {
    device.store().updateEvent(makeEvent("a", "own"));
    otherWrites("a", "theirs");
    otherWrites("b", "theirs");
    device.store().removeEvent(makeEvent("b"));
    forget();
    device.store().refreshFromDisk();
    EXPECT_EQ(device.nameInMemory("a"), "own");
    EXPECT_EQ(device.nameInMemory("b"), "-") << "a removal that waits is not undone";
    EXPECT_THAT(device.notifications.take(), IsEmpty());
    ASSERT_TRUE(device.store().flush());
    other.store().refreshFromDisk();
    EXPECT_EQ(other.nameInMemory("a"), "own");
    EXPECT_EQ(other.nameInMemory("b"), "-");
}

TEST_F(EventLocalStoreRefreshTest, APackageThatBreaksKeepsItsEventAndComesBackWhenRepaired) {
    device.writeFile(device.path("a") + "/general.t", dataOf("broken"));
    device.store().refreshFromDisk();
    EXPECT_EQ(device.nameInMemory("a"), "at start");
    ASSERT_EQ(device.store().leftOut().size(), 1U);
    EXPECT_EQ(device.store().leftOut()[0].path, device.path("a"));
    device.store().refreshFromDisk();
    EXPECT_EQ(device.environment.log->errors().size(), 1U) << "the same fault is told once";
    otherWrites("a", "repaired");
    forget();
    device.store().refreshFromDisk();
    EXPECT_EQ(device.nameInMemory("a"), "repaired");
    EXPECT_THAT(device.store().leftOut(), IsEmpty());
}

TEST_F(EventLocalStoreRefreshTest, ADirectoryThatVanishedRemovesNothing) {
    const std::string& documents = device.environment->paths().documents;
    ASSERT_TRUE(device.environment->files().rename(documents, documents + ".away"));
    device.store().refreshFromDisk();
    EXPECT_EQ(device.nameInMemory("a"), "at start");
    EXPECT_THAT(device.notifications.take(), IsEmpty());
}

TEST_F(EventLocalStoreRefreshTest, TheWatchBringsInItsNamesAndEverythingWhenItLostCount) {
    otherWrites("b", "added");
    otherWrites("c", "added");
    watcher->handler({"b.evn", "unknown.evn", "c.txt", ".c.evn.tmp-1-1"});
    EXPECT_EQ(device.nameInMemory("b"), "-") << "not on the watch's thread";
    device.run();
    EXPECT_EQ(device.nameInMemory("b"), "added");
    EXPECT_EQ(device.nameInMemory("c"), "-");
    watcher->handler({});
    device.run();
    EXPECT_EQ(device.nameInMemory("c"), "added");
    EXPECT_THAT(device.notifications.take(),
                ElementsAre(eventsUpdated("b"), keysChanged("b", ""), eventsUpdated("c"), keysChanged("c", "")));
}

TEST_F(EventLocalStoreRefreshTest, AReadingThatAnotherOvertookDoesNotBringTheOldBack) {
    otherWrites("a", "first");
    files->interruption = [&] {
        otherWrites("a", "second");
        device.store().refreshFromDisk();
    };
    device.store().refreshFromDisk();
    EXPECT_EQ(device.nameInMemory("a"), "second");
    EXPECT_THAT(device.notifications.take(), ElementsAre(eventsUpdated("a"), keysChanged("a", "")));
}

TEST_F(EventLocalStoreRefreshTest, WhatWasChangedSinceIsNotAnnounced) {
    otherWrites("a", "theirs");
    otherWrites("b", "theirs");
    const auto changeOwn = [&] { device.store().updateEvent(makeEvent("a", "own")); };
    // While the second package is read, the first is in memory and not told yet.
    files->interruption = [&] { files->interruption = changeOwn; };
    watcher->handler({"a.evn", "b.evn"});
    device.run();
    EXPECT_EQ(device.nameOnDisk("a"), "own");
    EXPECT_THAT(device.notifications.take(), ElementsAre(eventsUpdated("a"), eventsUpdated("b"), keysChanged("b", ""),
                                                         keysChanged("a", "")));
}

TEST(EventLocalStoreFailedWrite, MemoryGivesWayOnlyToSomethingNewer) {
    auto files = std::make_shared<FaultFileSystem>();
    TestEnvironment::Options options;
    options.files = files;
    EventStoreDevice device(options);
    EventLocalStore& store = device.store();
    store.updateEvent(makeEvent("a", "old"));
    ASSERT_TRUE(store.flush());
    device.environment.clock->advance(TimeInterval(10));
    files->fillDiskAt(1);
    store.updateEvents({makeEvent("a", "unwritten"), makeEvent("b", "never on disk")});
    ASSERT_FALSE(store.flush());
    files->heal();
    store.refreshFromDisk();
    EXPECT_EQ(device.nameInMemory("a"), "unwritten");
    EXPECT_EQ(device.nameInMemory("b"), "never on disk") << "it was not removed, it never was there";

    const auto theirs = makeEvent("a", "older than memory");
    theirs->setVersion(CCSyncItemVersion(device.environment.clock->now() - TimeInterval(5)));
    device.writePackage(*theirs);
    store.refreshFromDisk();
    EXPECT_EQ(device.nameInMemory("a"), "unwritten");
    theirs->setName("newer than memory");
    theirs->setVersion(CCSyncItemVersion(device.environment.clock->now() + TimeInterval(5)));
    device.writePackage(*theirs);
    store.refreshFromDisk();
    EXPECT_EQ(device.nameInMemory("a"), "newer than memory");

    theirs->setName("from a clock that was set back");
    theirs->setVersion(CCSyncItemVersion(device.environment.clock->now()));
    device.writePackage(*theirs);
    store.refreshFromDisk();
    EXPECT_EQ(device.nameInMemory("a"), "from a clock that was set back") << "memory is no longer ahead of its file";
}

TEST(EventLocalStoreRealWatch, SeesAnotherStoreOnTheSameHome) {
    TestEnvironment::Options options;
    options.queues = std::make_shared<AsioQueues>(4);
    options.watcher = std::make_shared<InotifyWatcher>();
    EventStoreDevice device(options);
    std::mutex mutex;
    std::condition_variable changed;
    const auto observation = device.environment->notifications().addObserver(
        EventLocalStoreDidUpdateNotification, [&](const Notification&) { changed.notify_all(); });
    (void)device.store();
    EventStoreDevice other(EventStoreDevice::onHome(device.environment.home));
    const auto waitForName = [&](const std::string& name) {
        std::unique_lock lock(mutex);
        const auto arrived = [&] { return device.nameInMemory("a") == name; };
        return changed.wait_for(lock, std::chrono::seconds(1), arrived) ||
               changed.wait_for(lock, std::chrono::seconds(30), arrived);
    };
    for (const std::string name : {"added", "changed"}) {
        other.store().updateEvent(makeEvent("a", name));
        ASSERT_TRUE(other.store().flush());
        EXPECT_TRUE(waitForName(name)) << name;
    }
    other.store().removeEvent(makeEvent("a"));
    ASSERT_TRUE(other.store().flush());
    EXPECT_TRUE(waitForName("-"));
}

}  // namespace
}  // namespace dayward
