#include "Submodules/CorpLibrary2/App/LoggingAnalytics.h"

#include "platform/Log.h"

namespace dayward {

void LoggingAnalytics::report(const std::string& category, const std::string& action, const Dictionary& parameters) {
    logDebug([&] {
        std::string line = "Analytics " + category + " " + action;
        for (const auto& [key, value] : parameters) {
            if (const std::string* text = value.string()) line += " " + key + "=" + *text;
        }
        return line;
    });
}

}  // namespace dayward
