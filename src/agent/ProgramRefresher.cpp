#include "agent/ProgramRefresher.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/syscall.h>
#include <sys/wait.h>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <utility>

namespace dayward {

namespace {

/// Without input, silent but for its errors, and with every signal as usual.
int spawn(const std::vector<std::string>& command, pid_t& number) {
    std::vector<char*> arguments;
    for (const std::string& word : command) arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    sigset_t usual;
    sigfillset(&usual);
    posix_spawnattr_setsigdefault(&attributes, &usual);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF);
    const int code = posix_spawn(&number, arguments[0], &actions, &attributes, arguments.data(), environ);
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&actions);
    return code;
}

}  // namespace

Result<> ProgramRefresher::start(std::function<void(bool)> done) {
    const std::vector<std::string> command = command_();
    const auto fail = [&](int code) {
        return failure("program", code, {{"path", command.front()}, {"reason", std::strerror(code)}});
    };
    if (const int code = spawn(command, number_)) return fail(code);
    FileDescriptor process(static_cast<int>(syscall(SYS_pidfd_open, number_, 0)));
    if (!process) {
        const int code = errno;
        waitpid(number_, nullptr, 0);
        return fail(code);
    }
    process_ = std::move(process);
    done_ = std::move(done);
    return {};
}

void ProgramRefresher::dispatch() {
    int status = 0;
    if (waitpid(number_, &status, WNOHANG) == 0) return;
    process_ = FileDescriptor(-1);
    std::exchange(done_, nullptr)(WIFEXITED(status) && WEXITSTATUS(status) == 0);
}

}  // namespace dayward
