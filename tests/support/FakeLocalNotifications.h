// A device's schedule in memory that counts what it is asked to do.
#pragma once

#include <algorithm>
#include <vector>

#include "platform/LocalNotifications.h"
#include "platform/Mutex.h"

namespace dayward {

class FakeLocalNotifications final : public LocalNotifications {
public:
    void registerUserNotificationSettings(UserNotificationTypes types) override {
        const Lock lock(mutex_);
        registered_.push_back(types);
    }
    std::vector<LocalNotification> scheduledLocalNotifications() override {
        const Lock lock(mutex_);
        return scheduled_;
    }
    std::vector<LocalNotification> snoozedLocalNotifications() override {
        const Lock lock(mutex_);
        return snoozed_;
    }
    Result<> change(const std::vector<LocalNotification>& cancelled,
                    const std::vector<LocalNotification>& scheduled) override {
        const Lock lock(mutex_);
        if (isBroken_) return failure("device");
        for (const LocalNotification& one : cancelled) std::erase(scheduled_, one);
        for (const LocalNotification& one : scheduled) {
            if (std::ranges::find(scheduled_, one) == scheduled_.end()) scheduled_.push_back(one);
        }
        std::ranges::stable_sort(scheduled_, {}, &LocalNotification::fireDate);
        if (scheduled_.size() > kMaximumCount) scheduled_.resize(kMaximumCount);
        ++changes_;
        return {};
    }
    Result<> changeSnoozed(const std::vector<LocalNotification>& removed,
                           const std::vector<LocalNotification>& restored) override {
        const Lock lock(mutex_);
        for (const LocalNotification& one : removed) std::erase(snoozed_, one);
        snoozed_.insert(snoozed_.end(), restored.begin(), restored.end());
        ++changes_;
        return {};
    }
    std::int64_t applicationIconBadgeNumber() override {
        const Lock lock(mutex_);
        return badge_;
    }
    void setApplicationIconBadgeNumber(std::int64_t number) override {
        const Lock lock(mutex_);
        badge_ = number;
        ++changes_;
    }

    /// As the user does it.
    void snooze(const LocalNotification& notification) {
        const Lock lock(mutex_);
        snoozed_.push_back(notification);
    }
    /// It takes no change from now on, or takes them again.
    void setBroken(bool isBroken) {
        const Lock lock(mutex_);
        isBroken_ = isBroken;
    }
    /// What has fired leaves the schedule.
    void fireUntil(Date now) {
        const Lock lock(mutex_);
        std::erase_if(scheduled_, [&](const LocalNotification& one) { return one.fireDate && *one.fireDate <= now; });
    }
    [[nodiscard]] std::vector<UserNotificationTypes> registered() const {
        const Lock lock(mutex_);
        return registered_;
    }
    /// Calls that change something: a refresh without a difference makes none.
    [[nodiscard]] int changes() const {
        const Lock lock(mutex_);
        return changes_;
    }

private:
    mutable Mutex mutex_;
    std::vector<UserNotificationTypes> registered_ DAYWARD_GUARDED_BY(mutex_);
    std::vector<LocalNotification> scheduled_, snoozed_ DAYWARD_GUARDED_BY(mutex_);
    std::int64_t badge_ DAYWARD_GUARDED_BY(mutex_) = 0;
    int changes_ DAYWARD_GUARDED_BY(mutex_) = 0;
    bool isBroken_ DAYWARD_GUARDED_BY(mutex_) = false;
};

}  // namespace dayward
