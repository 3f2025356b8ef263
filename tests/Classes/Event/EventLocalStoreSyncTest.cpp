#include <gmock/gmock.h>

#include "EventStoreDevice.h"

namespace dayward {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class EventLocalStoreSyncTest : public testing::Test {
protected:
    EventLocalStoreSyncTest() {
        sender.store().updateEvent(makeEvent("a", "sent"));
        (void)sender.store().flush();
        receiver.environment.clock->advance(TimeInterval(100));
        (void)receiver.store();
        forget();
    }
    void forget() {
        (void)sender.notifications.take();
        (void)receiver.notifications.take();
    }
    Result<> send(const std::string& key) {
        const auto value = sender.store().syncRead(key, receiver.store());
        return value ? receiver.store().syncWrite(*value, key, sender.store())
                     : Result<>(std::unexpected(value.error()));
    }

    EventStoreDevice sender;
    EventStoreDevice receiver;
};

TEST_F(EventLocalStoreSyncTest, CopiesThePackageVersionAndAll) {
    sender.writeFile(sender.path("a") + "/icon.i", dataOf("any bytes"));
    ASSERT_TRUE(send("a"));
    EXPECT_EQ(receiver.nameInMemory("a"), "sent");
    EXPECT_EQ(receiver.nameOnDisk("a"), "sent");
    EXPECT_EQ(receiver.environment->files().readFile(receiver.path("a") + "/icon.i").value(), dataOf("any bytes"));
    EXPECT_EQ(receiver.store().syncVersionForKey("a"), sender.store().syncVersionForKey("a"));
    EXPECT_THAT(receiver.store().getSyncKeys(), ElementsAre("a"));
    EXPECT_THAT(receiver.notifications.take(), ElementsAre(eventsUpdated("a"))) << "it must not travel back";
    receiver.store().refreshFromDisk();
    EXPECT_THAT(receiver.notifications.take(), IsEmpty());
}

TEST_F(EventLocalStoreSyncTest, ReplacesAnOlderEvent) {
    receiver.store().updateEvent(makeEvent("a", "older"));
    ASSERT_TRUE(receiver.store().flush());
    forget();
    ASSERT_TRUE(send("a"));
    EXPECT_EQ(receiver.nameInMemory("a"), "sent");
    EXPECT_EQ(receiver.nameOnDisk("a"), "sent");
}

TEST_F(EventLocalStoreSyncTest, AnOwnChangeThatWaitsToBeWrittenWins) {
    receiver.store().updateEvent(makeEvent("a", "own"));
    forget();
    ASSERT_TRUE(send("a"));
    EXPECT_EQ(receiver.nameInMemory("a"), "own");
    EXPECT_THAT(receiver.notifications.take(), IsEmpty());
    ASSERT_TRUE(receiver.store().flush());
    EXPECT_EQ(receiver.nameOnDisk("a"), "own");
}

TEST_F(EventLocalStoreSyncTest, AnOwnChangeBetweenFileAndMemoryStays) {
    const auto files = std::make_shared<InterruptedFiles>();
    TestEnvironment::Options options;
    options.files = files;
    EventStoreDevice device(options);
    const auto changeOwn = [&] {
        device.store().updateEvent(makeEvent("a", "own"));
        EXPECT_TRUE(device.store().flush());
    };
    changeOwn();
    for (const Object& value : {Object(sender.path("a")), Object()}) {
        files->interruption = changeOwn;
        ASSERT_TRUE(device.store().syncWrite(value, "a", sender.store()));
        EXPECT_EQ(device.nameInMemory("a"), "own");
        EXPECT_EQ(device.nameOnDisk("a"), "own");
    }
}

TEST_F(EventLocalStoreSyncTest, AnotherProcessBetweenFileAndMemoryStays) {
    const auto files = std::make_shared<InterruptedFiles>();
    TestEnvironment::Options options;
    options.files = files;
    EventStoreDevice device(options);
    (void)device.store();
    for (const Object& value : {Object(sender.path("a")), Object()}) {
        files->interruption = [&] {
            device.writePackage(*makeEvent("a", "theirs"));
            device.store().refreshFromDisk();
        };
        ASSERT_TRUE(device.store().syncWrite(value, "a", sender.store()));
        EXPECT_EQ(device.nameInMemory("a"), "theirs");
        EXPECT_EQ(device.nameOnDisk("a"), "theirs");
    }
}

TEST_F(EventLocalStoreSyncTest, AFailureLeavesMemoryAndDisk) {
    receiver.store().updateEvent(makeEvent("a", "own"));
    ASSERT_TRUE(receiver.store().flush());
    forget();
    receiver.writeFile(receiver.path("broken") + "/general.t", dataOf("no archive"));
    const Object values[] = {sender.path("nowhere"), receiver.path("broken"), 5, Dictionary{}};
    for (const Object& value : values) {
        EXPECT_FALSE(receiver.store().syncWrite(value, "a", sender.store()));
        EXPECT_EQ(receiver.nameInMemory("a"), "own");
        EXPECT_EQ(receiver.nameOnDisk("a"), "own");
    }
    EXPECT_THAT(receiver.notifications.take(), IsEmpty());
}

TEST_F(EventLocalStoreSyncTest, RemovesWhatTheSenderNoLongerHas) {
    receiver.store().updateEvents({makeEvent("b"), makeEvent("c")});
    ASSERT_TRUE(receiver.store().flush());
    forget();
    ASSERT_TRUE(receiver.store().syncWrite(nullptr, "b", sender.store()));
    EXPECT_FALSE(receiver.hasPackage("b"));
    EXPECT_EQ(receiver.nameInMemory("b"), "-");
    EXPECT_THAT(receiver.notifications.take(), ElementsAre(eventsRemoved("b")));

    receiver.writePackage(*makeEvent("onDiskOnly"));
    ASSERT_TRUE(receiver.store().syncWrite(nullptr, "onDiskOnly", sender.store()));
    EXPECT_FALSE(receiver.hasPackage("onDiskOnly"));
    EXPECT_FALSE(receiver.store().syncWrite(nullptr, "nowhere", sender.store()));
    EXPECT_THAT(receiver.notifications.take(), IsEmpty());
}

TEST_F(EventLocalStoreSyncTest, ASenderWithoutAnyKeysRemovesNothing) {
    receiver.store().updateEvent(makeEvent("b"));
    ASSERT_TRUE(receiver.store().flush());
    sender.store().removeAllEvents();
    ASSERT_TRUE(sender.store().flush());
    forget();
    EXPECT_TRUE(receiver.store().syncWrite(nullptr, "b", sender.store()));
    EXPECT_TRUE(receiver.hasPackage("b"));
    EXPECT_EQ(receiver.store().itemsCount(), 1U);
    EXPECT_THAT(receiver.notifications.take(), IsEmpty());
}

}  // namespace
}  // namespace dayward
