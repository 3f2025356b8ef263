#include "platform/Log.h"

#include <cstdio>

#include "platform/Environment.h"

namespace dayward {

void logError(std::string_view line) {
    if (Environment::hasCurrent()) return Environment::current().log().error(line);
    std::fprintf(stderr, "%.*s\n", static_cast<int>(line.size()), line.data());
}

void logDebug(const std::function<std::string()>& line) {
    if (!Environment::hasCurrent()) return;
    Log& log = Environment::current().log();
    if (log.wantsDebug()) log.debug(line());
}

}  // namespace dayward
