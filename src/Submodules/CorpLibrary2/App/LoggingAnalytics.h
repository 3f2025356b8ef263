// Usage events as debug lines of the log, for whoever works on the program. Any thread.
#pragma once

#include "Submodules/CorpLibrary2/App/Analytics.h"

namespace dayward {

class LoggingAnalytics final : public AnalyticsReporter {
public:
    /// "Analytics CATEGORY ACTION key=text …"; parameters that are no strings are left out.
    void report(const std::string& category, const std::string& action, const Dictionary& parameters) override;
};

}  // namespace dayward
