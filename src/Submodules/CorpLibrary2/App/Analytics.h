// The way out for usage events. There is no reporter unless the program sets one; without one a
// report does nothing. Any thread.
#pragma once

#include <memory>
#include <string>

#include "platform/Mutex.h"
#include "platform/Object.h"

namespace dayward {

class Environment;

class AnalyticsReporter {
public:
    virtual ~AnalyticsReporter() = default;
    virtual void report(const std::string& category, const std::string& action, const Dictionary& parameters) = 0;
};

/// Class operations act on the current environment.
class Analytics {
public:
    /// Null for none.
    static void setReporter(std::shared_ptr<AnalyticsReporter> reporter);
    static void report(const std::string& category, const std::string& action, const Dictionary& parameters);

    explicit Analytics(Environment&) {}

private:
    static Analytics& shared();

    Mutex mutex_;
    std::shared_ptr<AnalyticsReporter> reporter_ DAYWARD_GUARDED_BY(mutex_);
};

}  // namespace dayward
