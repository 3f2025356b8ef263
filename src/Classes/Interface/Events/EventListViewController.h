// The event list: the root screen. Feeds its two tables, of all events and of those that a search found,
// from the store, in the user's order; keeps them current; opens the detail, the editor and the settings.
//
// A view draws activeTable(), the search bar, the title (progressText() takes its place), emptyAdvice()
// where the table is empty, and marks selectedPath() beside a detail pane. Main thread only; notifications
// from other threads are taken up on the main queue.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "Classes/Interface/Events/RemovedEvents.h"
#include "Classes/Interface/Info/SettingsViewController.h"
#include "Classes/Interface/List/EventListTable.h"
#include "Classes/Interface/Screens/EventListPresenting.h"
#include "Classes/Interface/Screens/ScreenObserver.h"
#include "Classes/Interface/Screens/ViewController.h"
#include "Submodules/CorpLibrary2/Foundation/CCDelayedOperation.h"

namespace dayward {

class EventDetailViewController;
class ShareServices;

/// Posted when the selection is another; user info "eventKey": the selected key, absent for none.
inline constexpr const char* EventListSelectEventKeyNotification = "EventListSelectEventKeyNotification";
inline constexpr const char* EventListEventKey = "eventKey";

/// What other parts of the program do for the screens of events; all of it may be empty.
struct EventScreensServices {
    SettingsViewController::Services settings = {};
    /// The alerts of an event are to be planned anew, or to go.
    std::function<void(const std::string& eventKey)> updateNotifications = {};
    std::function<void(const std::string& eventKey)> removeNotifications = {};
    /// After the list has appeared.
    std::function<void()> handleFirstLaunch = {};
    ShareServices* share = nullptr;  ///< not owned; without it there is no sharing
};

/// What an empty list says.
struct EmptyAdvice {
    std::string title;
    std::string text;
    bool operator==(const EmptyAdvice&) const = default;
};

/// Who draws the screen is told when something besides the rows and the bar is another: search, editing,
/// selection, progress or advice.
class EventListObserver {
public:
    virtual ~EventListObserver() = default;
    virtual void listDidChange() = 0;
};

class EventListViewController final : public ViewController, public EventListPresenting {
public:
    enum class Step { up, down };

    explicit EventListViewController(EventScreensServices services = {});

    /// Not owned; null for none.
    void setListObserver(EventListObserver* observer) { listObserver_ = observer; }

    /// All events; it rests while a search is on.
    [[nodiscard]] EventListTable& table() { return table_; }
    [[nodiscard]] EventListTable& searchTable() { return searchTable_; }
    [[nodiscard]] EventListTable& activeTable() { return isSearching_ ? searchTable_ : table_; }

    // Rows. A path without a row changes nothing.

    void selectRow(IndexPath path);
    /// Removes the event at once and for good, and offers to put it back.
    void deleteRow(IndexPath path);
    /// Puts back what was removed last, while that is offered, and offers what was removed before it.
    /// False where there is nothing.
    bool undoDeletion();
    /// Whether undoDeletion() would do something.
    [[nodiscard]] bool canUndoDeletion() const { return removed_.canPutBack(); }
    /// The view has moved the row.
    void didMoveRow(IndexPath from, IndexPath to);
    /// Moves the row by one place, in the view as well. False where it cannot move.
    bool moveRow(IndexPath path, Step step);
    /// The user let go of the list, and it goes on moving or not.
    void scrollViewDidEndDragging(bool willDecelerate);
    void clearMissedEvents();

    // Editing

    [[nodiscard]] bool isEditing() const { return isEditing_; }
    /// Editing ends a search and disables the search bar.
    void setEditing(bool editing);

    // Search

    [[nodiscard]] bool isSearchBarEnabled() const { return isSearchBarEnabled_; }
    void searchBarEnable(bool enable);
    [[nodiscard]] bool isSearching() const { return isSearching_; }
    [[nodiscard]] const std::string& searchText() const { return searchText_; }
    /// Nothing while the search bar is disabled.
    void beginSearch();
    /// Begins the search where none is on.
    void setSearchText(std::string text);
    void endSearch();

