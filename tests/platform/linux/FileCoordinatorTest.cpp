// Coordination on real files: threads of one process, and two processes.
#include "platform/FileCoordinator.h"

#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <latch>
#include <thread>

#include "platform/linux/LinuxFileSystem.h"
#include "support/TestEnvironment.h"

namespace dayward {

namespace {

using Reading = FileCoordinator::ReadingOptions;
using Writing = FileCoordinator::WritingOptions;

class Coordination : public testing::Test {
protected:
    [[nodiscard]] std::string path(const std::string& name) const {
        return joinPath(environment->paths().documents, name);
    }

    /// Reads a number, adds one and writes it: lost updates show where two do it at once.
    Result<> addOne(const std::string& file) {
        const Data bytes = TRY(files->readFile(file));
        const std::string text = std::to_string(std::stol(textOf(bytes)) + 1);
        auto handle = TRY(files->openForWriting(file));
        return handle->write(dataOf(text));
    }

    void storeNumber(const std::string& file, const std::string& text) {
        auto handle = files->openForWriting(file);
        ASSERT_TRUE(handle);
        ASSERT_TRUE((*handle)->write(dataOf(text)));
    }

    TestEnvironment environment;
    std::shared_ptr<LinuxFileSystem> files = std::make_shared<LinuxFileSystem>();
    FileCoordinator coordinator{files, joinPath(environment->paths().state, "coordination/locks")};
};

TEST_F(Coordination, writersOfOnePathExcludeEachOtherBetweenProcesses) {
    constexpr int kRounds = 200;
    const std::string file = path("counter");
    storeNumber(file, "0");
    const auto addMany = [&] {
        for (int round = 0; round < kRounds; ++round) {
            const auto added = coordinator.coordinateWriting(file, Writing::none,
                                                             [&](const std::string& given) { return addOne(given); });
            if (!added) return 1;
        }
        return 0;
    };
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) ::_exit(addMany());
    EXPECT_EQ(addMany(), 0);
    int status = -1;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(textOf(*files->readFile(file)), std::to_string(2 * kRounds));
}

TEST_F(Coordination, readersShareAPath) {
    std::latch bothInside(2);
    const auto read = [&] {
        return coordinator.coordinateReading(path("a.evn"), Reading::none, [&](const std::string&) {
            bothInside.arrive_and_wait();
            return Result<>();
        });
    };
    std::thread other([&] { EXPECT_TRUE(read()); });
    EXPECT_TRUE(read());
    other.join();
}

TEST_F(Coordination, pairsTheOtherWayRoundDoNotBlockEachOther) {
    std::atomic<int> count = 0;
    const auto both = [&](const std::string& from, const std::string& to) {
        for (int round = 0; round < 200; ++round) {
            const auto done = coordinator.coordinateReadingAndWriting(
                path(from), Reading::withoutChanges, path(to), Writing::forReplacing,
                [&](const std::string& readPath, const std::string& writePath) {
                    EXPECT_EQ(readPath, path(from));
                    EXPECT_EQ(writePath, path(to));
                    ++count;
                    return Result<>();
                });
            EXPECT_TRUE(done);
        }
    };
    std::thread other([&] { both("b.evn", "a.evn"); });
    both("a.evn", "b.evn");
    other.join();
    EXPECT_EQ(count, 400);
}

TEST_F(Coordination, anyPairOfPathsIsTakenAlsoWhereBothShareALock) {
    // With 64 locks, 200 paths meet in many of them.
    int count = 0;
    for (int number = 0; number < 200; ++number) {
        const auto done =
            coordinator.coordinateReadingAndWriting(path("fixed"), Reading::none, path(std::to_string(number)),
                                                    Writing::none, [&](const std::string&, const std::string&) {
                                                        ++count;
                                                        return Result<>();
                                                    });
        EXPECT_TRUE(done);
    }
    EXPECT_EQ(count, 200);
    EXPECT_LE(files->listDirectory(joinPath(environment->paths().state, "coordination/locks"))->size(), 64U);
}

TEST_F(Coordination, theAccessorsErrorIsTheResultAndReleasesTheLock) {
    const auto failing = [](const std::string&) { return Result<>(failure("test", 7)); };
    EXPECT_EQ(coordinator.coordinateWriting(path("a"), Writing::none, failing).error().code, 7);
    EXPECT_EQ(coordinator.coordinateReading(path("a"), Reading::none, failing).error().code, 7);
    EXPECT_TRUE(coordinator.coordinateWriting(path("a"), Writing::none, [](const std::string&) { return Result<>(); }));
}

TEST_F(Coordination, locksThatCannotBeMadeAreAnErrorAndRunNothing) {
    storeNumber(path("file"), "0");
    FileCoordinator blocked(files, joinPath(path("file"), "locks"));
    bool ran = false;
    const auto result = blocked.coordinateReading(path("a"), Reading::none, [&](const std::string&) {
        ran = true;
        return Result<>();
    });
    ASSERT_FALSE(result);
    EXPECT_EQ(result.error().domain, "file");
    EXPECT_FALSE(ran);
}

}  // namespace

}  // namespace dayward
