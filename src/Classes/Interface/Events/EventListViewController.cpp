#include "Classes/Interface/Events/EventListViewController.h"

#include <algorithm>
#include <utility>

#include "Classes/Event/EventLocalStore.h"
#include "Classes/Event/HHEvent.h"
#include "Classes/Interface/Edit/EventEditViewController.h"
#include "Classes/Interface/Events/EventDetailViewController.h"
#include "Classes/Interface/Info/EventsSortViewController.h"
#include "Classes/Interface/List/EventSearch.h"
#include "Classes/Interface/Screens/Presenter.h"
#include "Classes/Settings/AppSettings.h"
#include "platform/Calendar.h"
#include "platform/DispatchQueue.h"
#include "platform/Environment.h"
#include "platform/PercentFormat.h"
#include "platform/Strings.h"

namespace dayward {

namespace {

constexpr TimeInterval kReloadDelay{0.1};
/// What is offered is still there when the user takes it in the last moment.
constexpr TimeInterval kNoticeFades{1};

/// A number for the present day, another one for any other day.
std::int64_t presentDay() {
    const Environment& environment = Environment::current();
    const Calendar::Fields fields = environment.calendar()->fields(environment.now());
    return (fields.year * 100 + fields.month) * 100 + fields.day;
}

std::string shownName(const HHEvent& event) {
    const std::string name = event.name().value_or("");
    return name.empty() ? localized("No name") : name;
}

}  // namespace

EventListViewController::EventListViewController(EventScreensServices services) : services_(std::move(services)) {
    setTitle(localized("Events"));
    showBarButtons();
}

// Life

void EventListViewController::viewDidLoad() {
    reloadOperation_ = std::make_unique<CCDelayedOperation>(
        [this, weak = weak_from_this(), &queues = Environment::current().queues()] {
            queues.main().async([this, weak] {
                if (const auto self = weak.lock()) reload();
            });
        });
    reloadOperation_->setDelayedTime(kReloadDelay);
    observeStores();
    configureDataSources();
}

void EventListViewController::viewWillAppear() {
    observeTimer();
    activeTable().refreshVisibleRows();
}

void EventListViewController::viewDidAppear() {
    postDidAppear();
    if (services_.handleFirstLaunch) services_.handleFirstLaunch();
    checkSelection();
}

void EventListViewController::viewWillDisappear(Disappearance) { timer_.end(); }

void EventListViewController::detailPaneDidChange() {
    if (hasDetailPane()) {
        // The screen that lay over the list stands in the pane now.
        if (pushedEventKey_) selectedEventKey_ = std::exchange(pushedEventKey_, std::nullopt);
        checkSelection();
        reportSelection();
    }
    tellListObserver();
}

bool EventListViewController::hasDetailPane() const { return isPresented() && presenter().hasDetailPane(); }

void EventListViewController::tellListObserver() const {
    if (listObserver_ != nullptr) listObserver_->listDidChange();
}

// Bar

void EventListViewController::showBarButtons() {
    if (isEditing_) {
        setBarButtons({{BarButton::Role::done, localized("Done"), [this] { setEditing(false); }}});
        return;
    }
    setBarButtons({{BarButton::Role::info, localized("Settings"), [this] { infoAction(); }},
                   {BarButton::Role::edit, localized("Edit"), [this] { setEditing(true); }},
                   {BarButton::Role::sort, localized("Sort"), [this] { sortAction(); }},
                   {BarButton::Role::add, localized("New event"), [this] { addAction(); }}});
}

void EventListViewController::infoAction() {
    presenter().present(std::make_shared<SettingsViewController>(services_.settings));
}

void EventListViewController::addAction() { presenter().present(std::make_shared<EventEditViewController>()); }

void EventListViewController::presentNewEvent() { addAction(); }

void EventListViewController::sortAction() { presenter().push(*this, EventsSortViewController::forSettings()); }

// Rows

std::vector<EventRow> EventListViewController::shownEvents() const {
    auto events = EventLocalStore::shared().allEvents();
    return isSearching_ ? eventsMatching(searchText_, std::move(events)) : events;
}

void EventListViewController::configureDataSources() {
    activeTable().configure(eventSortType(AppSettings::tableSortType()), shownEvents());
    sortedDay_ = presentDay();
    tellListObserver();
}

void EventListViewController::startReload(Reload kind) {
    wantedReload_ = std::max(wantedReload_, kind);
    if (reloadOperation_) reloadOperation_->start();
}

void EventListViewController::reload() {
    const Reload kind = std::exchange(wantedReload_, Reload::nothing);
    if (kind == Reload::everything) activeTable().setObjects(shownEvents());
    if (kind == Reload::order) activeTable().manager()->sortData();
    activeTable().refreshVisibleRows();
    const std::int64_t day = presentDay();
    if (std::exchange(sortedDay_, day) != day) activeTable().refreshHeaders();
    checkSelection();
    tellListObserver();
}

void EventListViewController::timerAction() {
    activeTable().manager()->configureVisibleCells();
    removed_.forgetOld();
    if (presentDay() != sortedDay_) startReload(Reload::order);
}

void EventListViewController::selectRow(IndexPath path) {
    if (activeTable().hasRow(path)) activeTable().manager()->didSelectRowAtIndexPath(path);
}

void EventListViewController::deleteRow(IndexPath path) {
    if (!activeTable().hasRow(path)) return;
    const EventRow event = activeTable().event(path);
    removed_.keep(*event);
    activeTable().manager()->commitEditingStyle(EventTableManager::EditingStyle::remove, path);
    offerUndo();
}

void EventListViewController::offerUndo() {
    const auto event = removed_.last();
    const TimeInterval shownFor = removed_.timeLeft() - kNoticeFades;
    if (!event || shownFor <= TimeInterval(0) || !isPresented()) return;
    const auto undo = [this, weak = weak_from_this()] {
        if (const auto self = weak.lock()) undoDeletion();
    };
    presenter().showNotice(
        {formatText(localized("Deleted \"%@\""), {shownName(*event)}), localized("Undo"), undo, shownFor});
}

bool EventListViewController::undoDeletion() {
    const auto event = removed_.putBack();
    if (!event) return false;
    if (hasDetailPane()) setSelectedEventKey(event->identifier());
    offerUndo();
    return true;
}

void EventListViewController::didMoveRow(IndexPath from, IndexPath to) { activeTable().didMoveRow(from, to); }

bool EventListViewController::moveRow(IndexPath path, Step step) {
    if (step == Step::up && path.row == 0) return false;
    return activeTable().moveRowTo(path, {path.section, step == Step::up ? path.row - 1 : path.row + 1});
}

void EventListViewController::scrollViewDidEndDragging(bool willDecelerate) {
    activeTable().manager()->scrollViewDidEndDragging(willDecelerate);
    activeTable().refreshVisibleRows();
}

void EventListViewController::clearMissedEvents() {
    activeTable().manager()->clearMissedEvents();
    activeTable().refreshVisibleRows();
}

// Editing and search

void EventListViewController::setEditing(bool editing) {
    if (std::exchange(isEditing_, editing) == editing) return;
    if (editing) endSearch();
    searchBarEnable(!editing);
    showBarButtons();
    tellListObserver();
}

void EventListViewController::searchBarEnable(bool enable) {
    isSearchBarEnabled_ = enable;
    tellListObserver();
}

void EventListViewController::beginSearch() {
    if (!isSearchBarEnabled_ || std::exchange(isSearching_, true)) return;
    configureDataSources();
}

void EventListViewController::setSearchText(std::string text) {
    beginSearch();
    if (!isSearching_ || text == searchText_) return;
    searchText_ = std::move(text);
    searchTable_.setObjects(shownEvents());
    tellListObserver();
}

void EventListViewController::endSearch() {
    if (!std::exchange(isSearching_, false)) return;
    searchText_.clear();
    configureDataSources();
    checkSelection();
}

std::optional<EmptyAdvice> EventListViewController::emptyAdvice() {
    if (!activeTable().isEmpty()) return std::nullopt;
    if (isSearching_ && searchText_.empty()) {
        return EmptyAdvice{localized("Search"), localized("Names and notes are searched.")};
    }
    if (isSearching_) {
        return EmptyAdvice{localized("Not found."),
                           formatText(localized("No name or note has \"%@\" in it."), {searchText_})};
    }
    if (progressText_) return EmptyAdvice{localized("Just a moment"), localized("Your events are being downloaded.")};
    return EmptyAdvice{localized("No events"), localized("Add your first event with the plus.")};
}

// Selection

void EventListViewController::setSelectedEventKey(std::optional<std::string> key) {
    if (key == selectedEventKey_) return;
    selectedEventKey_ = std::move(key);
    reportSelection();
    tellListObserver();
}

void EventListViewController::reportSelection() {
    Dictionary userInfo;
    if (selectedEventKey_) userInfo[EventListEventKey] = *selectedEventKey_;
    Environment::current().notifications().post(EventListSelectEventKeyNotification, this, std::move(userInfo));
}

std::optional<IndexPath> EventListViewController::selectedPath() {
    return selectedEventKey_ && hasDetailPane() ? activeTable().pathOfEvent(*selectedEventKey_) : std::nullopt;
}

void EventListViewController::checkSelection() {
    if (selectedEventKey_ && !EventLocalStore::shared().eventByIdentifier(selectedEventKey_)) {
        setSelectedEventKey(std::nullopt);
    }
    if (!selectedEventKey_ && hasDetailPane() && !activeTable().isEmpty()) {
        setSelectedEventKey(activeTable().event({0, 0})->identifier());
    }
}

void EventListViewController::presentDetailsForEventAtIdentifier(const std::string& identifier) {
    if (!isPresented() || !EventLocalStore::shared().eventByIdentifier(identifier)) return;
    if (hasDetailPane()) return setSelectedEventKey(identifier);
    pushedEventKey_ = identifier;
    const auto screen = detailShowing(identifier);
    if (!screen->isPresented()) presenter().push(*this, screen);
}

std::shared_ptr<EventDetailViewController> EventListViewController::detailShowing(
    const std::optional<std::string>& key) {
    auto screen = detail_.lock();
    // An empty screen may still stand in the pane of a window that was wide, where nobody sees it.
    const bool isInSight = screen && screen->isPresented() && (hasDetailPane() || screen->hasContent());
    if (isInSight) {
        screen->setEventIdentifier(key);
    } else {
        screen = std::make_shared<EventDetailViewController>(key, services_.share);
        detail_ = screen;
    }
    return screen;
}

}  // namespace dayward
