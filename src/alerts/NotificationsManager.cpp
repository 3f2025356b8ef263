#include "alerts/NotificationsManager.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <set>
#include <type_traits>
#include <utility>

#include "Classes/Event/EventLocalStore.h"
#include "Classes/Event/HHEvent.h"
#include "alerts/AppBadge.h"
#include "alerts/EventNotification.h"
#include "alerts/MissedEventsHelper.h"
#include "alerts/NearestNotifications.h"
#include "alerts/NotificationDifference.h"
#include "alerts/NotificationPresenter.h"
#include "platform/DispatchQueue.h"
#include "platform/Environment.h"
#include "platform/LocalNotifications.h"
#include "resources/XELAudioManager.h"

namespace dayward {

namespace {

using Notifications = std::vector<LocalNotification>;

constexpr auto kAllTypes = static_cast<UserNotificationTypes>(static_cast<unsigned>(UserNotificationTypes::badge) |
                                                              static_cast<unsigned>(UserNotificationTypes::sound) |
                                                              static_cast<unsigned>(UserNotificationTypes::alert));

/// The events' notifications and those that set the badge.
Notifications nearest(const AppBadge::Events& events, std::size_t count) {
    return nearestNotifications(events, AppBadge::silentNotifications(events, Environment::current().now()), count);
}

/// Due, of an event that is still there: the device has yet to show it.
bool isBeingShown(const LocalNotification& notification, const Environment& environment) {
    const auto due = dueDate(notification, environment.timeZone());
    return due && *due <= environment.now() &&
           EventLocalStore::shared().eventByIdentifier(eventIdentifier(notification)) != nullptr;
}

bool isAhead(const LocalNotification& notification) {
    const Environment& environment = Environment::current();
    const auto due = dueDate(notification, environment.timeZone());
    return due && *due > environment.now();
}

/// Takes what is being shown out of the schedule.
Notifications takeShown(Notifications& scheduled) {
    const Environment& environment = Environment::current();
    const auto shown = std::ranges::stable_partition(
        scheduled, [&](const LocalNotification& notification) { return !isBeingShown(notification, environment); });
    Notifications result(std::make_move_iterator(shown.begin()), std::make_move_iterator(shown.end()));
    scheduled.erase(shown.begin(), shown.end());
    return result;
}

/// What is being shown and what the user put off take places as well.
std::size_t roomBeside(const Notifications& shown, LocalNotifications& device) {
    const std::size_t taken = shown.size() + device.snoozedLocalNotifications().size();
    return LocalNotifications::kMaximumCount - std::min(taken, LocalNotifications::kMaximumCount);
}

/// Asks nothing of the device where nothing differs.
Result<> apply(LocalNotifications& device, const Notifications& scheduled, const Notifications& wanted) {
    NotificationDifference difference = notificationDifference(scheduled, wanted);
    // What fell due while the list was made is not in it, and has yet to be shown.
    std::erase_if(difference.cancelled,
                  [](const LocalNotification& one) { return isBeingShown(one, Environment::current()); });
    return difference.isEmpty() ? Result<>() : device.change(difference.cancelled, difference.scheduled);
}

/// What the targets ask for: the last one of an event counts.
struct Batch {
    std::set<std::string> owners;  ///< whose notifications go
    AppBadge::Events updated;      ///< whose are built anew
};

// The events as they stand now: they may have changed again or gone since the targets were made.
Batch batchOf(const std::vector<NotificationTarget>& targets) {
    std::map<std::string, bool> isUpdated;
    for (const NotificationTarget& target : targets) {
        std::visit(
            [&](const auto& kind) {
                isUpdated[kind.event->identifier()] = std::is_same_v<decltype(kind), const UpdateTarget&>;
            },
            target);
    }
    Batch batch;
    for (const auto& [identifier, update] : isUpdated) {
        batch.owners.insert(identifier);
        const auto event = update ? EventLocalStore::shared().eventByIdentifier(identifier) : nullptr;
        if (event) batch.updated.push_back(event);
    }
    return batch;
}

/// The schedule as it is after the batch.
Notifications carriedOut(const Batch& batch, Notifications scheduled, std::size_t count) {
    std::erase_if(scheduled, [&](const LocalNotification& notification) {
        const auto owner = eventIdentifier(notification);
        return owner && batch.owners.contains(*owner);
    });
    return nearestNotifications(batch.updated, std::move(scheduled), count);
}

}  // namespace

NotificationsManager::NotificationsManager(Environment& environment)
    : environment_(environment), batch_([this] { performBatch(); }) {
    // So that the store outlives its observer.
    (void)EventLocalStore::shared();
    batch_.setDelayedTime(kDelay);
}

NotificationsManager::~NotificationsManager() = default;

NotificationsManager& NotificationsManager::shared() { return Environment::current().shared<NotificationsManager>(); }

void NotificationsManager::followStore() { shared().follow(); }

void NotificationsManager::follow() {
    const Lock lock(mutex_);
    if (!observations_.empty()) return;
    observations_.push_back(environment_.notifications().addObserver(
        EventLocalStoreDidUpdateNotification, [this](const Notification& update) { take(update); },
        &EventLocalStore::shared()));
    observations_.push_back(environment_.notifications().addObserver(
        MissedEventsHelper::kDidUpdateNotification, [this](const Notification&) { showMissedCount(); }));
}

void NotificationsManager::showMissedCount() {
    const EnvironmentScope scope(&environment_);
    if (AppBadge::type() == BadgeType::missedEvents) AppBadge::showCurrentNumber({}, environment_.now());
}

void NotificationsManager::take(const Notification& update) {
    const EnvironmentScope scope(&environment_);
    const auto eachOf = [&](const char* key, void (*handle)(const std::shared_ptr<HHEvent>&)) {
        const auto found = update.userInfo.find(key);
        const Array* events = found == update.userInfo.end() ? nullptr : found->second.array();
        if (events == nullptr) return;
        for (const Object& event : *events) handle(event.as<HHEvent>());
    };
    eachOf(EventLocalStoreUpdatedKey, &NotificationsManager::updateForEvent);
    eachOf(EventLocalStoreRemovedKey, &NotificationsManager::removeForEvent);
}

void NotificationsManager::registerIfNeeds() { shared().registerOnce(); }

void NotificationsManager::registerOnce() {
    LocalNotifications* device = environment_.localNotifications();
    if (device == nullptr || EventLocalStore::shared().itemsCount() == 0) return;
    {
        const Lock lock(mutex_);
        if (std::exchange(isRegistered_, true)) return;
    }
    device->registerUserNotificationSettings(kAllTypes);
}

void NotificationsManager::updateForEvent(const std::shared_ptr<HHEvent>& event) {
    registerIfNeeds();
    shared().add(UpdateTarget{event});
}

void NotificationsManager::removeForEvent(const std::shared_ptr<HHEvent>& event) { shared().add(RemoveTarget{event}); }

void NotificationsManager::add(NotificationTarget target) {
    {
        const Lock lock(mutex_);
        targets_.push_back(std::move(target));
    }
    batch_.start();
}

Result<> NotificationsManager::flush() {
    NotificationsManager& self = shared();
    self.batch_.stop();
    self.performBatch();
    const Lock changing(self.changeMutex_);
    return std::exchange(self.batched_, {});
}

void NotificationsManager::performBatch() {
    const EnvironmentScope scope(&environment_);
    const Lock changing(changeMutex_);
    std::vector<NotificationTarget> targets;
    {
        const Lock lock(mutex_);
        targets.swap(targets_);
    }
    LocalNotifications* device = environment_.localNotifications();
    if (device == nullptr || targets.empty()) return;
    const Batch batch = batchOf(targets);
    moveSnoozed(*device, batch.owners);
    Notifications scheduled = device->scheduledLocalNotifications();
    const Notifications shown = takeShown(scheduled);
    const Result<> applied = apply(*device, scheduled, carriedOut(batch, scheduled, roomBeside(shown, *device)));
    if (!applied) batched_ = applied;
}

void NotificationsManager::moveSnoozed(LocalNotifications& device, const std::set<std::string>& owners) {
    Notifications removed, restored;
    const auto isThere = [](const std::string& owner) {
        return EventLocalStore::shared().eventByIdentifier(owner) != nullptr;
    };
    for (const LocalNotification& notification : device.snoozedLocalNotifications()) {
        const auto owner = eventIdentifier(notification);
        if (!owner || !owners.contains(*owner) || isThere(*owner)) continue;
        removed.push_back(notification);
        snoozedOfRemoved_[*owner].push_back(notification);
    }
    for (const std::string& owner : owners) {
        if (!isThere(owner)) continue;
        const auto kept = snoozedOfRemoved_.extract(owner);
        if (kept) std::ranges::copy_if(kept.mapped(), std::back_inserter(restored), isAhead);
    }
    if (!removed.empty() || !restored.empty()) (void)device.changeSnoozed(removed, restored);
}

void NotificationsManager::refresh() {
    Environment::current().queues().global().async([] { (void)syncRefresh(); });
}

Result<> NotificationsManager::syncRefresh() {
    registerIfNeeds();
    return shared().performRefresh();
}

Result<> NotificationsManager::performRefresh() {
    LocalNotifications* device = environment_.localNotifications();
    if (device == nullptr) return {};
    const Lock changing(changeMutex_);
    Notifications scheduled = device->scheduledLocalNotifications();
    const Notifications shown = takeShown(scheduled);
    const AppBadge::Events events = EventLocalStore::shared().allEvents();
    const Result<> applied = apply(*device, scheduled, nearest(events, roomBeside(shown, *device)));
    AppBadge::showCurrentNumber(events, environment_.now());
    if (applied) ++refreshCount_;
    return applied;
}

std::uint64_t NotificationsManager::refreshCount() { return shared().refreshCount_; }

std::vector<LocalNotification> NotificationsManager::wantedNotifications() {
    return nearest(EventLocalStore::shared().allEvents(), LocalNotifications::kMaximumCount);
}

void NotificationsManager::setPresenter(const std::shared_ptr<NotificationPresenter>& presenter) {
    NotificationsManager& self = shared();
    const Lock lock(self.mutex_);
    self.presenter_ = presenter;
}

void NotificationsManager::showNotification(const LocalNotification& notification) {
    Environment::current().queues().main().async([notification] { shared().show(notification); });
}

void NotificationsManager::show(const LocalNotification& notification) {
    std::shared_ptr<NotificationPresenter> presenter;
    {
        const Lock lock(mutex_);
        presenter = presenter_.lock();
    }
    if (!presenter) return;
    if (notification.soundName) XELAudioManager::sharedManager().playSound(notification.soundName);
    presenter->showNotificationAlert(notification.alertBody.value_or(""), eventIdentifier(notification));
}

}  // namespace dayward
