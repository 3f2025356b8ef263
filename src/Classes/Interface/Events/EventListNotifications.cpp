// What the list hears.
#include "Classes/App/HHAppTimerKeys.h"
#include "Classes/Category/CategoryLocalStore.h"
#include "Classes/Event/EventLocalStore.h"
#include "Classes/Event/HHEvent.h"
#include "Classes/Interface/Edit/EventEditViewController.h"
#include "Classes/Interface/Events/EventListViewController.h"
#include "Classes/Interface/General/FailedSaveText.h"
#include "Classes/Interface/List/EventSearch.h"
#include "Classes/Interface/Screens/Presenter.h"
#include "Classes/Settings/AppSettings.h"
#include "alerts/MissedEventsHelper.h"
#include "platform/Application.h"
#include "platform/Environment.h"
#include "platform/FailedSave.h"
#include "sync/CCUbiquityKeyStoreProgressInfo.h"

namespace dayward {

namespace {

/// More changes than this at a time are shown by one reload instead of a message each.
constexpr std::size_t kMostMessages = 50;

std::vector<EventRow> eventsIn(const Notification& notification, const char* list) {
    std::vector<EventRow> events;
    const auto found = notification.userInfo.find(list);
    if (found == notification.userInfo.end() || found->second.array() == nullptr) return events;
    for (const Object& entry : *found->second.array()) {
        if (auto event = entry.as<HHEvent>()) events.push_back(std::move(event));
    }
    return events;
}

}  // namespace

void EventListViewController::observeStores() {
    const auto observe = [this](const char* name, void (EventListViewController::*handle)(const Notification&)) {
        observer_.observe(name, [this, handle](const Notification& notification) { (this->*handle)(notification); });
    };
    using Self = EventListViewController;
    observe(EventLocalStoreDidUpdateNotification, &Self::eventStoreDidUpdate);
    observe(DidFailToSaveNotification, &Self::didFailToSave);
    observe(HHAppTimerKeys::everySecound, &Self::followClock);
    observe(CategoryLocalStoreDidUpdateNotification, &Self::categoryStoreDidUpdate);
    observe(CCUbiquityKeyStoreStartDownloadingNotification, &Self::ubiquityStoreStartDownloading);
    observe(CCUbiquityKeyStoreProgressDownloadingNotification, &Self::ubiquityStoreProgressDownloading);
    observe(CCUbiquityKeyStoreFinishDownloadingNotification, &Self::ubiquityStoreFinishDownloading);
    observe(EventTableManagerDidSelectItemNotification, &Self::eventTableManagerDidSelectItem);
    observe(EventEditDidCreateItemNotification, &Self::eventEditDidCreateItem);
    observe(AppSettings::kTableSortDidUpdateNotification, &Self::settingsTableSortDidUpdate);
    observe(Application::kWillEnterForegroundNotification, &Self::applicationWillEnterForeground);
    observer_.observe(MissedEventsHelper::kDidUpdateNotification,
                      [this](const Notification&) { startReload(Reload::order); });
}

// A change that is in sight and not on the disk would be gone after the next start.
void EventListViewController::didFailToSave(const Notification& notification) {
    constexpr TimeInterval kShownFor{10};
    if (isPresented()) presenter().showNotice({.text = failedSaveText(notification), .shownFor = kShownFor});
}

// What events keep of their dates is right for every later moment, not for those before a clock that was set back.
void EventListViewController::followClock(const Notification&) {
    constexpr TimeInterval kSetBack{1};
    const Date now = Environment::current().now();
    if (std::exchange(latestTick_, now) - now < kSetBack) return;
    for (const EventRow& event : EventLocalStore::shared().allEvents()) event->moduleEventDateRefresh();
    startReload(Reload::order);
}

void EventListViewController::observeTimer() {
    timer_.observe(HHAppTimerKeys::everySecound, [this](const Notification&) { timerAction(); });
}

// The store speaks of records; the keys' present events count.
void EventListViewController::eventStoreDidUpdate(const Notification& notification) {
    const auto updated = eventsIn(notification, EventLocalStoreUpdatedKey);
    const auto removed = eventsIn(notification, EventLocalStoreRemovedKey);
    const bool areMany = updated.size() + removed.size() > kMostMessages;
    for (const EventRow& row : updated) {
        const EventRow event = EventLocalStore::shared().eventByIdentifier(row->identifier());
        if (!event) continue;
        if (!areMany) updateRow(event);
        if (services_.updateNotifications) services_.updateNotifications(event->identifier());
    }
    for (const EventRow& event : removed) {
        if (!areMany) activeTable().manager()->removeObject(event);
        if (services_.removeNotifications) services_.removeNotifications(event->identifier());
    }
    if (areMany || !updated.empty()) startReload(areMany ? Reload::everything : Reload::order);
    if (!areMany) checkSelection();
    tellListObserver();
}

// A row that is there stays, whatever it says now; a new one comes into a search only where it fits.
void EventListViewController::updateRow(const EventRow& event) {
    EventTableManager& manager = *activeTable().manager();
    if (isSearching_ && !manager.indexPathForObject(event) && eventsMatching(searchText_, {event}).empty()) return;
    manager.updateObject(event);
}

void EventListViewController::categoryStoreDidUpdate(const Notification&) { startReload(Reload::nothing); }

void EventListViewController::applicationWillEnterForeground(const Notification&) { startReload(Reload::order); }

void EventListViewController::settingsTableSortDidUpdate(const Notification&) {
    beginCustomOrder();
    configureDataSources();
}

// Without an order of the user's own the rows would come as the store has them.
void EventListViewController::beginCustomOrder() {
    const bool isCustom = eventSortType(AppSettings::tableSortType()) == EventSortType::byCustom;
    if (!isCustom || table_.manager() == nullptr || !AppSettings::tableSortIdentifiers().empty()) return;
    std::vector<std::string> keys;
    for (const EventRow& event : table_.manager()->objects()) keys.push_back(event->identifier());
    AppSettings::setTableSortIdentifiers(keys);
}

void EventListViewController::eventTableManagerDidSelectItem(const Notification& notification) {
    if (notification.object != activeTable().manager()) return;
    const auto event = notification.userInfo.at(EventTableManagerItemKey).as<HHEvent>();
    presentDetailsForEventAtIdentifier(event->identifier());
}

void EventListViewController::eventEditDidCreateItem(const Notification& notification) {
    presentDetailsForEventAtIdentifier(*notification.userInfo.at(EventEditItemKey).string());
}

// Progress of a cloud store's first download. What was here before is counted with what comes, so that
// the numbers are those of the whole list.

void EventListViewController::ubiquityStoreStartDownloading(const Notification& notification) {
    if (progressText_ || downloaded_.contains(notification.object)) return;
    downloadingStore_ = notification.object;
    itemsBeforeDownload_ = static_cast<std::int64_t>(EventLocalStore::shared().itemsCount());
    showProgress(notification);
}

void EventListViewController::ubiquityStoreProgressDownloading(const Notification& notification) {
    if (!progressText_) return ubiquityStoreStartDownloading(notification);
    if (notification.object == downloadingStore_) showProgress(notification);
}

void EventListViewController::showProgress(const Notification& notification) {
    const auto found = notification.userInfo.find(CCUbiquityKeyStoreProgressInfoKey);
    if (found == notification.userInfo.end()) return;
    const auto info = found->second.as<CCUbiquityKeyStoreProgressInfo>();
    if (!info) return;
    progressText_ = std::to_string(itemsBeforeDownload_ + info->downloadedCount) + " / " +
                    std::to_string(itemsBeforeDownload_ + info->itemsCount);
    tellListObserver();
}

void EventListViewController::ubiquityStoreFinishDownloading(const Notification& notification) {
    downloaded_.insert(notification.object);
    if (notification.object != downloadingStore_) return;
    progressText_.reset();
    tellListObserver();
}

}  // namespace dayward
