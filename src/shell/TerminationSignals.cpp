#include "shell/TerminationSignals.h"

#include <fcntl.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <ctime>
#include <utility>

#include "platform/Log.h"

namespace dayward {

namespace {

constexpr std::array kSignals{SIGTERM, SIGINT, SIGHUP};

constexpr std::int64_t kPatience = 1000;  // milliseconds

// A handler of signals may do little more than read a clock and write to a descriptor.
std::atomic<int> writeEnd{-1};
std::atomic<std::int64_t> firstCame{0};  // 0 for none yet

std::int64_t milliseconds() {
    timespec now{};
    ::clock_gettime(CLOCK_MONOTONIC, &now);
    return std::int64_t{now.tv_sec} * 1000 + now.tv_nsec / 1'000'000;
}

void tell(int signal) {
    const int error = errno;
    const std::int64_t now = milliseconds();
    std::int64_t first = 0;
    if (!firstCame.compare_exchange_strong(first, now) && now - first > kPatience) {
        ::signal(signal, SIG_DFL);
        ::raise(signal);
    }
    const char byte = 1;
    [[maybe_unused]] const auto written = ::write(writeEnd, &byte, 1);
    errno = error;
}

}  // namespace

TerminationSignals::TerminationSignals(std::function<void()> handler) {
    if (::pipe2(pipe_.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
        logError("no pipe for the signals that end the program");
        return;
    }
    QObject::connect(&notifier_, &QSocketNotifier::activated, &notifier_, [this, handler = std::move(handler)] {
        char byte = 0;
        if (::read(pipe_[0], &byte, 1) == 1) handler();
    });
    notifier_.setSocket(pipe_[0]);
    notifier_.setEnabled(true);
    writeEnd = pipe_[1];
    firstCame = 0;
    struct sigaction action {};
    action.sa_handler = &tell;
    action.sa_flags = SA_RESTART;
    for (const int signal : kSignals) ::sigaction(signal, &action, nullptr);
}

TerminationSignals::~TerminationSignals() {
    if (pipe_[0] < 0) return;
    for (const int signal : kSignals) ::signal(signal, SIG_DFL);
    notifier_.setEnabled(false);
    writeEnd = -1;
    for (const int end : pipe_) ::close(end);
}

}  // namespace dayward
