// A notification that the device gives at a moment, whether the program runs or not. Plain value.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/Date.h"
#include "platform/Object.h"

namespace dayward {

struct LocalNotification {
    std::optional<Date> fireDate;
    std::optional<std::string> alertBody;                    ///< absent: it is silent
    std::optional<std::string> soundName;                    ///< a file of the program's resources
    std::optional<std::int64_t> applicationIconBadgeNumber;  ///< absent: the badge stays as it is
    Dictionary userInfo;

    bool operator==(const LocalNotification&) const = default;
};

}  // namespace dayward
