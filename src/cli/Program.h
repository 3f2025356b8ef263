// The program `dayward`: reads the command line, builds the real environment, runs one command.
#pragma once

#include "agent/desktop/AgentClient.h"

namespace dayward {

struct GlobalOptions;

/// Exit status 0 done, 1 could not be done (one line on standard error), 2 wrong usage.
int runProgram(int argc, char** argv);

/// The agent of the home that was chosen.
AgentClient agentOf(const GlobalOptions& options);

}  // namespace dayward
