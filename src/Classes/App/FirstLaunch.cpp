#include "Classes/App/FirstLaunch.h"

#include "Classes/App/EventFactory.h"
#include "Classes/Event/EventLocalStore.h"
#include "Submodules/CorpLibrary2/App/CCAppHistory.h"
#include "platform/Environment.h"
#include "platform/FileSystem.h"

namespace dayward {

namespace {

constexpr const char* kAppId = "19";
constexpr const char* kStoreIdentifier = "";

bool isInstalled() { return CCAppHistory::containsEvent(CCAppHistoryKeys::install); }

Result<> addDefaultEvents() {
    EventLocalStore& store = EventLocalStore::shared();
    const auto events = EventFactory::getDefaultEvents();
    store.updateEvents(events);
    const Result<> written = store.flush();
    if (written) return {};
    store.removeEvents(events);
    (void)store.flush();  // what could not be written cannot be removed either
    return written;
}

}  // namespace

Result<> performFirstLaunchIfNeeded(Environment& environment, const CCApp::Information& information) {
    CCApp::setInformation(information);
    if (isInstalled()) return {};
    const auto lock = TRY(environment.files().lock(joinPath(environment.paths().state, "first-launch.lock"), true));
    CCAppHistory::synchronize();  // another process may have been first while this one waited
    if (isInstalled()) return {};
    TRY_VOID(addDefaultEvents());
    CCApp::initializeAppWithAppId(kAppId, kStoreIdentifier);
    return {};
}

}  // namespace dayward
