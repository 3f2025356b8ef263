#include "alerts/MissedEventsHelper.h"

#include <algorithm>
#include <iterator>

#include "alerts/EventNotification.h"
#include "platform/Environment.h"
#include "platform/LocalNotifications.h"
#include "platform/NotificationArchive.h"
#include "platform/NotificationCenter.h"
#include "platform/UserDefaults.h"

namespace dayward {

namespace {

bool isSame(const LocalNotification& a, const LocalNotification& b) {
    return a.fireDate == b.fireDate && a.alertBody == b.alertBody && eventIdentifier(a) == eventIdentifier(b);
}

}  // namespace

MissedEventsHelper::MissedEventsHelper(Environment& environment) : environment_(environment) {
    const Lock lock(mutex_);
    load();
}

MissedEventsHelper& MissedEventsHelper::shared() { return Environment::current().shared<MissedEventsHelper>(); }

void MissedEventsHelper::load() {
    identifiers_.clear();
    known_.clear();
    const Object stored = environment_.standardDefaults().objectForKey(kMissedEventsKey);
    if (stored.array() == nullptr) return;
    for (const Object& entry : *stored.array()) {
        if (const std::string* identifier = entry.string()) identifiers_.push_back(*identifier);
    }
    known_.insert(identifiers_.begin(), identifiers_.end());
}

void MissedEventsHelper::store(const std::vector<std::string>& identifiers) {
    UserDefaults& defaults = environment_.standardDefaults();
    defaults.setObject(identifiers.empty() ? Object() : Object(Array(identifiers.begin(), identifiers.end())),
                       kMissedEventsKey);
    (void)defaults.synchronize();  // a failure is logged there, and the change waits for the next one
    load();
}

void MissedEventsHelper::tellIfOther(const std::vector<std::string>& before) {
    if (missedEvents() != before) environment_.notifications().post(kDidUpdateNotification, nullptr);
}

std::vector<std::string> MissedEventsHelper::missedEvents() {
    MissedEventsHelper& self = shared();
    const Lock lock(self.mutex_);
    return self.identifiers_;
}

void MissedEventsHelper::setMissedEvents(const std::vector<std::string>& identifiers) {
    MissedEventsHelper& self = shared();
    const std::vector<std::string> before = missedEvents();
    {
        const Lock lock(self.mutex_);
        self.store(identifiers);
    }
    self.tellIfOther(before);
}

bool MissedEventsHelper::isMissed(const std::string& identifier) {
    MissedEventsHelper& self = shared();
    const Lock lock(self.mutex_);
    return self.known_.contains(identifier);
}

void MissedEventsHelper::reload() {
    MissedEventsHelper& self = shared();
    const std::vector<std::string> before = missedEvents();
    {
        const Lock lock(self.mutex_);
        self.load();
    }
    self.tellIfOther(before);
}

// The last notifications

std::vector<LocalNotification> MissedEventsHelper::readLast() const {
    std::vector<LocalNotification> notifications;
    const Object stored = environment_.standardDefaults().unarchiveObjectForKey(kLastNotificationsKey);
    if (stored.array() == nullptr) return notifications;
    for (const Object& entry : *stored.array()) {
        if (auto notification = notificationOfObject(entry)) notifications.push_back(*std::move(notification));
    }
    return notifications;
}

void MissedEventsHelper::storeLast(const std::vector<LocalNotification>& notifications) {
    UserDefaults& defaults = environment_.standardDefaults();
    if (notifications.empty()) return defaults.removeObjectForKey(kLastNotificationsKey);
    Array objects;
    for (const LocalNotification& notification : notifications) objects.push_back(objectOfNotification(notification));
    defaults.archiveObject(std::move(objects), kLastNotificationsKey);
}

std::vector<LocalNotification> MissedEventsHelper::lastNotifications() { return shared().readLast(); }

void MissedEventsHelper::setLastNotifications(const std::vector<LocalNotification>& notifications) {
    MissedEventsHelper& self = shared();
    const Lock lock(self.mutex_);
    self.storeLast(notifications);
    (void)self.environment_.standardDefaults().synchronize();
}

void MissedEventsHelper::saveState() {
    LocalNotifications* schedule = shared().environment_.localNotifications();
    if (schedule != nullptr) setLastNotifications(schedule->scheduledLocalNotifications());
}

void MissedEventsHelper::saveChanges() {
    MissedEventsHelper& self = shared();
    LocalNotifications* schedule = self.environment_.localNotifications();
    if (schedule == nullptr) return;
    (void)self.environment_.standardDefaults().synchronize();
    const Lock lock(self.mutex_);
    // Read first: what fires meanwhile is kept as scheduled.
    auto scheduled = schedule->scheduledLocalNotifications();
    std::vector<LocalNotification> kept = self.compare().fired;
    std::ranges::move(scheduled, std::back_inserter(kept));
    if (kept == self.readLast()) return;
    self.storeLast(kept);
    (void)self.environment_.standardDefaults().synchronize();
}

// Finding

MissedEventsHelper::Found MissedEventsHelper::compare() const {
    Found found{identifiers_, {}, {}};
    const std::vector<LocalNotification> last = readLast();
    if (last.empty() || environment_.localNotifications() == nullptr) return found;
    const auto scheduled = environment_.localNotifications()->scheduledLocalNotifications();
    const TimeZone here = environment_.timeZone();
    const Date now = environment_.now();
    for (const LocalNotification& notification : last) {
        const auto due = dueDate(notification, here);
        const auto isThis = [&](const LocalNotification& other) { return isSame(notification, other); };
        if (!due || *due > now || std::ranges::any_of(scheduled, isThis)) {
            found.rest.push_back(notification);
            continue;
        }
        found.fired.push_back(notification);
        const auto identifier = eventIdentifier(notification);
        if (identifier && std::ranges::find(found.missed, *identifier) == found.missed.end()) {
            found.missed.push_back(*identifier);
        }
    }
    return found;
}

void MissedEventsHelper::find() {
    MissedEventsHelper& self = shared();
    const std::vector<std::string> before = missedEvents();
    (void)self.environment_.standardDefaults().synchronize();
    {
        const Lock lock(self.mutex_);
        self.load();
        const Found found = self.compare();
        if (!found.fired.empty()) {
            self.storeLast(found.rest);
            self.store(found.missed);
        }
    }
    self.tellIfOther(before);
}

std::vector<std::string> MissedEventsHelper::missedEventsIfFound() {
    MissedEventsHelper& self = shared();
    const Lock lock(self.mutex_);
    self.load();
    return self.compare().missed;
}

}  // namespace dayward
