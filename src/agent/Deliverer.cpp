#include "agent/Deliverer.h"

#include <algorithm>

#include "agent/DeliveryKey.h"
#include "platform/Log.h"

namespace dayward {

namespace {

constexpr TimeInterval kShowAgain{5}, kShowAgainAtLatest{600};
constexpr TimeInterval kLookAgain{10}, kLookAgainAtLatest{600};

void erase(std::vector<LocalNotification>& list, const std::vector<LocalNotification>& gone) {
    std::erase_if(list, [&](const auto& one) { return std::ranges::find(gone, one) != gone.end(); });
}

}  // namespace

/// One transaction: what it found and what became of it.
struct Deliverer::Claim {
    Result<> result;  ///< of the record's file
    DeliveryRecord::Content record;
    Schedule schedule;
};

Deliverer::Deliverer(Parts parts)
    : parts_(std::move(parts)),
      writeAgain_(kWriteAgain, 1, kWriteAgain),
      displayAgain_(kShowAgain, 2, kShowAgainAtLatest),
      lookAgain_(kLookAgain, 2, kLookAgainAtLatest) {}

bool Deliverer::isDue(const LocalNotification& notification) const {
    const auto due = dueDate(notification, parts_.time.zone());
    return due && *due <= parts_.time.now();
}

/// In the order in which they fire.
std::vector<LocalNotification> Deliverer::dueOf(const Schedule& schedule) const {
    std::vector<LocalNotification> due;
    for (const auto* list : {&schedule.snoozed, &schedule.scheduled}) {
        std::ranges::copy_if(*list, std::back_inserter(due), [&](const auto& one) { return isDue(one); });
    }
    const TimeZone zone = parts_.time.zone();
    std::ranges::stable_sort(due, {}, [&](const auto& one) { return *dueDate(one, zone); });
    return due;
}

bool Deliverer::isOrphan(const Delivery& delivery) const {
    return !delivery.isShown() && delivery.claimant != parts_.claimant && !parts_.isAlive(delivery.claimant);
}

void Deliverer::deliver() {
    isRead_ = read();
    if (!isRead_) return;
    const TimeInterval elapsed = parts_.time.elapsed();
    // Marking what was shown is a change as well, in which more may be found to show.
    do {
        if (hasToWrite() && writeAgain_.mayTry(elapsed)) write();
        withdrawCancelled();
        if (displayAgain_.mayTry(elapsed)) show();
    } while (hasToWrite() && writeAgain_.mayTry(elapsed));
    if (!hasToWrite()) writeAgain_.succeed();
    watchOthers();
}

/// Without the lock: only what is found under it counts.
bool Deliverer::read() {
    auto schedule = parts_.schedule.read();
    auto record = parts_.record.read();
    if (!schedule || !record) {
        const Error& error = schedule ? record.error() : schedule.error();
        if (writeAgain_.failures() == 0) logError("notifications: " + error.description());
        fail();
        return false;
    }
    schedule_ = *std::move(schedule);
    record_ = *std::move(record);
    unwritten_.applyTo(schedule_);
    unwritten_.applyTo(record_, parts_.claimant);
    return true;
}

/// The last try before what is due is shown without its claim puts aside what cannot be read.
void Deliverer::fail() {
    writeAgain_.fail(parts_.time.elapsed());
    if (writeAgain_.failures() + 1 < kTriesToWrite) return;
    parts_.schedule.takeUnreadForDamaged();
    parts_.record.takeUnreadForDamaged();
}

bool Deliverer::hasToWrite() const {
    return !unwritten_.isEmpty() || !dueOf(schedule_).empty() ||
           std::ranges::any_of(record_.recent, [&](const Delivery& one) { return isOrphan(one); });
}

/// What is due moves from the schedule to the record. The schedule stays as it is where the record cannot be written.
Deliverer::Claim Deliverer::claim(Schedule& schedule) {
    const auto before = parts_.record.read();
    if (!before) return {std::unexpected(before.error()), {}, {}};
    Claim claim{{}, *before, schedule};
    unwritten_.applyTo(claim.schedule);
    unwritten_.applyTo(claim.record, parts_.claimant);
    const std::vector<LocalNotification> due = dueOf(claim.schedule);
    for (const LocalNotification& notification : due) {
        if (notification.alertBody) claim.record.claim(notification, parts_.claimant);
        claim.schedule.badgeNumber = notification.applicationIconBadgeNumber.value_or(claim.schedule.badgeNumber);
    }
    for (Delivery& delivery : claim.record.recent) {
        if (isOrphan(delivery)) delivery.claimant = parts_.claimant;
    }
    if (claim.record != *before) claim.result = parts_.record.write(claim.record);
    if (!claim.result) return claim;
    erase(claim.schedule.scheduled, due);
    erase(claim.schedule.snoozed, due);
    schedule = claim.schedule;
    return claim;
}

void Deliverer::write() {
    Claim claimed{failure("notifications"), {}, {}};
    const auto changed = parts_.schedule.change([&](Schedule& schedule) { claimed = claim(schedule); });
    if (!changed) {
        if (writeAgain_.failures() == 0) logError("notifications: " + changed.error().description());
    } else if (!claimed.result) {
        if (writeAgain_.failures() == 0) logError("notifications: " + claimed.result.error().description());
    }
    take(claimed, changed.has_value());
}

void Deliverer::take(const Claim& claim, bool isWhole) {
    if (!claim.result || !isWhole) {
        fail();
    } else {
        writeAgain_.succeed();
        unwritten_ = {};
    }
    if (claim.result) {
        if (claim.record != record_) displayAgain_.hurry();
        schedule_ = claim.schedule;
        record_ = claim.record;
    } else if (writeAgain_.failures() >= kTriesToWrite) {
        claimInMemory();
    }
}

/// The disk takes nothing: an alert that is never shown is worse than one that might be shown again after a crash.
void Deliverer::claimInMemory() {
    for (const LocalNotification& notification : dueOf(schedule_)) {
        if (!notification.alertBody || record_.knows(deliveryKey(notification))) continue;
        unwritten_.claimed.push_back(notification);
        record_.claim(notification, parts_.claimant);
    }
}

/// Without a fire date it means all with the same user info.
std::vector<std::string> Deliverer::keysOf(const LocalNotification& cancelled) const {
    const std::string key = deliveryKey(cancelled);
    std::vector<std::string> keys;
    for (const Delivery& delivery : record_.recent) {
        const bool isMeant =
            cancelled.fireDate ? delivery.key == key : delivery.notification.userInfo == cancelled.userInfo;
        if (isMeant) keys.push_back(delivery.key);
    }
    return keys;
}

void Deliverer::withdrawCancelled() {
    for (const LocalNotification& cancelled : schedule_.withdrawn) {
        for (const std::string& key : keysOf(cancelled)) {
            parts_.display.withdraw(key);
            unwritten_.shown.push_back(key);
            record_.markShown(key);
        }
        unwritten_.withdrawn.push_back(cancelled);
    }
    schedule_.withdrawn.clear();
}

std::vector<DueAlert> Deliverer::pending() const {
    const TimeZone zone = parts_.time.zone();
    const Date now = parts_.time.now();
    std::vector<DueAlert> alerts;
    for (const Delivery& delivery : record_.recent) {
        if (delivery.claimant != parts_.claimant) continue;
        const Date due = dueDate(delivery.notification, zone).value_or(now);
        alerts.push_back({delivery.key, delivery.notification, due, now - due > kLateAfter});
    }
    std::ranges::stable_sort(alerts, {}, &DueAlert::due);
    return alerts;
}

void Deliverer::show() {
    std::vector<DueAlert> alerts = pending();
    const auto firstLate = std::ranges::stable_partition(alerts, [](const DueAlert& alert) { return !alert.isLate; });
    std::vector<DueAlert> late(firstLate.begin(), firstLate.end());
    alerts.erase(firstLate.begin(), firstLate.end());
    Result<> shown;
    if (late.size() < kFewestOfDigest) {
        alerts.insert(alerts.begin(), late.begin(), late.end());
    } else {
        shown = showDigest(late);
    }
    if (shown) shown = showEach(alerts);
    if (shown) return displayAgain_.succeed();
    if (displayAgain_.failures() == 0) logError("notifications: " + shown.error().description());
    displayAgain_.fail(parts_.time.elapsed());
}

Result<> Deliverer::showDigest(const std::vector<DueAlert>& alerts) {
    if (!parts_.link.deliverDigest(alerts)) TRY_VOID(parts_.display.showDigest(alerts));
    noteShown(alerts);
    return {};
}

/// In their order: where one cannot be shown, those behind it wait. Each is marked before the next is shown, so that a
/// kill brings one of them again and not all.
Result<> Deliverer::showEach(const std::vector<DueAlert>& alerts) {
    for (const DueAlert& alert : alerts) {
        if (!parts_.link.deliver(alert.notification)) TRY_VOID(parts_.display.show(alert));
        noteShown({alert});
        if (writeAgain_.mayTry(parts_.time.elapsed())) write();
    }
    return {};
}

void Deliverer::noteShown(const std::vector<DueAlert>& alerts) {
    for (const DueAlert& alert : alerts) {
        unwritten_.shown.push_back(alert.key);
        record_.markShown(alert.key);
    }
}

/// Nobody tells that another agent has died before it showed what it had claimed.
void Deliverer::watchOthers() {
    const bool hasOthers = std::ranges::any_of(record_.recent, [&](const Delivery& delivery) {
        return !delivery.isShown() && delivery.claimant != parts_.claimant;
    });
    const TimeInterval elapsed = parts_.time.elapsed();
    if (!hasOthers) {
        lookAgain_.succeed();
    } else if (lookAgain_.mayTry(elapsed)) {
        lookAgain_.fail(elapsed);
    }
}

std::optional<TimeInterval> Deliverer::retryAfter() const {
    const TimeInterval elapsed = parts_.time.elapsed();
    // Whatever else waits cannot be done before.
    if (!isRead_) return writeAgain_.remaining(elapsed);
    std::optional<TimeInterval> least;
    for (const Backoff* again : {&writeAgain_, &displayAgain_, &lookAgain_}) {
        const auto remaining = again->remaining(elapsed);
        if (remaining && (!least || *remaining < *least)) least = remaining;
    }
    return least;
}

}  // namespace dayward
