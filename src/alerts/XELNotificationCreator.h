// Turns the description of one owner's day, times, rule and alerts into the notifications that should be
// scheduled now, and tells for how long that list stays good. Knows no store and no other owner.
//
// Made for one owner, filled, asked, and read for its result dates; asking again replaces them. Works in the
// current environment's zone. One thread at a time; fireDate() may be asked by any.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "intervals/XDIDateInterval.h"
#include "platform/Calendar.h"
#include "platform/LocalNotification.h"
#include "platform/Mutex.h"
#include "platform/Object.h"

namespace dayward {

class XELNotificationCreator {
public:
    using AlertBodyBlock = std::function<std::string(const XDIDateInterval&)>;
    /// What a notification comes to before it is made.
    struct Firing {
        Date fireDate;
        std::size_t alert;  ///< the place among the alerts
    };

    static constexpr TimeInterval kDefaultMaxTimeInterval{31536000};
    static constexpr std::size_t kDefaultMaxNotificationsCount = 50;

    Object objectKey;                                 ///< who the owner is
    std::optional<Date> objectModificationDate;
    std::optional<Date> startDateDay;                 ///< only its calendar day counts
    std::vector<std::int64_t> startDateTimes;         ///< minutes after midnight
    std::optional<std::string> rrule;
    std::vector<XDIDateInterval> alerts;              ///< before the occurrence; negative ones after it
    AlertBodyBlock alertBodyBlock;                    ///< the text for an alert; none where it is empty
    TimeInterval maxTimeInterval = kDefaultMaxTimeInterval;           ///< how far ahead a repeating owner is followed
    std::size_t maxNotificationsCount = kDefaultMaxNotificationsCount;  ///< for all alerts together, about
    std::optional<Date> latestFireDate;  ///< what fires later is left out; the result dates are the same

    [[nodiscard]] const std::optional<std::string>& soundName() const { return soundName_; }
    /// The last path component of a file; XELAudioManager::kDefaultSoundName for it and for "Default".
    void setSoundName(const std::optional<std::string>& name);

    /// When the alert for an occurrence at that date fires. Nothing beyond the calendar's range.
    [[nodiscard]] std::optional<Date> fireDate(Date date, const XDIDateInterval& interval);
    /// Alert by alert, for each by date, none before now. Each alert has an equal part of the budget, each time
    /// of day an equal part of that, rounded up. An occurrence beyond `maxTimeInterval` counts only where
    /// there is no nearer one.
    [[nodiscard]] std::vector<LocalNotification> getNotifications();
    /// The same, none of them made yet. Sets the result dates as well.
    [[nodiscard]] std::vector<Firing> getFirings();
    /// Makes the one of a firing.
    [[nodiscard]] LocalNotification notification(const Firing& firing);
    /// What all notifications of an alert have in common, made once for each call of getFirings().
    [[nodiscard]] const LocalNotification& notificationWithoutDate(std::size_t alert);

    /// The moment of getNotifications(); nothing before.
    [[nodiscard]] std::optional<Date> resultStartDate() const { return resultStartDate_; }
    /// Until when the list is complete: the earliest of the alerts' last dates, else the end of the interval.
    [[nodiscard]] std::optional<Date> resultEndDate() const { return resultEndDate_; }
    /// When half of the covered time, cut to whole seconds, has gone: the list should then be built again.
    [[nodiscard]] std::optional<Date> resultRefreshDate() const;

private:
    /// Made on first use.
    std::shared_ptr<const Calendar> systemCalendar();
    [[nodiscard]] LocalNotification makeWithoutDate(const XDIDateInterval& alert) const;

    std::optional<std::string> soundName_;
    std::vector<std::optional<LocalNotification>> withoutDate_;  ///< alert by alert, those asked for
    std::optional<Date> resultStartDate_, resultEndDate_;
    Mutex mutex_;
    std::shared_ptr<const Calendar> systemCalendar_ DAYWARD_GUARDED_BY(mutex_);
};

}  // namespace dayward
