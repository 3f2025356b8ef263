// A notification that the device gives at a moment, whether the program runs or not. Plain value.
//
// With a zone, the fire date stands for that zone's wall clock: it fires when the clock of the zone in which
// the device then is shows the same fields. Without one it is an instant.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/Date.h"
#include "platform/Object.h"

namespace dayward {

class TimeZone;

struct LocalNotification {
    std::optional<Date> fireDate;
    std::optional<std::string> timeZone;                     ///< the identifier of the fire date's zone
    std::optional<std::string> alertAction;                  ///< what the button that opens it says
    std::optional<std::string> alertBody;                    ///< absent: it is silent
    std::optional<std::string> soundName;                    ///< a file of the program's resources
    std::optional<std::int64_t> applicationIconBadgeNumber;  ///< absent: the badge stays as it is
    Dictionary userInfo;

    bool operator==(const LocalNotification&) const = default;
};

/// The moment at which it fires where the device is now; nothing without a fire date. A zone that nobody knows
/// counts as none.
std::optional<Date> dueDate(const LocalNotification& notification, const TimeZone& here);
/// The same as it stands on the device's clock: its fire date is that moment.
LocalNotification asDueHere(LocalNotification notification, const TimeZone& here);

}  // namespace dayward
