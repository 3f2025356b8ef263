#include "agent/Agent.h"

#include <algorithm>
#include <utility>

#include "agent/DeliveryKey.h"
#include "agent/SnoozeTime.h"
#include "platform/Log.h"

namespace dayward {

Agent::Agent(const Deliverer::Parts& parts, ScheduleRefresher& refresher)
    : time_(parts.time),
      display_(parts.display),
      link_(parts.link),
      deliverer_(parts),
      fetch_({parts.time, parts.link, refresher, [this](bool isRebuilt) { didFetch(isRebuilt); }}),
      wokenAt_(parts.time.now()) {
    display_.setListener(this);
}

Agent::~Agent() { display_.setListener(nullptr); }

void Agent::wake() {
    wantsWake_ = false;
    wokenAt_ = time_.now();
    deliverer_.deliver();
    showBadge();
    if (!isNeeded()) return fetch_.rest();
    fetch_.wake(deliverer_.record().fetched, schedule().needsRebuild);
}

bool Agent::isNeeded() const { return schedule() != NotificationSchedule::Content() || deliverer_.record().fetched; }

void Agent::showBadge() {
    if (std::exchange(badge_, schedule().badgeNumber) != schedule().badgeNumber) {
        display_.setBadgeNumber(schedule().badgeNumber);
    }
}

void Agent::didFetch(bool isRebuilt) {
    deliverer_.setFetched(time_.now());
    if (isRebuilt) deliverer_.setRebuilt();
    wantsWake_ = true;
}

// What fell due since the wake began, while the application was asked, was perhaps not seen by it.
std::optional<Date> Agent::nextMoment() const {
    std::optional<Date> least;
    const auto consider = [&](std::optional<Date> moment, Date after) {
        if (moment && *moment > after && (!least || *moment < *least)) least = moment;
    };
    const TimeZone zone = time_.zone();
    for (const auto* list : {&schedule().scheduled, &schedule().snoozed}) {
        for (const LocalNotification& notification : *list) consider(dueDate(notification, zone), wokenAt_);
    }
    if (isNeeded()) consider(fetch_.nextMoment(deliverer_.record().fetched), time_.now());
    return least;
}

std::optional<TimeInterval> Agent::retryAfter() const {
    const auto delivery = deliverer_.retryAfter(), fetch = fetch_.retryAfter();
    return delivery && fetch ? std::min(delivery, fetch) : delivery ? delivery : fetch;
}

Result<> Agent::showNow(const LocalNotification& notification) {
    const DueAlert alert{deliveryKey(notification), notification, time_.now(), false};
    std::erase_if(unscheduled_, [&](const DueAlert& other) { return other.key == alert.key; });
    unscheduled_.push_back(alert);
    if (unscheduled_.size() > kMostUnscheduled) unscheduled_.pop_front();
    if (link_.deliver(notification)) return {};
    return display_.show(alert);
}

void Agent::refresh() {
    fetch_.request();
    wantsWake_ = true;
}

const LocalNotification* Agent::shown(const std::string& key) const {
    if (const Delivery* delivery = deliverer_.record().find(key)) return &delivery->notification;
    const auto found = std::ranges::find(unscheduled_, key, &DueAlert::key);
    return found == unscheduled_.end() ? nullptr : &found->notification;
}

void Agent::didOpen(const std::string& key) {
    const LocalNotification* notification = shown(key);
    if (notification == nullptr) return;
    const auto opened = link_.open(*notification);
    if (!opened) logError("notifications: " + opened.error().description());
}

void Agent::didSnooze(const std::string& key, Snooze snooze) {
    const LocalNotification* notification = shown(key);
    if (notification == nullptr) return;
    deliverer_.snooze(snoozedNotification(*notification, snooze, time_.now(), time_.zone()));
    wantsWake_ = true;
}

void Agent::displayDidAppear() {
    deliverer_.displayDidAppear();
    badge_.reset();
    wantsWake_ = true;
}

}  // namespace dayward
