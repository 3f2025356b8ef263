#include "alerts/MissedEventsHelper.h"

#include "platform/Environment.h"
#include "platform/UserDefaults.h"

namespace dayward {

MissedEventsHelper::MissedEventsHelper(Environment& environment) : environment_(environment) {
    const Lock lock(mutex_);
    load();
}

MissedEventsHelper& MissedEventsHelper::shared() { return Environment::current().shared<MissedEventsHelper>(); }

void MissedEventsHelper::load() {
    identifiers_.clear();
    known_.clear();
    const Object stored = environment_.standardDefaults().objectForKey(kMissedEventsKey);
    if (stored.array() == nullptr) return;
    for (const Object& entry : *stored.array()) {
        if (const std::string* identifier = entry.string()) identifiers_.push_back(*identifier);
    }
    known_.insert(identifiers_.begin(), identifiers_.end());
}

std::vector<std::string> MissedEventsHelper::missedEvents() {
    MissedEventsHelper& self = shared();
    const Lock lock(self.mutex_);
    return self.identifiers_;
}

void MissedEventsHelper::setMissedEvents(const std::vector<std::string>& identifiers) {
    MissedEventsHelper& self = shared();
    const Lock lock(self.mutex_);
    UserDefaults& defaults = self.environment_.standardDefaults();
    defaults.setObject(identifiers.empty() ? Object() : Object(Array(identifiers.begin(), identifiers.end())),
                       kMissedEventsKey);
    (void)defaults.synchronize();  // a failure is logged there, and the change waits for the next one
    self.load();
}

bool MissedEventsHelper::isMissed(const std::string& identifier) {
    MissedEventsHelper& self = shared();
    const Lock lock(self.mutex_);
    return self.known_.contains(identifier);
}

void MissedEventsHelper::reload() {
    MissedEventsHelper& self = shared();
    const Lock lock(self.mutex_);
    self.load();
}

}  // namespace dayward
