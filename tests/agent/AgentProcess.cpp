#include "agent/AgentProcess.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>

#include <array>
#include <csignal>

namespace dayward {

namespace {

constexpr int kPatienceInMilliseconds = 60000;

}  // namespace

AgentProcess::AgentProcess(const std::string& program, const std::string& home, const std::string& clock,
                           const std::string& errors) {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;
    output_ = FileDescriptor(ends[0]);
    const FileDescriptor input(ends[1]);
    fcntl(input.get(), F_SETFL, 0);  // the agent's end waits
    std::vector<std::string> words{program, "--home", home, "--driven-clock", clock};
    std::vector<char*> arguments;
    for (std::string& word : words) arguments.push_back(word.data());
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, input.get(), STDOUT_FILENO);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, errors.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0600);
    if (posix_spawn(&number_, program.c_str(), &actions, nullptr, arguments.data(), environ) != 0) number_ = -1;
    posix_spawn_file_actions_destroy(&actions);
}

AgentProcess::~AgentProcess() { kill(); }

std::vector<std::string> AgentProcess::lines() {
    std::array<char, 65536> bytes;
    for (ssize_t count = 0; (count = read(output_.get(), bytes.data(), bytes.size())) > 0;) {
        unread_.append(bytes.data(), static_cast<std::size_t>(count));
    }
    std::vector<std::string> lines;
    for (std::size_t end = 0; (end = unread_.find('\n')) != std::string::npos; unread_.erase(0, end + 1)) {
        lines.push_back(unread_.substr(0, end));
    }
    return lines;
}

bool AgentProcess::waitForLines() {
    pollfd waiting{output_.get(), POLLIN, 0};
    return poll(&waiting, 1, kPatienceInMilliseconds) == 1 && (waiting.revents & POLLIN) != 0;
}

void AgentProcess::kill() {
    if (number_ < 0 || std::exchange(isKilled_, true)) return;
    ::kill(number_, SIGKILL);
    waitpid(number_, nullptr, 0);
}

bool AgentProcess::hasEnded() {
    if (number_ < 0) return true;
    if (isKilled_) return false;
    if (waitpid(number_, nullptr, WNOHANG) == 0) return false;
    return isKilled_ = true;
}

void AgentProcess::limitFiles(bool isLimited) {
    const rlimit limit{isLimited ? 0 : RLIM_INFINITY, RLIM_INFINITY};
    prlimit(number_, RLIMIT_FSIZE, &limit, nullptr);
}

}  // namespace dayward
