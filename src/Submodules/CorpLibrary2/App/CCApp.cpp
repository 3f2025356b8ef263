#include "Submodules/CorpLibrary2/App/CCApp.h"

#include "Submodules/CorpLibrary2/App/Analytics.h"
#include "Submodules/CorpLibrary2/App/CCAppHistory.h"
#include "Submodules/CorpLibrary2/App/CCAppValues.h"
#include "platform/Application.h"
#include "platform/Environment.h"

namespace dayward {

namespace {

/// A change is recorded; the very first version is not one.
void recordVersion(const std::string& version) {
    const Object last = CCAppValues::valueForKey(CCAppValueKeys::astAppVersion);
    const auto* lastVersion = last.string();
    if (lastVersion && *lastVersion == version) return;
    CCAppValues::setValue(version, CCAppValueKeys::astAppVersion);
    if (!lastVersion) return;
    CCAppValues::setValue(*lastVersion, CCAppValueKeys::previousAppVersion);
    CCAppHistory::addEvent(CCAppHistoryKeys::update);
}

}  // namespace

/// Writes history and values at the two moments after which the process may be ended.
class CCApp::AppDelegateHelper {
public:
    explicit AppDelegateHelper(NotificationCenter& center)
        : finishLaunching_(center.addObserver(Application::kDidFinishLaunchingNotification,
                                              [](const Notification&) { applicationDidFinishLaunching(); })),
          enterBackground_(center.addObserver(Application::kDidEnterBackgroundNotification,
                                              [](const Notification&) { applicationDidEnterBackground(); })) {}

    static void applicationDidFinishLaunching() { synchronize(); }
    static void applicationDidEnterBackground() { synchronize(); }

private:
    NotificationCenter::Observation finishLaunching_;
    NotificationCenter::Observation enterBackground_;
};

CCApp::CCApp(Environment& environment) : environment_(environment) {}

CCApp::~CCApp() = default;

CCApp& CCApp::shared() { return Environment::current().shared<CCApp>(); }

void CCApp::setInformation(Information information) { shared().information_ = std::move(information); }

void CCApp::initializeAppWithAppId(const std::string& appId, const std::string& appleId) {
    auto& self = shared();
    self.appId_ = appId;
    self.appleId_ = appleId;
    if (!CCAppHistory::containsEvent(CCAppHistoryKeys::install)) CCAppHistory::addEvent(CCAppHistoryKeys::install);
    if (self.information_.shortVersion) recordVersion(*self.information_.shortVersion);
    CCAppHistory::addEvent(CCAppHistoryKeys::start);
    synchronize();
    Analytics::report("app", "launch", {{"version", self.information_.shortVersion}});
    if (!self.helper_) self.helper_ = std::make_unique<AppDelegateHelper>(self.environment_.notifications());
}

std::string CCApp::appId() { return shared().appId_; }

std::string CCApp::appleId() { return shared().appleId_; }

std::string CCApp::companyId() { return shared().companyId_; }

void CCApp::setCompanyId(const std::string& identifier) { shared().companyId_ = identifier; }

std::string CCApp::feedbackMail() { return shared().feedbackMail_; }

void CCApp::setFeedbackMail(const std::string& address) { shared().feedbackMail_ = address; }

std::string CCApp::marketName() { return shared().marketName_; }

void CCApp::setMarketName(const std::string& name) { shared().marketName_ = name; }

void CCApp::setStoreAddress(const std::string& address) { shared().storeAddress_ = address; }

std::optional<std::string> CCApp::bundleIdentifier() { return shared().information_.bundleIdentifier; }

std::optional<std::string> CCApp::displayName() { return shared().information_.displayName; }

std::optional<std::string> CCApp::shortVersion() { return shared().information_.shortVersion; }

std::optional<std::string> CCApp::bundleVersion() { return shared().information_.bundleVersion; }

Date CCApp::installDate() {
    return CCAppHistory::dateToLastEvent(CCAppHistoryKeys::install, 0).value_or(Environment::current().now());
}

Date CCApp::releaseDate() {
    const auto update = CCAppHistory::dateToLastEvent(CCAppHistoryKeys::update, 0);
    return update ? *update : installDate();
}

bool CCApp::isFirstStart() { return startCount() == 1; }

std::size_t CCApp::startCount() {
    return CCAppHistory::countEvent(CCAppHistoryKeys::start, std::nullopt, Environment::current().now());
}

std::size_t CCApp::releaseStartCount() {
    return CCAppHistory::countEvent(CCAppHistoryKeys::start, releaseDate(), Environment::current().now());
}

std::string CCApp::shareLink() {
    const auto& self = shared();
    return self.storeAddress_ + "/app/id" + self.appleId_ + "?ct=share&mt=8";
}

void CCApp::synchronize() {
    CCAppHistory::synchronize();
    CCAppValues::synchronize();
}

}  // namespace dayward
