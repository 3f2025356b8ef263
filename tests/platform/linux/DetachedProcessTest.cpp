// Programs that go on by themselves.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <string>

#include "platform/linux/DetachedProcess.h"
#include "support/TestEnvironment.h"

namespace dayward {
namespace {

TEST(DetachedProcess, RunsWithItsVariablesAndIsNobodysChild) {
    const TestEnvironment environment;
    const std::string pipe = environment.home + "/pipe";
    ASSERT_EQ(std::system(("mkdir -p '" + environment.home + "' && mkfifo '" + pipe + "'").c_str()), 0);
    setenv("DAYWARD_TEST_VARIABLE", "old", 1);
    ASSERT_TRUE(startDetached(
        {"/bin/sh", "-c", "echo \"$1 $DAYWARD_TEST_VARIABLE $DAYWARD_TEST_OTHER\" >\"$2\"", "sh", "two words", pipe},
        {"DAYWARD_TEST_VARIABLE=new", "DAYWARD_TEST_OTHER=other"}));
    unsetenv("DAYWARD_TEST_VARIABLE");
    std::string line;
    std::getline(std::ifstream(pipe), line);
    EXPECT_EQ(line, "two words new other");
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
    EXPECT_EQ(errno, ECHILD);
}

TEST(DetachedProcess, SaysWhatCannotBeStarted) {
    const auto started = startDetached({"/nonexistent/program"});
    ASSERT_FALSE(started);
    EXPECT_EQ(started.error().userInfo.at("path"), "/nonexistent/program");
    EXPECT_EQ(started.error().userInfo.at("reason"), "No such file or directory");
}

TEST(DetachedProcess, FindsProgramsInAbsoluteDirectoriesOfThePath) {
    const std::string before = std::getenv("PATH");
    setenv("PATH", "bin::/nonexistent:/bin", 1);
    EXPECT_EQ(programInPath("sh"), "/bin/sh");
    EXPECT_EQ(programInPath("no-such-program"), "");
    setenv("PATH", before.c_str(), 1);
}

}  // namespace
}  // namespace dayward
