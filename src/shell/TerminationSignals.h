// SIGTERM, SIGINT and SIGHUP told in Qt's loop, so that the program can end in order.
#pragma once

#include <QSocketNotifier>
#include <array>
#include <functional>

namespace dayward {

/// At most one at a time; main thread. A signal that came once does its usual work from then on: the second
/// one ends a program that hangs.
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
