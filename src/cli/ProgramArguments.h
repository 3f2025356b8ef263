// What all programs do with their arguments alike.
#pragma once

#include <optional>
#include <string>

#include "platform/Date.h"
#include "platform/Result.h"

namespace CLI {
class App;
}

namespace dayward {

/// Parses. The exit status with which the program ends: 0 after help or the version, 2 after one line on standard
/// error, which begins with the parser's name; nothing where the program goes on.
std::optional<int> parseArguments(CLI::App& parser, int argc, const char* const* argv);

/// The moment of a "--now" in the zone of a "--tz"; nothing where it is empty. An empty zone is the device's. Fails
/// with a line for the user where either is not one.
Result<std::optional<Date>> givenNow(const std::string& now, const std::string& zone);

}  // namespace dayward
