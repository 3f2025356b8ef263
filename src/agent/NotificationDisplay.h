// Shows alerts to the user and tells what the user does with them. The agent's thread only; a call waits for a
// service at most a second or two.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/Date.h"
#include "platform/LocalNotification.h"
#include "platform/Result.h"

namespace dayward {

/// One alert that is due.
struct DueAlert {
    std::string key;  ///< tells it from every other, and is the same whoever shows it again
    LocalNotification notification;
    Date due;             ///< the moment at which it fires where the device is now
    bool isLate = false;  ///< the device was off or asleep at that moment: the alert tells its own time
};

/// How long an alert is put off.
enum class Snooze { tenMinutes, oneHour, tomorrow };

class NotificationDisplayListener {
public:
    virtual ~NotificationDisplayListener() = default;
    /// The user opened the alert. It is out of sight then.
    virtual void didOpen(const std::string& key) = 0;
    virtual void didSnooze(const std::string& key, Snooze snooze) = 0;
    /// What could not be shown before can be tried again: the service appeared.
    virtual void displayDidAppear() = 0;
};

class NotificationDisplay {
public:
    virtual ~NotificationDisplay() = default;
    /// Not owned; outlives the display or is set to null.
    virtual void setListener(NotificationDisplayListener* listener) = 0;

    /// Shown where it succeeds; one with the same key is replaced in place. An error where nothing can show it now.
    virtual Result<> show(const DueAlert& alert) = 0;
    /// Several as one, in their order.
    virtual Result<> showDigest(const std::vector<DueAlert>& alerts) = 0;
    /// Takes it out of sight where it still is; a digest goes with the last of its alerts.
    virtual void withdraw(const std::string& key) = 0;
    /// The number on the program's icon; 0 is none.
    virtual void setBadgeNumber(std::int64_t number) = 0;
};

}  // namespace dayward
