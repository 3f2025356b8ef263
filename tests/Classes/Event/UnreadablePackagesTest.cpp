// Packages that stop the process which reads them.
#include <gmock/gmock.h>

#include "platform/UnreadableFiles.h"
#include "EventStoreDevice.h"
#include "support/FaultFileSystem.h"

namespace dayward {
namespace {

using testing::HasSubstr;

std::vector<std::string> leftOutNames(EventLocalStore& store) {
    std::vector<std::string> names;
    for (const auto& file : store.leftOut()) names.push_back(lastPathComponent(file.path));
    return names;
}

/// A start of the program that the fatal package ends.
void startThatDies(const std::string& home) {
    EventStoreDevice device(EventStoreDevice::onHome(home));
    (void)device.store();
}

class UnreadablePackagesTest : public testing::Test {
protected:
    EventStoreDevice device;
    const std::string home = device.environment.home;
};

TEST_F(UnreadablePackagesTest, AreNamedAndLeftOutAtTheNextStart) {
    device.writeManyPackages(300);
    device.writeBomb("bomb");
    EXPECT_DEATH(startThatDies(home), "a bomb went off: .*bomb.evn");

    EventLocalStore& store = device.store();
    EXPECT_EQ(store.itemsCount(), 300U);
    EXPECT_THAT(leftOutNames(store), testing::ElementsAre("bomb.evn"));
    EXPECT_THAT(store.leftOut()[0].reason, HasSubstr("a bomb went off"));
    EXPECT_THAT(device.environment.log->errors(), Contains(HasSubstr("bomb.evn is left out")));
    EXPECT_TRUE(device.hasPackage("bomb"));
    EXPECT_FALSE(store.readValueForKey("bomb")) << "no other road reads it either";
    store.refreshFromDisk();
    EXPECT_EQ(store.itemsCount(), 300U);
}

TEST_F(UnreadablePackagesTest, AreTriedAgainOnceTheyChanged) {
    device.writeBomb("bomb");
    EXPECT_DEATH(startThatDies(home), "a bomb went off");
    device.writeBomb("bomb");
    EXPECT_DEATH(startThatDies(home), "a bomb went off");
    device.writePackage(*makeEvent("bomb", "repaired"));
    EXPECT_EQ(device.nameInMemory("bomb"), "repaired");
    EXPECT_TRUE(device.store().leftOut().empty());
    EXPECT_THAT(device.environment->files().listDirectory(joinPath(device.environment->paths().state, "unreadable")),
                testing::Optional(testing::IsEmpty()));
}

TEST_F(UnreadablePackagesTest, AreNamedWhenAnotherProcessBringsThem) {
    (void)device.store();
    const auto refresh = [&] {
        device.writeBomb("bomb");
        device.store().refreshFromDisk();
    };
    EXPECT_DEATH(refresh(), "a bomb went off: .*bomb.evn");
    device.store().refreshFromDisk();
    EXPECT_THAT(leftOutNames(device.store()), testing::ElementsAre("bomb.evn"));
}

TEST(UnreadableFiles, OutlivesItsProcessAndEndsWithTheFilesState) {
    FaultFileSystem files;
    UnreadableFiles first(files, "/state/unreadable");
    EXPECT_EQ(first.reasonToLeaveOut("/d/a.evn", "stamp"), std::nullopt);
    first.add("/d/a\nb.evn", "stamp", "two\nlines");
    files.restart();
    UnreadableFiles second(files, "/state/unreadable");
    EXPECT_EQ(second.reasonToLeaveOut("/d/a\nb.evn", "stamp"), "two lines");
    EXPECT_EQ(second.reasonToLeaveOut("/d/a\nb.evn", "another"), std::nullopt);
    second.forget("/d/a\nb.evn");
    second.forget("/d/never there");
    EXPECT_EQ(UnreadableFiles(files, "/state/unreadable").reasonToLeaveOut("/d/a\nb.evn", "stamp"), std::nullopt);
}

TEST(UnreadableFiles, BadEntriesAreAsNone) {
    FaultFileSystem files;
    for (const char* content : {"", "/d/a.evn", "/d/a.evn\nstamp", "\n\n\n", "\xff\xfe"})
        files.store("/state/unreadable/" + std::to_string(std::string_view(content).size()), dataOf(content));
    const UnreadableFiles record(files, "/state/unreadable");
    EXPECT_EQ(record.reasonToLeaveOut("/d/a.evn", "stamp"), std::nullopt);
}

}  // namespace
}  // namespace dayward
