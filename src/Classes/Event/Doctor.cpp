#include "Classes/Event/Doctor.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "Classes/Event/FileExamination.h"
#include "platform/FatalError.h"
#include "platform/FileCoordinator.h"
#include "platform/FileSystem.h"
#include "platform/IdleQueues.h"
#include "platform/Log.h"
#include "platform/NotificationCenter.h"
#include "platform/ReadOnlyFileSystem.h"
#include "platform/Strings.h"
#include "platform/UserDefaults.h"

namespace dayward {

namespace {

/// A file whose reading takes longer counts as unreadable.
constexpr unsigned kSecondsPerFile = 60;
/// Ends each report of a child, behind the faults of the file, each ended by kFaultEnd.
constexpr char kFileEnd = '\1';
constexpr char kFaultEnd = '\0';

class SilentLog final : public Log {
public:
    void error(std::string_view) override {}
    void debug(std::string_view) override {}
};

/// The same home with services of its own that share no lock with the parent's and change nothing.
Environment::Services readOnlyServices(Environment& environment) {
    Environment::Services services;
    services.clock = std::make_shared<FixedClock>(environment.now());
    services.files = std::make_shared<ReadOnlyFileSystem>(environment.sharedFiles());
    services.coordinator =
        std::make_shared<FileCoordinator>(services.files, joinPath(environment.paths().state, "locks"));
    services.queues = std::make_shared<IdleQueues>();
    services.notifications = std::make_shared<NotificationCenter>();
    services.archiveClasses = std::make_shared<ArchiveClasses>(environment.archiveClasses());
    services.strings = std::make_shared<Strings>(environment.strings());
    services.log = std::make_shared<SilentLog>();
    services.paths = environment.paths();
    services.zone = environment.timeZone();
    services.locale = environment.locale();
    services.standardDefaults = std::make_shared<UserDefaults>(services.files, services.archiveClasses,
                                                               joinPath(services.paths.config, "standard.defaults"));
    services.groupDefaults = std::make_shared<UserDefaults>(services.files, services.archiveClasses,
                                                            joinPath(services.paths.group, "group.defaults"));
    return services;
}

void writeAll(int descriptor, std::string_view text) {
    while (!text.empty()) {
        const ssize_t count = ::write(descriptor, text.data(), text.size());
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) ::_exit(1);
        text.remove_prefix(static_cast<std::size_t>(count));
    }
}

/// Without the characters that the report is made of.
std::string printable(std::string_view text) {
    std::string line(text);
    for (char& c : line)
        if (static_cast<unsigned char>(c) < ' ') c = ' ';
    return line;
}

std::string reportOf(const std::vector<std::string>& faults) {
    std::string report;
    for (const std::string& fault : faults) report += printable(fault) + kFaultEnd;
    return report + kFileEnd;
}

void reportFatal(const std::string&, std::string_view text, void* descriptor) {
    writeAll(*static_cast<int*>(descriptor), printable(text) + kFaultEnd);
}

/// The child: examines the files in turn and reports each. Leaves without any clean-up.
[[noreturn]] void examineInChild(Environment& parent, const std::vector<std::string>& files, std::size_t first,
                                 std::size_t end, int descriptor) {
    ::alarm(kSecondsPerFile);
    (void)::freopen("/dev/null", "w", stderr);
    Environment environment(readOnlyServices(parent));
    const EnvironmentScope scope(&environment);
    for (std::size_t i = first; i < end; ++i) {
        ::alarm(kSecondsPerFile);
        const FatalErrorContext context(files[i], reportFatal, &descriptor);
        writeAll(descriptor, reportOf(faultsOfFile(files[i])));
    }
    ::_exit(0);
}

std::string readAll(int descriptor) {
    std::string text;
    char buffer[4096];
    for (;;) {
        const ssize_t count = ::read(descriptor, buffer, sizeof buffer);
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) return text;
        text.append(buffer, static_cast<std::size_t>(count));
    }
}

std::string describeEnd(int status) {
    if (WIFSIGNALED(status)) return std::string("reading it ends the program: ") + ::strsignal(WTERMSIG(status));
    return "reading it ends the program with status " + std::to_string(WEXITSTATUS(status));
}

std::vector<std::string> split(std::string_view text, char separator) {
    std::vector<std::string> parts;
    for (std::size_t end = text.find(separator); end != std::string_view::npos; end = text.find(separator)) {
        parts.emplace_back(text.substr(0, end));
        text.remove_prefix(end + 1);
    }
    parts.emplace_back(text);
    return parts;
}

struct Outcome {
    std::vector<std::vector<std::string>> faults;  ///< of the files that were examined to the end
    std::vector<std::string> lastWords;            ///< of the file at which the child died
    int status = 0;
};

std::unexpected<Error> noChild(const char* operation) {
    return failure("doctor", errno, {{"operation", operation}, {"reason", std::strerror(errno)}});
}

Result<Outcome> runChild(Environment& environment, const std::vector<std::string>& files, std::size_t first,
                         std::size_t end) {
    int ends[2];
    if (::pipe(ends) != 0) return noChild("open a pipe");
    const pid_t child = ::fork();
    if (child < 0) {
        auto failed = noChild("start a process");
        for (const int descriptor : ends) ::close(descriptor);
        return failed;
    }
    if (child == 0) {
        ::close(ends[0]);
        examineInChild(environment, files, first, end, ends[1]);
    }
    ::close(ends[1]);
    const std::string report = readAll(ends[0]);
    ::close(ends[0]);
    Outcome outcome;
    while (::waitpid(child, &outcome.status, 0) < 0 && errno == EINTR) {
    }
    std::vector<std::string> parts = split(report, kFileEnd);
    outcome.lastWords = split(parts.back(), kFaultEnd);
    outcome.lastWords.pop_back();
    parts.pop_back();
    for (const std::string& part : parts) {
        outcome.faults.push_back(split(part, kFaultEnd));
        outcome.faults.back().pop_back();
    }
    return outcome;
}

}  // namespace

Result<std::vector<Problem>> examineHome(Environment& environment) {
    const std::vector<std::string> files = filesToExamine(environment);
    std::vector<Problem> problems;
    std::size_t next = 0;
    // One child reads file after file. Where it dies, that file is tried once more alone, so that no
    // file is blamed for what an earlier one did to the child.
    bool alone = false;
    while (next < files.size()) {
        const std::size_t end = alone ? next + 1 : files.size();
        const Outcome outcome = TRY(runChild(environment, files, next, end));
        for (const auto& faults : outcome.faults) {
            for (const std::string& fault : faults) problems.push_back({files[next], fault});
            ++next;
        }
        const bool died = next < end;
        alone = died && !outcome.faults.empty();
        if (!died || alone) continue;
        const auto& words = outcome.lastWords;
        problems.push_back({files[next], words.empty() ? describeEnd(outcome.status) : words.back()});
        ++next;
    }
    return problems;
}

}  // namespace dayward
