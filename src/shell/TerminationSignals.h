// SIGTERM, SIGINT and SIGHUP told in Qt's loop, so that the program can end in order.
#pragma once

#include <QSocketNotifier>
#include <array>
#include <functional>

namespace dayward {

/// At most one at a time; main thread. A second after the first signal the next one does its usual work, so that
/// it ends a program that hangs. Until then it is taken for the same: a shell and its terminal both send theirs.
class TerminationSignals {
public:
    /// The handler runs in the loop of this thread. Where the system has no descriptor left for it, the
    /// signals keep their usual work, which is logged.
    explicit TerminationSignals(std::function<void()> handler);
    ~TerminationSignals();
    TerminationSignals(const TerminationSignals&) = delete;
    TerminationSignals& operator=(const TerminationSignals&) = delete;

private:
    std::array<int, 2> pipe_{-1, -1};
    QSocketNotifier notifier_{QSocketNotifier::Read};
};

}  // namespace dayward
