// The application's log of named events, kept in "CCAppHistory.dat" of the library directory as the
// keyed archive of a CCEventHistory. Class operations act on the current environment's history.
// Changes stay in memory until synchronize(), which also takes in what another process recorded
// since. Any thread.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Submodules/CorpLibrary2/Foundation/CCEventHistory.h"
#include "platform/Mutex.h"

namespace dayward {

class Environment;

/// Names of the events that the application records about itself.
struct CCAppHistoryKeys {
    static constexpr const char* install = "__install";
    static constexpr const char* start = "__start";
    static constexpr const char* update = "__update";
    static constexpr const char* crash = "__crash";
};

class CCAppHistory {
public:
    /// Dated now unless a date is given.
    static void addEvent(const std::string& event);
    static void addEvent(const std::string& event, std::optional<Dictionary> userInfo);
    static void addEvent(const std::string& event, std::optional<Dictionary> userInfo, Date date);
    /// Events of that name between the two dates, both inclusive; an open end is no limit.
    static std::size_t countEvent(const std::string& event, std::optional<Date> fromDate, std::optional<Date> toDate);
    static bool containsEvent(const std::string& event);
    /// The date that many events of the name back from the newest.
    static std::optional<Date> dateToLastEvent(const std::string& event, std::int64_t offset);
    static void removeEvent(const std::string& event);
    static void removeAllEvents();
    /// Writes the file. A failure is logged, and the changes wait in memory for the next call.
    static void synchronize();

    /// Loads the file; one that cannot be read counts as empty. Use the class operations.
    explicit CCAppHistory(Environment& environment);

private:
    using Change = std::function<void(CCEventHistory&)>;
    /// What the last write would have left, had it not failed, and how many of the changes were in it.
    /// A write that fails at its last step is in the file all the same; no change must be made twice.
    struct Attempt {
        std::shared_ptr<const CCEventHistory> content;
        std::ptrdiff_t changeCount = 0;
    };

    static CCAppHistory& shared();
    void change(Change change);
    Result<> write() DAYWARD_REQUIRES(mutex_);

    Environment& environment_;
    const std::string path_;
    Mutex mutex_;
    CCEventHistory history_ DAYWARD_GUARDED_BY(mutex_);
    /// Since the last write, in order; replayed on what another process may have written.
    std::vector<Change> changes_ DAYWARD_GUARDED_BY(mutex_);
    Attempt attempt_ DAYWARD_GUARDED_BY(mutex_);
};

}  // namespace dayward
