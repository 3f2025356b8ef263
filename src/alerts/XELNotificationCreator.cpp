#include "alerts/XELNotificationCreator.h"

#include <cmath>
#include <utility>

#include "platform/Environment.h"
#include "platform/Strings.h"
#include "recurrence/XELEventMath.h"
#include "resources/XELAudioManager.h"

namespace dayward {

namespace {

constexpr const char* kDefaultName = "Default";

/// The occurrences of the window, else the first one beyond it.
std::vector<Date> datesFrom(const XELEventMath& math, Date from, Date to, std::size_t count) {
    std::vector<Date> dates = math.datesFromDate(from, to, count);
    if (!dates.empty()) return dates;
    if (const auto later = math.dateAfterDate(from)) dates.push_back(*later);
    return dates;
}

/// When an alert fires for its occurrences.
class FireDates {
public:
    FireDates(const XDIDateInterval& alert, std::shared_ptr<const Calendar> calendar)
        : isSet_(alert.isSet()), back_(alert.dateComponentsWithMultiplier(-1.0)), calendar_(std::move(calendar)) {}

    [[nodiscard]] std::optional<Date> of(Date occurrence) const {
        return isSet_ ? calendar_->dateByAddingComponents(back_, occurrence) : occurrence;
    }

private:
    const bool isSet_;
    const DateComponents back_;
    const std::shared_ptr<const Calendar> calendar_;
};

}  // namespace

void XELNotificationCreator::setSoundName(const std::optional<std::string>& name) {
    if (!name) {
        soundName_.reset();
    } else if (*name == XELAudioManager::kDefaultSoundName || *name == kDefaultName) {
        soundName_ = XELAudioManager::kDefaultSoundName;
    } else {
        soundName_ = name->substr(name->rfind('/') + 1);
    }
}

std::shared_ptr<const Calendar> XELNotificationCreator::systemCalendar() {
    const Lock lock(mutex_);
    if (!systemCalendar_) systemCalendar_ = Environment::current().calendar();
    return systemCalendar_;
}

std::optional<Date> XELNotificationCreator::fireDate(Date date, const XDIDateInterval& interval) {
    return FireDates(interval, systemCalendar()).of(date);
}

std::vector<LocalNotification> XELNotificationCreator::getNotifications() {
    std::vector<LocalNotification> notifications;
    for (const Firing& firing : getFirings()) notifications.push_back(notification(firing));
    return notifications;
}

std::vector<XELNotificationCreator::Firing> XELNotificationCreator::getFirings() {
    const Date now = Environment::current().now();
    resultStartDate_ = now;
    resultEndDate_.reset();
    withoutDate_.assign(alerts.size(), std::nullopt);
    std::vector<Firing> firings;
    const XELEventMath math(rrule, startDateDay, startDateTimes);
    const std::size_t count =
        alerts.empty() ? 0 : maxNotificationsCount / alerts.size() + (maxNotificationsCount % alerts.size() != 0);
    for (std::size_t number = 0; number < alerts.size(); ++number) {
        const XDIDateInterval& alert = alerts[number];
        const auto from = systemCalendar()->dateByAddingComponents(alert.dateComponents(), now);
        if (!from) continue;
        const std::vector<Date> dates = datesFrom(math, *from, *from + maxTimeInterval, count);
        const FireDates fireDates(alert, systemCalendar());
        for (const Date date : dates) {
            const auto fires = fireDates.of(date);
            if (!fires || *fires < now || (latestFireDate && *fires > *latestFireDate)) continue;
            firings.push_back({*fires, number});
        }
        if (!dates.empty() && (!resultEndDate_ || dates.back() < *resultEndDate_)) resultEndDate_ = dates.back();
    }
    if (!resultEndDate_) resultEndDate_ = now + maxTimeInterval;
    return firings;
}

LocalNotification XELNotificationCreator::notification(const Firing& firing) {
    LocalNotification notification = notificationWithoutDate(firing.alert);
    notification.fireDate = firing.fireDate;
    return notification;
}

const LocalNotification& XELNotificationCreator::notificationWithoutDate(std::size_t alert) {
    auto& made = withoutDate_[alert];
    if (!made) made = makeWithoutDate(alerts[alert]);
    return *made;
}

LocalNotification XELNotificationCreator::makeWithoutDate(const XDIDateInterval& alert) const {
    LocalNotification notification;
    notification.timeZone = Environment::current().timeZone().name();
    notification.alertAction = localized("Show");
    if (alertBodyBlock) notification.alertBody = alertBodyBlock(alert);
    notification.soundName = soundName_;
    return notification;
}

std::optional<Date> XELNotificationCreator::resultRefreshDate() const {
    if (!resultStartDate_ || !resultEndDate_) return std::nullopt;
    const double covered = std::trunc((*resultEndDate_ - *resultStartDate_).seconds());
    return *resultStartDate_ + TimeInterval(covered / 2);
}

}  // namespace dayward
