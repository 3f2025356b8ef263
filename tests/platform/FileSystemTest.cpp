// What is left after every single failure and after a crash at every point of the atomic writes.
#include "platform/FileSystem.h"

#include <gmock/gmock.h>
#include <unistd.h>

#include "support/FaultFileSystem.h"

namespace dayward {

namespace {

using Loss = FaultFileSystem::CrashLoss;
using Tree = std::map<std::string, Data>;
using testing::ElementsAre;
using testing::IsEmpty;

const Data kOld = dataOf("the old content");
const Data kNew = dataOf("the new content, a little longer");
const std::string kFile = "/home/documents/values.dat";
const std::string kPackage = "/home/documents/a.evn";

const std::vector<PackageFile> kNewPackage = {{"general.t", kNew}, {"b/", {}}, {"b/c/icon.i", dataOf("icon")}};
const Tree kOldTree = {{"general.t", kOld}, {"background.i", dataOf("picture")}};
const Tree kNewTree = {{"general.t", kNew}, {"b/c/icon.i", dataOf("icon")}};

/// One atomic replacement: how it starts, what it does, what counts as old and new.
struct Replacement {
    const char* name;
    bool isPackage;
    bool existsBefore;
    bool existsAfter = true;
    bool hasExchange = true;
};

const Replacement kReplacements[] = {
    {"file", false, true},        {"new file", false, false},
    {"package", true, true},      {"package without exchange", true, true, true, false},
    {"new package", true, false}, {"removed package", true, true, false}};

class Subject {
public:
    explicit Subject(const Replacement& replacement) : replacement_(replacement) {
        files.store("/home/documents/other", kOld);
        if (!replacement.hasExchange) files.forbidExchange();
        if (!replacement.existsBefore) return;
        if (replacement.isPackage) {
            for (const auto& [name, bytes] : kOldTree) files.store(joinPath(kPackage, name), bytes);
        } else {
            files.store(kFile, kOld);
        }
    }

    Result<> replace() {
        if (!replacement_.existsAfter) return removePackageAtomically(files, kPackage);
        if (replacement_.isPackage) return writePackageAtomically(files, kPackage, kNewPackage);
        return writeFileAtomically(files, kFile, kNew);
    }

    [[nodiscard]] bool isOld() const {
        if (!replacement_.existsBefore) return !files.exists(path());
        return found() == (replacement_.isPackage ? kOldTree : Tree{{"values.dat", kOld}});
    }

    [[nodiscard]] bool isNew() const {
        if (!replacement_.existsAfter) return !files.exists(path());
        return found() == (replacement_.isPackage ? kNewTree : Tree{{"values.dat", kNew}});
    }

    [[nodiscard]] bool leftTemporaries() const {
        const auto names = files.listDirectory("/home/documents");
        return std::ranges::any_of(*names, isTemporaryName);
    }

    FaultFileSystem files;

private:
    [[nodiscard]] const std::string& path() const { return replacement_.isPackage ? kPackage : kFile; }

    [[nodiscard]] Tree found() const {
        if (replacement_.isPackage) return files.tree(kPackage);
        Tree all = files.tree("/home/documents");
        std::erase_if(all, [](const auto& file) { return file.first != "values.dat"; });
        return all;
    }

