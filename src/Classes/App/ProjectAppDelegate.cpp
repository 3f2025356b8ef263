#include "Classes/App/ProjectAppDelegate.h"

#include "Classes/App/AppManager.h"
#include "Classes/App/HHAppTimerKeys.h"
#include "Classes/Event/EventLocalStore.h"
#include "Classes/Interface/Screens/Window.h"
#include "Submodules/CorpLibrary2/App/Analytics.h"
#include "Submodules/CorpLibrary2/App/CCApp.h"
#include "Submodules/CorpLibrary2/App/CCAppValues.h"
#include "Submodules/CorpLibrary2/App/ReviewModule.h"
#include "Submodules/CorpLibrary2/App/XXAppData.h"
#include "alerts/EventNotification.h"
#include "platform/DispatchQueue.h"
#include "platform/Environment.h"
#include "platform/FatalError.h"
#include "platform/NotificationCenter.h"
#include "platform/RepeatingTimer.h"
#include "platform/UserDefaults.h"

namespace dayward {

namespace {

constexpr TimeInterval kTimerInterval{1};
constexpr TimeInterval kFetchInterval{86400};
constexpr double kFirstVersionWithFetchInterval = 8.3;
constexpr TimeInterval kReviewDelay{3 * 86400.0};
constexpr std::size_t kFewEvents = 2;
constexpr const char* kVersionOfOldDefaults = "kXXVersionLastStart";

/// The version that a release of before the present history left; the newer place first.
std::optional<std::string> olderVersion() {
    const Object value = XXAppData::valueForKey(CCAppValueKeys::astAppVersion);
    if (const std::string* version = value.string()) return *version;
    return Environment::current().standardDefaults().stringForKey(kVersionOfOldDefaults);
}

/// So that the update modules see an upgrade, and not a new installation.
void adoptOlderVersion() {
    if (!CCApp::isFirstStart() || CCAppValues::containsValueWithKey(CCAppValueKeys::previousAppVersion)) return;
    const auto version = olderVersion();
    if (!version) return;
    Analytics::report("app", "updateOldVersion", {{"previous_version", *version}});
    CCAppValues::setValue(*version, CCAppValueKeys::previousAppVersion);
    CCAppValues::synchronize();
}

}  // namespace

void ProjectAppDelegate::setWindow(Window* window) {
    window_ = window;
    AppManager::setWindow(window);
}

Window& ProjectAppDelegate::window() const {
    if (window_ == nullptr) fatalError("the application has no window");
    return *window_;
}

bool ProjectAppDelegate::didFinishLaunchingWithOptions(Application& application, const LaunchOptions& options) {
    AppManager::setSiblingImport(services_.siblingImport);
    adoptOlderVersion();
    services_.updates->performUpdateIfNeeds([weak = weak_from_this(), &application, options](bool) {
        const auto self = weak.lock();
        if (!self || self->window_ == nullptr) return;  // the program ended meanwhile
        self->configureApplication(application, options);
        self->window().makeKeyAndVisible();
    });
    services_.missedEvents->find();
    services_.cloud->configure();
    return true;
}

void ProjectAppDelegate::configureApplication(Application& application, const LaunchOptions& withLaunchingOptions) {
    const auto& notification = withLaunchingOptions.localNotification;
    if (notification) AppManager::presentEventAtIdentifier(eventIdentifier(*notification));
    const bool hasFetchInterval = application.systemVersion() >= kFirstVersionWithFetchInterval;
    application.setMinimumBackgroundFetchInterval(hasFetchInterval ? kFetchInterval
                                                                   : Application::kBackgroundFetchIntervalMinimum);
    ReviewModule::setHooks({&ProjectAppDelegate::reviewAvailable, &ProjectAppDelegate::canShowReviewRequest});
    startTimer(application);
}

void ProjectAppDelegate::startTimer(Application& application) {
    repeatEvery(kTimerInterval, Environment::current().queues().main(), [weak = weak_from_this(), &application] {
        const auto self = weak.lock();
        if (self) self->appTimerAction(application);
        return self != nullptr;
    });
}

void ProjectAppDelegate::appTimerAction(Application& application) {
    if (application.applicationState() != ApplicationState::active) return;
    Environment::current().notifications().post(HHAppTimerKeys::everySecound, this);
}

void ProjectAppDelegate::applicationWillEnterForeground(Application&) { services_.missedEvents->find(); }

void ProjectAppDelegate::didReceiveLocalNotification(Application& application, const LocalNotification& notification) {
    if (application.applicationState() == ApplicationState::inactive) {
        AppManager::presentEventAtIdentifier(eventIdentifier(notification));
    } else {
        services_.notifications->showNotification(notification);
    }
    application.cancelLocalNotification(notification);
}

bool ProjectAppDelegate::openURL(Application&, const std::string& url) {
    return Analytics::handleOpenURL(url) || AppManager::handleOpenURL(url);
}

bool ProjectAppDelegate::reviewAvailable() { return ReviewModule::isOn(); }

bool ProjectAppDelegate::canShowReviewRequest() {
    return ReviewModule::isOn() && Environment::current().now() - CCApp::releaseDate() >= kReviewDelay &&
           EventLocalStore::shared().itemsCount() > kFewEvents;
}

}  // namespace dayward
