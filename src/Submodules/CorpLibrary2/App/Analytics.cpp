#include "Submodules/CorpLibrary2/App/Analytics.h"

#include "platform/Environment.h"

namespace dayward {

Analytics& Analytics::shared() { return Environment::current().shared<Analytics>(); }

void Analytics::setReporter(std::shared_ptr<AnalyticsReporter> reporter) {
    auto& analytics = shared();
    const Lock lock(analytics.mutex_);
    analytics.reporter_ = std::move(reporter);
}

void Analytics::report(const std::string& category, const std::string& action, const Dictionary& parameters) {
    auto& analytics = shared();
    std::shared_ptr<AnalyticsReporter> reporter;
    {
        const Lock lock(analytics.mutex_);
        reporter = analytics.reporter_;
    }
    if (reporter) reporter->report(category, action, parameters);
}

}  // namespace dayward
