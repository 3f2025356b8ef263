// Starting programs that go on by themselves: they outlive this process and are nobody's to wait for. Any thread.
#pragma once

#include <string>
#include <vector>

#include "platform/Result.h"

namespace dayward {

/// The path of a program among those that the user's $PATH finds; empty where there is none.
std::string programInPath(const std::string& name);

/// Starts the program at a path, in a session of its own, without input and output. `variables` ("NAME=value") are
/// added to the environment or take the place of what is there. Fails where it cannot be started.
Result<> startDetached(const std::vector<std::string>& command, const std::vector<std::string>& variables = {});

}  // namespace dayward
