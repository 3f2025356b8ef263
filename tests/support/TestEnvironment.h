// An environment for one test: fixed clock, zone and locale, a fresh home that goes with it, queues
// that run when told to, a log that can be read.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Environment.h"
#include "platform/Log.h"
#include "support/ManualQueues.h"

namespace dayward {

/// Keeps its lines.
class TestLog final : public Log {
public:
    void error(std::string_view line) override;
    void debug(std::string_view line) override;
    [[nodiscard]] bool wantsDebug() const override { return true; }
    [[nodiscard]] std::vector<std::string> errors() const;
    [[nodiscard]] std::vector<std::string> debugLines() const;

private:
    mutable Mutex mutex_;
    std::vector<std::string> errors_ DAYWARD_GUARDED_BY(mutex_);
    std::vector<std::string> debugLines_ DAYWARD_GUARDED_BY(mutex_);
};

class AudioDevice;
class DirectoryWatcher;
class LocalNotifications;

class TestEnvironment {
public:
    struct Options {
        std::string zone = "UTC";
        std::string locale = "en_US";
        std::string now = "2026-03-10T12:00:00";                    ///< local time in the zone
        std::string home = {};                                      ///< empty: a fresh directory, removed at the end
        std::shared_ptr<FileSystem> files = {};                     ///< null: the real one
        std::shared_ptr<Queues> queues = {};                        ///< null: ManualQueues
        std::shared_ptr<DirectoryWatcher> watcher = {};             ///< null: nothing is watched
        std::shared_ptr<Clock> clock = {};                          ///< null: a FixedClock at `now`
        std::shared_ptr<const ArchiveClasses> archiveClasses = {};  ///< null: the platform's own classes only
        std::string resources = {};                                 ///< empty: those of the source tree
        std::shared_ptr<AudioDevice> audio = {};                    ///< null: nothing is heard
        std::shared_ptr<LocalNotifications> localNotifications = {};  ///< null: nothing is scheduled
    };

    TestEnvironment();
    explicit TestEnvironment(Options options);
    ~TestEnvironment();

    Environment& operator*() const { return *environment; }
    Environment* operator->() const { return environment.get(); }

    /// The instant of a local ISO 8601 time ("2027-03-14T09:00:00", or a date alone) in the zone.
    [[nodiscard]] Date at(std::string_view localTime) const;
    /// The local time of an instant in the zone, in the same form.
    [[nodiscard]] std::string text(Date date) const;

    std::string home;
    std::shared_ptr<FixedClock> clock;     ///< null where Options gave another clock
    std::shared_ptr<ManualQueues> queues;  ///< null where Options gave other queues
    std::shared_ptr<TestLog> log;
    std::unique_ptr<Environment> environment;

private:
    bool ownsHome_ = false;
    std::unique_ptr<EnvironmentScope> scope_;  ///< the environment is current while the test runs
};

}  // namespace dayward
