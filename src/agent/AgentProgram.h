// The process: its parts put together, and its waiting.
#pragma once

#include <string>

namespace dayward {

struct AgentOptions {
    std::string home;         ///< empty: $DAYWARD_HOME or the user's directories
    std::string programs;     ///< the directory of the program's own executables
    std::string drivenClock;  ///< a file that drives the clock; alerts are lines on standard output then. For tests
};

/// Runs until it is killed, which loses nothing. Returns with a line on standard error where it cannot begin.
int runAgent(const AgentOptions& options);

}  // namespace dayward
