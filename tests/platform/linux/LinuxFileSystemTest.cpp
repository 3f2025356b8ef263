// The real file system, log and environment, in a fresh directory.
#include "platform/linux/LinuxFileSystem.h"

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/DirectoryWatch.h"
#include "platform/Strings.h"
#include "platform/linux/LinuxEnvironment.h"
#include "platform/linux/SpdlogLog.h"
#include "support/TestEnvironment.h"
#include "support/TestPaths.h"

namespace dayward {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::UnorderedElementsAre;

class RealFiles : public testing::Test {
protected:
    [[nodiscard]] std::string path(const std::string& name) const { return joinPath(environment.home, name); }

    TestEnvironment environment;
    LinuxFileSystem files;
};

TEST_F(RealFiles, replacesFilesAndPackages) {
    const Data big(200000, 7);
    ASSERT_TRUE(writeFileAtomically(files, path("file"), dataOf("old")));
    ASSERT_TRUE(writeFileAtomically(files, path("file"), big));
    EXPECT_EQ(files.readFile(path("file")), big);
    const std::vector<PackageFile> first = {{"general.t", big}, {"icon.i", {}}};
    const std::vector<PackageFile> second = {{"general.t", dataOf("new")}};
    ASSERT_TRUE(writePackageAtomically(files, path("a.evn"), first));
    EXPECT_THAT(*files.listDirectory(path("a.evn")), UnorderedElementsAre("general.t", "icon.i"));
    ASSERT_TRUE(writePackageAtomically(files, path("a.evn"), second));
    EXPECT_THAT(*files.listDirectory(path("a.evn")), ElementsAre("general.t"));
    EXPECT_EQ(files.readFile(path("a.evn/general.t")), dataOf("new"));
    EXPECT_FALSE(std::ranges::any_of(*files.listDirectory(environment.home), isTemporaryName));
}

TEST_F(RealFiles, belongToTheirOwnerAlone) {
    ASSERT_TRUE(writeFileAtomically(files, path("file"), dataOf("private")));
    ASSERT_TRUE(files.createDirectories(path("a/b")));
    struct stat found = {};
    ASSERT_EQ(::stat(path("file").c_str(), &found), 0);
    EXPECT_EQ(found.st_mode & 077, 0U);
    ASSERT_EQ(::stat(path("a/b").c_str(), &found), 0);
    EXPECT_EQ(found.st_mode & 077, 0U);
}

TEST_F(RealFiles, tellWhatWentWrongWhereAndDoing) {
    ASSERT_TRUE(writeFileAtomically(files, path("file"), {}));
    const std::string absent = path("absent");
    EXPECT_EQ(files.readFile(absent).error().code, ENOENT);
    EXPECT_EQ(files.readFile(absent).error().userInfo.at("path"), absent);
    EXPECT_EQ(files.listDirectory(path("file")).error().code, ENOTDIR);
    EXPECT_EQ(files.createDirectory(path("file")).error().code, EEXIST);
    EXPECT_TRUE(files.createDirectory(environment.home));
    EXPECT_EQ(files.removeEmptyDirectory(environment.home).error().code, ENOTEMPTY);
    EXPECT_FALSE(*files.status(path("file/below")));
    EXPECT_EQ(files.status(path(std::string(300, 'x'))).error().code, ENAMETOOLONG);
}

TEST_F(RealFiles, aPipeInTheirPlaceIsRefusedAndNotWaitedFor) {
    ASSERT_EQ(::mkfifo(path("pipe").c_str(), 0600), 0);
    EXPECT_EQ(files.readFile(path("pipe")).error().code, EINVAL);
}

TEST_F(RealFiles, anEndlessFileIsRefusedAndNotReadIntoMemory) {
    ASSERT_TRUE(writeFileAtomically(files, path("long"), {}));
    ASSERT_EQ(::truncate(path("long").c_str(), off_t{1} << 40), 0);
    EXPECT_EQ(files.readFile(path("long")).error().code, EFBIG);
}

TEST_F(RealFiles, removingATreeNeverFollowsLinksOutOfIt) {
    ASSERT_TRUE(files.createDirectories(path("tree/inner")));
    ASSERT_TRUE(files.createDirectories(path("outside")));
    ASSERT_TRUE(writeFileAtomically(files, path("outside/kept"), dataOf("kept")));
    ASSERT_EQ(::symlink(path("outside").c_str(), path("tree/inner/link").c_str()), 0);
    ASSERT_EQ(::symlink("/nowhere", path("tree/dangling").c_str()), 0);
    ASSERT_TRUE(files.removeTree(path("tree")));
    EXPECT_FALSE(files.exists(path("tree")));
    EXPECT_TRUE(files.exists(path("outside/kept")));
}

TEST_F(RealFiles, longestNamesAreWrittenAtomicallyToo) {
    const std::string name(255, 'n');
    ASSERT_TRUE(writeFileAtomically(files, path(name), dataOf("x")));
    EXPECT_EQ(files.readFile(path(name)), dataOf("x"));
}

TEST_F(RealFiles, logKeepsErrorsAndOnlyWantedDebugLines) {
    for (const bool debug : {false, true}) {
        const std::string file = path(debug ? "debug.log" : "plain.log");
        {
            SpdlogLog log({file, false, debug});
            log.error("went wrong: {} %s");
            log.debug("detail");
        }
        const std::string text = textOf(*files.readFile(file));
        EXPECT_THAT(text, HasSubstr("error went wrong: {} %s\n"));
        EXPECT_EQ(text.find("debug detail") != text.npos, debug);
    }
}

TEST_F(RealFiles, aLogThatCannotBeOpenedSpeaksOnStandardError) {
    SpdlogLog log({path("data"), false, false});
    testing::internal::CaptureStderr();
    log.error("went wrong");
    log.error("and again");
    log.error("went wrong");
    EXPECT_THAT(testing::internal::GetCapturedStderr(),
                testing::MatchesRegex("went wrong; the log cannot be opened: [^\n]+\nand again\n"));
}

TEST_F(RealFiles, errorsThatAFullDiskKeepsFromTheLogAreToldOnStandardError) {
    SpdlogLog log({"/dev/full", false, true});
    testing::internal::CaptureStderr();
    log.debug("detail");
    log.error("went wrong");
    EXPECT_THAT(testing::internal::GetCapturedStderr(),
                testing::MatchesRegex("went wrong; the log cannot be written: [^\n]+\n"));
}

TEST_F(RealFiles, anEnvironmentWithoutItsPlaceOrZoneIsAnError) {
    LinuxOptions options;
    options.resources = testResources();
    options.home = "/proc/none";
    EXPECT_EQ(makeLinuxServices(options).error().domain, "file");
    options.home = path("home");
    options.zone = "Nowhere/Town";
    EXPECT_EQ(makeLinuxServices(options).error().domain, "time zone");
}

}  // namespace

}  // namespace dayward
