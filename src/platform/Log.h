// The program's log. Debug lines are built lazily and dropped in release builds; errors are always
// kept. Any thread.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace dayward {

class Log {
public:
    virtual ~Log() = default;
    virtual void error(std::string_view line) = 0;
    virtual void debug(std::string_view line) = 0;
    [[nodiscard]] virtual bool wantsDebug() const { return false; }
};

/// To the current environment's log.
void logError(std::string_view line);
/// Builds the line only where debug lines are wanted.
void logDebug(const std::function<std::string()>& line);

}  // namespace dayward
