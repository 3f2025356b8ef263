// Which events' alerts fired while the user was away: the list of their identifiers, kept in the
// standard user defaults under "k002". Class operations act on the current environment. Any thread.
#pragma once

#include <string>
#include <unordered_set>
#include <vector>

#include "platform/Mutex.h"

namespace dayward {

class Environment;

class MissedEventsHelper {
public:
    static constexpr const char* kMissedEventsKey = "k002";

    /// Identifiers in the order in which they were found. Anything else in the defaults reads as empty.
    static std::vector<std::string> missedEvents();
    /// Stores the list and writes the defaults through; an empty one removes the key.
    static void setMissedEvents(const std::vector<std::string>& identifiers);
    static void clear() { setMissedEvents({}); }
    static bool isMissed(const std::string& identifier);
    /// Takes in what another process stored; call it after the defaults were synchronized.
    static void reload();

    /// Use the class operations.
    explicit MissedEventsHelper(Environment& environment);

private:
    static MissedEventsHelper& shared();
    void load() DAYWARD_REQUIRES(mutex_);

    Environment& environment_;
    Mutex mutex_;
    std::vector<std::string> identifiers_ DAYWARD_GUARDED_BY(mutex_);
    std::unordered_set<std::string> known_ DAYWARD_GUARDED_BY(mutex_);
};

}  // namespace dayward
