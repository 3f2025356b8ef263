#include "platform/linux/DetachedProcess.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <string_view>

#include "platform/FileSystem.h"
#include "platform/linux/FileDescriptor.h"

namespace dayward {

namespace {

std::unexpected<Error> systemFailure(const std::string& program, int number) {
    return failure("start", 0, {{"path", program}, {"reason", std::strerror(number)}});
}

std::vector<std::string> environmentWith(const std::vector<std::string>& variables) {
    std::vector<std::string> all = variables;
    for (char** entry = environ; *entry != nullptr; ++entry) {
        const std::string_view known(*entry);
        const std::string_view name = known.substr(0, known.find('=') + 1);
        bool isGiven = false;
        for (const std::string& variable : variables) isGiven = isGiven || variable.starts_with(name);
        if (!isGiven) all.emplace_back(known);
    }
    return all;
}

std::vector<char*> pointersTo(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    for (std::string& text : texts) pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

/// The grandchild's way; nothing here may allocate or lock.
[[noreturn]] void become(char* const* arguments, char* const* environment, int null, int report) {
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    for (const int standard : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) dup2(null, standard);
    execve(arguments[0], arguments, environment);
    const int reason = errno;
    (void)!write(report, &reason, sizeof reason);
    _exit(127);
}

}  // namespace

std::string programInPath(const std::string& name) {
    const char* const value = std::getenv("PATH");
    std::string_view rest = value != nullptr ? value : "/usr/local/bin:/usr/bin:/bin";
    while (!rest.empty()) {
        const std::string_view directory = rest.substr(0, rest.find(':'));
        const std::string path = joinPath(std::string(directory), name);
        if (directory.starts_with('/') && access(path.c_str(), X_OK) == 0) return path;
        rest.remove_prefix(std::min(directory.size() + 1, rest.size()));
    }
    return {};
}

Result<> startDetached(const std::vector<std::string>& command, const std::vector<std::string>& variables) {
    std::vector<std::string> texts = command, environment = environmentWith(variables);
    const std::vector<char*> arguments = pointersTo(texts), entries = pointersTo(environment);
    const FileDescriptor null(open("/dev/null", O_RDWR | O_CLOEXEC));
    int ends[2];
    if (!null || pipe2(ends, O_CLOEXEC) != 0) return systemFailure(command[0], errno);
    const FileDescriptor reader(ends[0]);
    FileDescriptor writer(ends[1]);
    const pid_t child = fork();
    if (child < 0) return systemFailure(command[0], errno);
    if (child == 0) {
        // The child of a child that has ended belongs to nobody.
        setsid();
        const pid_t grandchild = fork();
        if (grandchild == 0) become(arguments.data(), entries.data(), null.get(), writer.get());
        const int reason = errno;
        if (grandchild < 0) (void)!write(writer.get(), &reason, sizeof reason);
        _exit(0);
    }
    writer = FileDescriptor();
    while (waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
    }
    int reason = 0;
    if (read(reader.get(), &reason, sizeof reason) == sizeof reason) return systemFailure(command[0], reason);
    return {};
}

}  // namespace dayward