    // What is shown besides the rows

    /// The event shown in the detail pane.
    [[nodiscard]] const std::optional<std::string>& selectedEventKey() const { return selectedEventKey_; }
    /// Reports a change by EventListSelectEventKeyNotification.
    void setSelectedEventKey(std::optional<std::string> key);
    /// The row to mark; nothing without a detail pane.
    [[nodiscard]] std::optional<IndexPath> selectedPath();
    /// "12 / 40" while the cloud's events come for the first time.
    [[nodiscard]] const std::optional<std::string>& progressText() const { return progressText_; }
    /// Nothing where the active table has rows.
    [[nodiscard]] std::optional<EmptyAdvice> emptyAdvice();

    /// Shows the event in the detail pane, or on a screen of its own. An unknown key changes nothing.
    void presentDetailsForEventAtIdentifier(const std::string& identifier) override;
    void presentNewEvent() override;
    /// The window's detail screen made to show that event: the one that is there, else a new one that
    /// stands in no stack yet.
    [[nodiscard]] std::shared_ptr<EventDetailViewController> detailShowing(const std::optional<std::string>& key);

    // Bar actions
    void infoAction();
    void addAction();
    void sortAction();

    /// Reads order and events anew into the active table.
    void configureDataSources();
    /// Once a second while the screen is in sight: the visible rows tell the present moment.
    void timerAction();

    void viewDidLoad() override;
    void viewWillAppear() override;
    void viewDidAppear() override;
    void viewWillDisappear(Disappearance why) override;
    void detailPaneDidChange() override;

private:
    enum class Reload { nothing, order, everything };

    void observeStores();
    void observeTimer();
    void showBarButtons();
    void tellListObserver() const;
    void offerUndo();

    void applicationWillEnterForeground(const Notification& notification);
    void eventTableManagerDidSelectItem(const Notification& notification);
    void categoryStoreDidUpdate(const Notification& notification);
    void eventStoreDidUpdate(const Notification& notification);
    void didFailToSave(const Notification& notification);
    void followClock(const Notification& notification);
    void ubiquityStoreStartDownloading(const Notification& notification);
    void ubiquityStoreProgressDownloading(const Notification& notification);
    void ubiquityStoreFinishDownloading(const Notification& notification);
    void eventEditDidCreateItem(const Notification& notification);
    void settingsTableSortDidUpdate(const Notification& notification);
    /// The first order made by hand is the one in sight.
    void beginCustomOrder();

    [[nodiscard]] bool hasDetailPane() const;
    [[nodiscard]] std::vector<EventRow> shownEvents() const;
    void updateRow(const EventRow& event);
    void checkSelection();
    void reportSelection();
    /// Sorts the rows in a moment, or reads all anew; many calls are one.
    void startReload(Reload kind);
    void reload();
    void showProgress(const Notification& notification);

    const EventScreensServices services_;
    EventListObserver* listObserver_ = nullptr;
    EventListTable table_{EventTableManager::Contents::all};
    EventListTable searchTable_{EventTableManager::Contents::found};
    RemovedEvents removed_;
    std::weak_ptr<EventDetailViewController> detail_;
    std::optional<std::string> selectedEventKey_;
    std::optional<std::string> pushedEventKey_;  ///< shown last where there was no detail pane
    bool isEditing_ = false;
    bool isSearchBarEnabled_ = true;
    bool isSearching_ = false;
    std::string searchText_;
    std::optional<std::string> progressText_;
    const void* downloadingStore_ = nullptr;
    std::int64_t itemsBeforeDownload_ = 0;
    std::set<const void*> downloaded_;  ///< the cloud stores whose first download is over
    std::int64_t sortedDay_ = 0;
    Date latestTick_;
    Reload wantedReload_ = Reload::nothing;
    std::unique_ptr<CCDelayedOperation> reloadOperation_;
    ScreenObserver observer_;
    ScreenObserver timer_;
};

}  // namespace dayward
