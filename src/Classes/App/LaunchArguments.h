// What the arguments of the program, or of a second start of it, ask for.
#pragma once

#include <string>
#include <vector>

#include "platform/ApplicationDelegate.h"
#include "platform/Result.h"

namespace dayward {

/// "--event IDENTIFIER", as a tapped notification starts the program, "--new-event", and URLs. Fails on anything else.
Result<LaunchOptions> launchOptionsFromArguments(const std::vector<std::string>& arguments);

}  // namespace dayward
