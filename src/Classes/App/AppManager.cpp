#include "Classes/App/AppManager.h"

#include <algorithm>
#include <utility>

#include "Classes/App/AppInfo.h"
#include "Classes/App/EventFactory.h"
#include "Classes/Event/EventLocalStore.h"
#include "Classes/Event/HHEvent.h"
#include "Classes/Import/SiblingImportService.h"
#include "Classes/Interface/Screens/EventListPresenting.h"
#include "Classes/Interface/Screens/Navigation.h"
#include "Classes/Interface/Screens/Window.h"
#include "Submodules/CorpLibrary2/App/CCAppHistory.h"
#include "Submodules/CorpLibrary2/App/CCAppValues.h"
#include "platform/Application.h"
#include "platform/DispatchQueue.h"
#include "platform/FatalError.h"
#include "platform/FileSystem.h"
#include "platform/Log.h"
#include "platform/Strings.h"

namespace dayward {

namespace {

/// A value of the application's that stands from before the install is recorded until the first events are on the
/// disk, so that a start in between, whatever ended it, leaves them to the next one.
constexpr const char* kFirstLaunchIsOpen = "__firstLaunchIsOpen";

bool isOpen() { return CCAppValues::containsValueWithKey(kFirstLaunchIsOpen); }

void setOpen(bool open) {
    if (open == isOpen()) return;
    CCAppValues::setValue(open ? Object(true) : Object(), kFirstLaunchIsOpen);
    CCAppValues::synchronize();
}

bool holdsEvents() {
    const Environment& environment = Environment::current();
    const auto names = environment.files().listDirectory(environment.paths().documents);
    return names && std::ranges::any_of(*names, [](const auto& name) {
        return pathExtension(name) == EventLocalStore::kFileExtension;
    });
}

bool isFirstLaunch() { return isOpen() || (CCApp::isFirstStart() && !holdsEvents()); }

/// A default event that an interrupted first launch has brought to the disk bears its name.
bool isThere(const HHEvent& event) {
    return event.name() && EventLocalStore::shared().eventByName(*event.name()) != nullptr;
}

bool isInstalled() { return CCAppHistory::containsEvent(CCAppHistoryKeys::install); }

/// On a new home, lets no other process come first while the result lives, and takes in whether one
/// already was. Null where the home is not new.
Result<std::unique_ptr<FileLock>> keepOthersOut() {
    if (isInstalled()) return nullptr;
    const Environment& environment = Environment::current();
    auto lock = TRY(environment.files().lock(joinPath(environment.paths().state, "first-launch.lock"), true));
    CCAppHistory::synchronize();
    return lock;
}

}  // namespace

AppManager::AppManager(Environment& environment) : siblingImport_(std::make_shared<NoSiblingImport>()) {
    NotificationCenter& center = environment.notifications();
    observations_.push_back(center.addObserver(EventListDidAppearNotification, &AppManager::eventListDidAppear));
    observations_.push_back(center.addObserver(Application::kDidEnterBackgroundNotification,
                                               [this](const Notification&) { wasAway_ = listHasAppeared_; }));
    observations_.push_back(center.addObserver(Application::kDidBecomeActiveNotification,
                                               [this](const Notification&) { didReturn(); }));
}

AppManager& AppManager::shared() { return Environment::current().shared<AppManager>(); }

void AppManager::setWindow(Window* window) { shared().window_ = window; }

void AppManager::setSiblingImport(std::shared_ptr<SiblingImportService> service) {
    shared().siblingImport_ = std::move(service);
}

void AppManager::initializeApp() {
    const auto lock = keepOthersOut();
    if (!lock) logError("the first launch cannot keep others out: " + lock.error().description());
    if (!isInstalled() && !holdsEvents()) setOpen(true);
    CCApp::initializeAppWithAppId(AppInfo::appId, AppInfo::storeIdentifier);
}

Result<> AppManager::performFirstLaunch() {
    const auto lock = TRY(keepOthersOut());
    if (isInstalled()) return {};
    if (!holdsEvents()) TRY_VOID(shared().addDefaultEventsToDisk());
    CCApp::initializeAppWithAppId(AppInfo::appId, AppInfo::storeIdentifier);
    return {};
}

Result<> AppManager::addDefaultEventsToDisk() {
    EventLocalStore& store = EventLocalStore::shared();
    const auto events = addDefaultEvents();
    const Result<> written = store.flush();
    if (written) return {};
    store.removeEvents(events);
    (void)store.flush();  // what could not be written cannot be removed either
    return written;
}

std::vector<std::shared_ptr<HHEvent>> AppManager::addDefaultEvents() {
    if (std::exchange(defaultEventsAdded_, true)) return {};
    auto events = EventFactory::getDefaultEvents();
    std::erase_if(events, [](const auto& event) { return isThere(*event); });
    EventLocalStore::shared().updateEvents(events);
    return events;
}

void AppManager::addDefaultEventsAndFinish() {
    if (defaultEventsAdded_) return;
    addDefaultEvents();
    Environment::current().queues().global().async([] {
        if (EventLocalStore::shared().flush()) setOpen(false);
    });
}

void AppManager::handleFirstLaunch() {
    if (!isFirstLaunch()) return;
    AppManager& self = shared();
    if (self.importOffer_ == ImportOffer::notMade && self.window_ != nullptr &&
        self.siblingImport_->canImportFromFreeVersion()) {
        self.offerImport();
    } else if (self.importOffer_ != ImportOffer::made) {
        self.addDefaultEventsAndFinish();
    }
}

void AppManager::offerImport() {
    importOffer_ = ImportOffer::made;
    const auto decline = [] {
        shared().importOffer_ = ImportOffer::declined;
        handleFirstLaunch();
    };
    window_->navigation().alert(
        {localized("Import events from free version?"),
         {},
         {{localized("Yes"), AlertButton::Role::normal,
           [] {
               shared().siblingImport_->performImportFromFreeVersion();
               setOpen(false);
           }},
          {localized("No"), AlertButton::Role::cancel, decline}}});
}

// The sibling edition may have been installed, or the first list seen, before the program was left.
void AppManager::didReturn() {
    if (std::exchange(wasAway_, false)) handleFirstLaunch();
}

void AppManager::presentEventAtIdentifier(const std::optional<std::string>& identifier) {
    if (!identifier) return;
    if (EventListPresenting* list = getListViewController()) {
        list->presentDetailsForEventAtIdentifier(*identifier);
    } else {
        shared().pendingEventIdentifier_ = identifier;
    }
}

void AppManager::presentNewEvent() {
    EventListPresenting* list = getListViewController();
    if (list == nullptr)
        shared().isNewEventPending_ = true;
    else if (shared().window_->navigation().modalStacks().empty())
        list->presentNewEvent();
}

EventListPresenting* AppManager::getListViewController() {
    const Window* window = shared().window_;
    if (window == nullptr) return nullptr;
    const auto& screens = window->navigation().screens(StackId::root);
    return screens.empty() ? nullptr : dynamic_cast<EventListPresenting*>(screens.front().get());
}

bool AppManager::handleOpenURL(const std::string& url) { return shared().siblingImport_->handleOpenURL(url); }

void AppManager::eventListDidAppear(const Notification& notification) {
    EventListPresenting* list = EventListPresenting::listOf(notification);
    if (list == nullptr) fatalError("a list appeared, and does not say which");
    AppManager& self = shared();
    self.listHasAppeared_ = true;
    const auto identifier = std::exchange(self.pendingEventIdentifier_, std::nullopt);
    if (identifier) list->presentDetailsForEventAtIdentifier(*identifier);
    if (std::exchange(self.isNewEventPending_, false)) list->presentNewEvent();
}

}  // namespace dayward
