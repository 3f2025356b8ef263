#include "Classes/Event/Doctor.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <map>

#include "Classes/Category/EventCategory.h"
#include "EventStoreDevice.h"
#include "platform/KeyedArchiver.h"
#include "platform/UserDefaults.h"

namespace dayward {
namespace {

using testing::HasSubstr;

class DoctorTest : public testing::Test {
protected:
    /// The reasons by the files' names.
    std::multimap<std::string, std::string> reasons() {
        std::multimap<std::string, std::string> found;
        const auto problems = examineHome(*device.environment).value();
        for (const Problem& problem : problems) found.emplace(lastPathComponent(problem.path), problem.reason);
        return found;
    }
    /// Every file below the home with its bytes.
    std::map<std::string, Data> everything() const {
        std::map<std::string, Data> files;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(device.environment.home))
            if (entry.is_regular_file())
                files[entry.path()] = *device.environment.environment->files().readFile(entry.path());
        return files;
    }
    const Paths& paths() { return device.environment->paths(); }

    EventStoreDevice device;
};

TEST_F(DoctorTest, FindsNothingInASoundHome) {
    device.writeManyPackages(50);
    EXPECT_THAT(reasons(), testing::IsEmpty()) << "without settings and categories";
    device.writeFile(paths().library + "/CCAppValues.dat", KeyedArchiver::archivedDataWithRootObject(Dictionary{}));
    device.environment->standardDefaults().setObject(
        Array{KeyedArchiver::archivedDataWithRootObject(std::make_shared<EventCategory>("default"))}, "k003");
    ASSERT_TRUE(device.environment->standardDefaults().synchronize());
    device.writeFile(paths().documents + "/notes.txt", dataOf("not ours"));
    EXPECT_THAT(reasons(), testing::IsEmpty());
}

TEST_F(DoctorTest, FindsEveryUnreadableFileWithItsReasonAndChangesNothing) {
    device.writePackage(*makeEvent("good"));
    device.writePackage(*makeEvent("pictured"));
    device.writeFile(device.path("pictured") + "/icon.i", dataOf("no picture"));
    device.writeFile(device.path("broken") + "/general.t", dataOf("bplist00"));
    device.writeFile(device.path("plain"), dataOf("a file"));
    device.writeBomb("abort");
    device.writeBomb("crash", "CrashBomb");
    device.writePackage(*makeEvent("zlast"));
    device.writeFile(paths().applicationSupport + "/HHSettings", dataOf("garbage"));
    device.writeFile(paths().library + "/CCAppHistory.dat", KeyedArchiver::archivedDataWithRootObject("text"));
    device.writeFile(paths().config + "/old.defaults.unreadable", dataOf("garbage"));
    const Array blocks{KeyedArchiver::archivedDataWithRootObject(std::make_shared<EventCategory>("default")),
                       dataOf("garbage"), KeyedArchiver::archivedDataWithRootObject("text"), 7};
    device.environment->standardDefaults().setObject(blocks, "k003");
    ASSERT_TRUE(device.environment->standardDefaults().synchronize());

    const auto before = everything();
    const auto found = reasons();
    EXPECT_EQ(everything(), before);
    const std::pair<const char*, const char*> expected[] = {{"pictured.evn", "icon.i"},
                                                            {"broken.evn", "Нет данных info"},
                                                            {"plain.evn", "Нет fileWrappers"},
                                                            {"abort.evn", "a bomb went off"},
                                                            {"crash.evn", "ends the program"},
                                                            {"HHSettings", "keyed archive"},
                                                            {"CCAppHistory.dat", "no dictionary"},
                                                            {"old.defaults.unreadable", "put aside"}};
    for (const auto& [name, reason] : expected) {
        ASSERT_EQ(found.count(name), 1U) << name;
        EXPECT_THAT(found.find(name)->second, HasSubstr(reason)) << name;
    }
    EXPECT_EQ(found.count("standard.defaults"), 3U) << "categories 2, 3 and 4";
    EXPECT_EQ(found.size(), std::size(expected) + 3);
}

TEST_F(DoctorTest, FindsAnyFileThatKeepsAnEventFromBeingSaved) {
    device.writePackage(*makeEvent("a"));
    std::filesystem::create_symlink("/proc/self/mem", device.path("a") + "/other");
    EXPECT_THAT(reasons(), testing::ElementsAre(testing::Pair("a.evn", HasSubstr("a.evn/other"))));
}

TEST_F(DoctorTest, TellsOfADirectoryThatCannotBeListed) {
    ASSERT_TRUE(device.environment->files().removeTree(paths().documents));
    const auto problems = examineHome(*device.environment).value();
    ASSERT_EQ(problems.size(), 1U);
    EXPECT_EQ(problems[0].path, paths().documents);
}

}  // namespace
}  // namespace dayward
