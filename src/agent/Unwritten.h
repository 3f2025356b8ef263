// What the agent did while the disk did not take it: kept in memory and written with the next change.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "agent/DeliveryRecord.h"
#include "platform/NotificationSchedule.h"

namespace dayward {

struct Unwritten {
    std::vector<LocalNotification> claimed;
    std::vector<std::string> shown;  ///< keys
    std::vector<LocalNotification> snoozed;
    std::optional<Date> fetched;
    std::vector<LocalNotification> withdrawn;  ///< out of sight, to leave the schedule's list
    bool isRebuilt = false;                    ///< the schedule no longer needs it

    [[nodiscard]] bool isEmpty() const;
    void applyTo(DeliveryRecord::Content& record, const std::string& claimant) const;
    void applyTo(NotificationSchedule::Content& schedule) const;
};

}  // namespace dayward
