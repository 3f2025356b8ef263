#include "Classes/App/AppDelegate.h"

#include "Classes/App/AppInfo.h"
#include "Classes/App/AppManager.h"
#include "Classes/Category/CategoryLocalStore.h"
#include "Classes/Event/EventLocalStore.h"
#include "Classes/Interface/Screens/Window.h"
#include "Classes/Settings/AppSettings.h"
#include "Submodules/CorpLibrary2/App/Analytics.h"

namespace dayward {

// History and values come before everything that asks CCApp, the root screen before the updates, which may
// put something over it, and notifications and timer after the data is up to date.
bool AppDelegate::didFinishLaunchingWithOptions(Application& application, const LaunchOptions& options) {
    AppManager::initializeApp();
    Analytics::start(AppInfo::tagContainerIdentifier);
    window().setBackgroundColor(Color::white());
    window().setRootViewController(makeRootScreen_());
    services().lock->showAuthorizeIfNeeds();
    return ProjectAppDelegate::didFinishLaunchingWithOptions(application, options);
}

void AppDelegate::applicationDidBecomeActive(Application& application) {
    ProjectAppDelegate::applicationDidBecomeActive(application);
    window().setCover(std::nullopt);
}

void AppDelegate::applicationDidEnterBackground(Application& application) {
    ProjectAppDelegate::applicationDidEnterBackground(application);
    EventLocalStore::shared().retryFailedWrites();
    CategoryLocalStore::shared().retryFailedWrites();
    AppSettings::retryFailedWrites();
    if (services().lock->useSecrecy()) window().setCover(securityView_);
    services().widget->exportEvents();
}

void AppDelegate::performFetchWithCompletionHandler(Application& application, FetchCompletion completionHandler) {
    ProjectAppDelegate::performFetchWithCompletionHandler(
        application, [widget = services().widget, complete = std::move(completionHandler)](BackgroundFetchResult result) {
            if (result == BackgroundFetchResult::newData) widget->exportEvents();
            complete(result);
        });
}

void AppDelegate::applicationWillEnterForeground(Application& application) {
    ProjectAppDelegate::applicationWillEnterForeground(application);
    services().lock->showAuthorizeIfNeeds();
}

}  // namespace dayward
