// The process: its parts put together, and its waiting.
#pragma once

#include <string>

namespace dayward {

struct AgentOptions {
    std::string home;         ///< empty: $DAYWARD_HOME or the user's directories
    std::string programs;     ///< the directory of the program's own executables
    std::string resources;    ///< the program's own files
    std::string version;
    std::string drivenClock;  ///< a file that drives the clock; alerts are lines on standard output then. For tests
    bool onDesktop = false;   ///< alerts are shown on the desktop, whatever drives the clock
};

/// Runs until it is killed, which loses nothing, or the session ends. Returns with a line on standard error where it cannot begin.
int runAgent(const AgentOptions& options);

}  // namespace dayward
