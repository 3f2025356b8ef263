// Which events' alerts fired while the user was away.
//
// The device does not tell what fired. So saveState() keeps a copy of its schedule, and find() compares:
// what has left the schedule, and whose time has come, has fired. Both lists are in the standard user
// defaults: the copy under "k001", the identifiers of the events found under "k002".
//
// Class operations act on the current environment. Any thread, and several processes of a home: find(),
// saveState() and the setters take in what the others stored.
#pragma once

#include <string>
#include <unordered_set>
#include <vector>

#include "platform/LocalNotification.h"
#include "platform/Mutex.h"

namespace dayward {

class Environment;

class MissedEventsHelper {
public:
    static constexpr const char* kLastNotificationsKey = "k001";
    static constexpr const char* kMissedEventsKey = "k002";
    /// Posted without object and user info when the list of missed events is another, by any thread.
    static constexpr const char* kDidUpdateNotification = "MissedEventsDidUpdateNotification";

    /// The schedule as it was last kept; empty where none was, or where it cannot be read.
    static std::vector<LocalNotification> lastNotifications();
    /// Stores it and writes the defaults through; an empty one removes the key.
    static void setLastNotifications(const std::vector<LocalNotification>& notifications);

    /// Identifiers in the order in which they were found. Anything else in the defaults reads as empty.
    static std::vector<std::string> missedEvents();
    /// Stores the list and writes the defaults through; an empty one removes the key.
    static void setMissedEvents(const std::vector<std::string>& identifiers);
    static void clear() { setMissedEvents({}); }
    static bool isMissed(const std::string& identifier);
    /// Takes in what another process stored; call it after the defaults were synchronized.
    static void reload();

    /// Keeps the device's present schedule as lastNotifications().
    static void saveState();
    /// As saveState() while find() is still to come: what has fired since the last time is kept as well.
    static void saveChanges();
    /// Adds the events whose notifications fired since saveState() to missedEvents(). What was found
    /// leaves lastNotifications(), so that it does not come back once the list was cleared.
    static void find();
    /// missedEvents() as find() would leave them now; stores nothing.
    static std::vector<std::string> missedEventsIfFound();

    /// Use the class operations.
    explicit MissedEventsHelper(Environment& environment);

private:
    /// What find() comes to.
    struct Found {
        std::vector<std::string> missed;
        std::vector<LocalNotification> fired, rest;  ///< of the last notifications
    };

    static MissedEventsHelper& shared();
    void load() DAYWARD_REQUIRES(mutex_);
    void store(const std::vector<std::string>& identifiers) DAYWARD_REQUIRES(mutex_);
    [[nodiscard]] std::vector<LocalNotification> readLast() const;
    void storeLast(const std::vector<LocalNotification>& notifications);
    [[nodiscard]] Found compare() const DAYWARD_REQUIRES(mutex_);
    void tellIfOther(const std::vector<std::string>& before);

    Environment& environment_;
    Mutex mutex_;
    std::vector<std::string> identifiers_ DAYWARD_GUARDED_BY(mutex_);
    std::unordered_set<std::string> known_ DAYWARD_GUARDED_BY(mutex_);
};

}  // namespace dayward
