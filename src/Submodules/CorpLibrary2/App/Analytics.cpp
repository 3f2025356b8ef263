#include "Submodules/CorpLibrary2/App/Analytics.h"

#include "Submodules/CorpLibrary2/App/CCAppHistory.h"
#include "platform/Environment.h"

namespace dayward {

Analytics& Analytics::shared() { return Environment::current().shared<Analytics>(); }

std::shared_ptr<AnalyticsReporter> Analytics::reporter() {
    const Lock lock(mutex_);
    return reporter_;
}

void Analytics::setReporter(std::shared_ptr<AnalyticsReporter> reporter) {
    auto& analytics = shared();
    const Lock lock(analytics.mutex_);
    analytics.reporter_ = std::move(reporter);
}

void Analytics::report(const std::string& category, const std::string& action, const Dictionary& parameters) {
    if (const auto reporter = shared().reporter()) reporter->report(category, action, parameters);
}

void Analytics::start(const std::string& containerIdentifier) {
    auto& analytics = shared();
    const auto reporter = analytics.reporter();
    if (!reporter) return;
    reporter->startTagContainer(containerIdentifier);
    reporter->startCrashReporting([environment = &analytics.environment_](Date crash) {
        const EnvironmentScope scope(environment);
        CCAppHistory::addEvent(CCAppHistoryKeys::crash, std::nullopt, crash);
        CCAppHistory::synchronize();
    });
}

bool Analytics::handleOpenURL(const std::string& url) {
    const auto reporter = shared().reporter();
    return reporter && reporter->handleOpenURL(url);
}

}  // namespace dayward