    const Replacement replacement_;
};

std::size_t operationsOf(const Replacement& replacement) {
    Subject subject(replacement);
    EXPECT_TRUE(subject.replace());
    const std::size_t count = subject.files.operationCount();
    EXPECT_TRUE(subject.isNew());
    EXPECT_FALSE(subject.leftTemporaries());
    return count;
}

class AtomicWrite : public testing::TestWithParam<Replacement> {};

TEST_P(AtomicWrite, anyFailedOperationLeavesOldOrNewWholeAndTellsThePath) {
    const std::size_t count = operationsOf(GetParam());
    for (std::size_t number = 1; number <= count; ++number) {
        SCOPED_TRACE(number);
        Subject subject(GetParam());
        subject.files.failOperation(number, EACCES);
        const auto result = subject.replace();
        const std::string failed = subject.files.operations()[number - 1];
        EXPECT_TRUE(subject.isOld() || subject.isNew());
        EXPECT_TRUE(!result || subject.isNew());
        // An error after the new content took its place can only be that of the last sync.
        EXPECT_TRUE(result || subject.isOld() || failed == "sync directory");
        if (result || subject.isNew()) continue;
        EXPECT_FALSE(subject.leftTemporaries());
        EXPECT_EQ(result.error().domain, "file");
        EXPECT_EQ(result.error().code, EACCES);
        EXPECT_THAT(result.error().userInfo.at("path"), testing::StartsWith("/home/documents"));
    }
}

TEST_P(AtomicWrite, aFullDiskKeepsTheOldContent) {
    const std::size_t count = operationsOf(GetParam());
    for (std::size_t number = 1; number <= count; ++number) {
        Subject subject(GetParam());
        subject.files.fillDiskAt(number);
        const auto result = subject.replace();
        EXPECT_TRUE(result ? subject.isNew() : subject.isOld()) << number;
        EXPECT_TRUE(result || result.error().code == ENOSPC);
        EXPECT_FALSE(subject.leftTemporaries()) << number;
    }
}

TEST_P(AtomicWrite, aCrashAtAnyPointLeavesOldOrNewWhole) {
    const std::size_t count = operationsOf(GetParam());
    for (std::uint32_t way = 0; way < 20; ++way) {
        const auto loss = static_cast<Loss>(std::min(way, static_cast<std::uint32_t>(Loss::byChance)));
        for (std::size_t number = 1; number <= count + 1; ++number) {
            SCOPED_TRACE(std::to_string(number) + " way " + std::to_string(way));
            Subject subject(GetParam());
            subject.files.crashAt(number);
            const bool succeeded = subject.replace().has_value();
            subject.files.restart(loss, way);
            removeStaleTemporaries(subject.files, "/home/documents");
            EXPECT_TRUE(settlePackage(subject.files, kPackage));
            EXPECT_FALSE(subject.leftTemporaries());
            EXPECT_TRUE(subject.isOld() || subject.isNew());
            // What was reported as written must be there after the crash.
            EXPECT_TRUE(!succeeded || subject.isNew());
        }
    }
}

INSTANTIATE_TEST_SUITE_P(All, AtomicWrite, testing::ValuesIn(kReplacements), [](const auto& tested) {
    std::string name = tested.param.name;
    std::ranges::replace(name, ' ', '_');
    return name;
});

TEST(PackageWrite, refusesNamesThatLeadOutOfThePackage) {
    for (const std::string& name :
         {std::string(), std::string("."), std::string(".."), std::string("../values.dat"), std::string("/a"),
          std::string("a//b"), std::string("a/../b"), std::string("/"), std::string("a\0b", 3)}) {
        FaultFileSystem files;
        files.store(kFile, kOld);
        const std::vector<PackageFile> content = {{"general.t", kNew}, {name, kNew}};
        const auto result = writePackageAtomically(files, kPackage, content);
        ASSERT_FALSE(result) << name;
        EXPECT_EQ(result.error().code, EINVAL);
        EXPECT_EQ(files.tree("/home/documents"), (Tree{{"values.dat", kOld}}));
    }
}

TEST(PackageWrite, takesThePlaceOfAFile) {
    FaultFileSystem files;
    files.store(kPackage, kOld);
    ASSERT_TRUE(writePackageAtomically(files, kPackage, kNewPackage));
    EXPECT_EQ(files.tree(kPackage), kNewTree);
}

TEST(PackageWrite, aBatchIsDurableWhereTheDeviceCannotBeSyncedWhole) {
    FaultFileSystem files;
    files.store(kPackage + "/general.t", kOld);
    files.forbidDeviceSync();
    const auto content = []() -> Result<std::vector<PackageFile>> { return kNewPackage; };
    const auto none = []() -> Result<std::vector<PackageFile>> { return failure("test"); };
    const std::vector<PackageChange> changes = {{kPackage, content}, {"/home/documents/b.evn", none}};
    const auto results = writePackagesAtomically(files, "/home/documents", changes);
    ASSERT_EQ(results.size(), 2U);
    EXPECT_TRUE(results[0]);
    EXPECT_FALSE(results[1]);
    files.restart(Loss::allUnsynced);
    EXPECT_EQ(files.tree(kPackage), kNewTree);
}

/// As after a crash between the replacement and the end of what was replaced.
TEST(PackageRemoval, bringsNothingEarlierBack) {
    constexpr std::size_t kOperations = 20;
    bool wasRemoved = false;
    for (std::uint32_t run = 0; run < 2 * kOperations * 16; ++run) {
        SCOPED_TRACE(run);
        FaultFileSystem files;
        files.store(kPackage + "/general.t", kNew);
        files.store(asidePath(kPackage) + "/general.t", kOld);
        files.store(asidePath(kPackage) + "/icon.i", kOld);
        files.crashAt(1 + run / 2 % kOperations);
        const auto removed = run % 2 == 0 ? removePackagesAtomically(files, "/home/documents", {&kPackage, 1}).front()
                                          : removePackageAtomically(files, kPackage);
        files.restart(Loss::byChance, run);
        ASSERT_TRUE(settlePackage(files, kPackage));
        const Tree found = files.tree(kPackage);
        EXPECT_TRUE(found.empty() || (!removed && found == Tree{{"general.t", kNew}}));
        wasRemoved = wasRemoved || removed;
    }
    EXPECT_TRUE(wasRemoved);
}

TEST(Temporaries, sweepsThoseOfDeadProcessesOnly) {
    FaultFileSystem files;
    const std::string own = std::to_string(getpid());
    // Beyond the highest process id of Linux.
    const std::string dead = ".a.evn.tmp-4194305-1";
    const std::vector<std::string> stored = {dead + "/general.t",
                                             "a.evn/general.t",
                                             ".hidden",
                                             ".a.tmp-x-1",
                                             ".live.tmp-1-7",
                                             ".earlier.tmp-" + own + "-999999999",
                                             ".huge.tmp-99999999999999999999-1"};
    for (const std::string& name : stored) {
        files.store("/home/documents/" + name, kOld);
    }
    removeStaleTemporaries(files, "/home/documents");
    auto names = *files.listDirectory("/home/documents");
    std::ranges::sort(names);
    EXPECT_THAT(names,
                ElementsAre(".a.tmp-x-1", ".hidden", ".huge.tmp-99999999999999999999-1", ".live.tmp-1-7", "a.evn"));
}

TEST(Temporaries, recognisesItsNames) {
    for (const char* name : {".a.tmp-1-2", ".a.evn.tmp-12-345", ".a.evn.was", ".a.tmp-1-2.tmp-3-4"})
        EXPECT_TRUE(isTemporaryName(name));
    for (const char* name : {"", "a.tmp-1-2", ".tmp-1-2", ".a.tmp-1", ".a.tmp--2", ".a.tmp-1-", ".a.tmp-1-2x",
                             ".a.tmp-+1-2", "a.evn", "a.evn.was", "..was"}) {
        EXPECT_FALSE(isTemporaryName(name)) << name;
    }
}

TEST(Directories, tellOfTheOneThatFailed) {
    FaultFileSystem files;
    files.store("/home/a/file", {});
    files.crashAt(1);
    EXPECT_EQ(files.createDirectories("/home/a").error().userInfo.at("path"), "/home/a");
}

TEST(Directories, areMadeWithTheirParentsAndSurviveACrash) {
    FaultFileSystem files;
    ASSERT_TRUE(files.createDirectories("/a/b/c/"));
    files.restart();
    EXPECT_TRUE(files.isDirectory("/a/b/c"));
    ASSERT_TRUE(writeFileAtomically(files, "/a/file", kOld));
    EXPECT_FALSE(files.createDirectories("/a/file/below"));
}

TEST(PathNames, areTakenApartAndPutTogether) {
    struct Case {
        const char* path;
        const char* parent;
        const char* last;
        const char* extension;
        const char* withoutExtension;
    };
    const Case cases[] = {
        {"/a/b.c/key", "/a/b.c", "key", "", "/a/b.c/key"},
        {"/a/.hidden", "/a", ".hidden", "", "/a/.hidden"},
        {"/a/two.points.t", "/a", "two.points.t", "t", "/a/two.points"},
        {"/a/ends.", "/a", "ends.", "", "/a/ends."},
        {"name.t", "", "name.t", "t", "name"},
        {"", "", "", "", ""},
    };
    for (const Case& tested : cases) {
        SCOPED_TRACE(tested.path);
        EXPECT_EQ(parentPath(tested.path), tested.parent);
        EXPECT_EQ(lastPathComponent(tested.path), tested.last);
        EXPECT_EQ(pathExtension(tested.path), tested.extension);
        EXPECT_EQ(deletingPathExtension(tested.path), tested.withoutExtension);
    }
    EXPECT_EQ(joinPath("/", "b"), "/b");
    EXPECT_EQ(lastPathComponent("/a/b/"), "b");
    EXPECT_EQ(parentPath("/a/b/"), "/a");
}

}  // namespace

}  // namespace dayward
