// What concerns the whole program and no screen: the beginning on a new home, an event to be opened as
// soon as there is a list, URLs from outside. Class operations act on the current environment; main
// thread, and for a program without a window its one thread.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/NotificationCenter.h"
#include "platform/Result.h"

namespace dayward {

class Environment;
class EventListPresenting;
class HHEvent;
class SiblingImportService;
class Window;

class AppManager {
public:
    /// The window in which the list is found and questions are asked; null for none. Not owned.
    static void setWindow(Window* window);
    static void setSiblingImport(std::shared_ptr<SiblingImportService> service);

    /// The start of a program with a window: CCApp's initialization. On a new home other processes wait
    /// meanwhile, so that one of them is the first.
    static void initializeApp();
    /// The first launch of a program without a window, which asks nothing. Does nothing on a home where
    /// an install is recorded. Otherwise, with other processes kept out, adds the default events, waits
    /// until they are on the disk, and records the install and the first start. Where they cannot be
    /// written nothing is recorded and nothing stays in the store, so that the next launch tries again.
    static Result<> performFirstLaunch();
    /// For each appearance of the list. On the first start, offers the sibling edition's events once;
    /// adds the default events, once, where there is none or the offer was declined. A start after one that ended
    /// before they were on the disk does the same, and adds those that are missing. A home that held events already
    /// gets none: only its history was lost.
    static void handleFirstLaunch();

    /// Shows the event in the list. Without a list, keeps it until one appears, in place of an earlier one.
    static void presentEventAtIdentifier(const std::optional<std::string>& identifier);
    /// Opens the editor of a new event from the list; without a list, as soon as one appears. Does nothing
    /// over a modal stack, which holds what is not committed yet.
    static void presentNewEvent();
    /// Null where the window does not show one yet.
    static EventListPresenting* getListViewController();
    /// Whether somebody took the URL.
    static bool handleOpenURL(const std::string& url);
    /// Observes EventListDidAppearNotification. A notification without the list stops the process.
    static void eventListDidAppear(const Notification& notification);

    explicit AppManager(Environment& environment);

private:
    enum class ImportOffer { notMade, made, declined };

    static AppManager& shared();
    void offerImport();
    /// The added ones; none where this process did it before.
    std::vector<std::shared_ptr<HHEvent>> addDefaultEvents();
    void addDefaultEventsAndFinish();
    Result<> addDefaultEventsToDisk();
    void didReturn();

    Window* window_ = nullptr;
    std::shared_ptr<SiblingImportService> siblingImport_;
    std::optional<std::string> pendingEventIdentifier_;
    bool isNewEventPending_ = false;
    ImportOffer importOffer_ = ImportOffer::notMade;
    bool defaultEventsAdded_ = false;
    bool wasAway_ = false;  ///< in the background, with a list that had appeared
    bool listHasAppeared_ = false;
    std::vector<NotificationCenter::Observation> observations_;
};

}  // namespace dayward
