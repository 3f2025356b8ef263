// The way out for usage events, remote switches and crash reports. There is no reporter unless the
// program sets one, and none that sends anything anywhere; without one every call does nothing.
// Any thread.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/Date.h"
#include "platform/Mutex.h"
#include "platform/Object.h"

namespace dayward {

class Environment;

class AnalyticsReporter {
public:
    /// Takes the date of a crash of the run before.
    using CrashHandler = std::function<void(Date)>;

    virtual ~AnalyticsReporter() = default;
    virtual void report(const std::string& category, const std::string& action, const Dictionary& parameters) = 0;
    /// Starts the container of remote switches with that identifier.
    virtual void startTagContainer(const std::string& /*identifier*/) {}
    /// Starts to watch for crashes. The handler may be called on any thread, at once or later.
    virtual void startCrashReporting(CrashHandler /*onReport*/) {}
    /// Whether the container of remote switches knew the URL and took it.
    virtual bool handleOpenURL(const std::string& /*url*/) { return false; }
};

/// Class operations act on the current environment.
class Analytics {
public:
    /// Null for none.
    static void setReporter(std::shared_ptr<AnalyticsReporter> reporter);
    static void report(const std::string& category, const std::string& action, const Dictionary& parameters);
    /// Starts the remote switches, then the crash reports; a crash of the run before is recorded in the
    /// history with its date.
    static void start(const std::string& containerIdentifier);
    static bool handleOpenURL(const std::string& url);

    explicit Analytics(Environment& environment) : environment_(environment) {}

private:
    static Analytics& shared();
    [[nodiscard]] std::shared_ptr<AnalyticsReporter> reporter();

    Environment& environment_;
    Mutex mutex_;
    std::shared_ptr<AnalyticsReporter> reporter_ DAYWARD_GUARDED_BY(mutex_);
};

}  // namespace dayward
