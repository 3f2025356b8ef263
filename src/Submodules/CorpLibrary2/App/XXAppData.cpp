#include "Submodules/CorpLibrary2/App/XXAppData.h"

#include "Submodules/CorpLibrary2/Foundation/ArchivedFile.h"
#include "platform/Environment.h"
#include "platform/FileSystem.h"
#include "platform/Log.h"

namespace dayward {

XXAppData::XXAppData(Environment& environment)
    : environment_(environment),
      valuesPath_(joinPath(environment.paths().applicationSupport, kValuesFileName)),
      eventsPath_(joinPath(environment.paths().applicationSupport, kEventsFileName)) {
    read();
}

XXAppData& XXAppData::instance() { return Environment::current().shared<XXAppData>(); }

void XXAppData::read() {
    const auto values = readArchivedFile(environment_, valuesPath_);
    const auto* dictionary = values && *values ? (*values)->dictionary() : nullptr;
    const EnvironmentScope scope(&environment_);
    auto events = XXEventHistory::historyWithContentsOfFile(eventsPath_);
    const Lock lock(mutex_);
    values_ = dictionary ? *dictionary : Dictionary();
    events_ = std::move(events);
}

void XXAppData::dataWithContentsOfFile() { instance().read(); }

void XXAppData::values_writeToFile() {
    auto& self = instance();
    const Lock lock(self.mutex_);
    const auto written = writeArchivedFile(self.environment_, self.valuesPath_, self.values_);
    if (written) return;
    logError("XXAppData values writeToFile: " + self.valuesPath_ + ", error: " + written.error().description());
}

void XXAppData::events_writeToFile() {
    auto& self = instance();
    const Lock lock(self.mutex_);
    // A failure is logged by the history.
    static_cast<void>(self.events_.writeToFile(self.eventsPath_));
}

void XXAppData::setValue(Object value, const std::string& forKey) {
    auto& self = instance();
    const Lock lock(self.mutex_);
    if (value.isNull()) {
        self.values_.erase(forKey);
    } else {
        self.values_.insert_or_assign(forKey, std::move(value));
    }
}

Object XXAppData::valueForKey(const std::string& key) {
    auto& self = instance();
    const Lock lock(self.mutex_);
    const auto found = self.values_.find(key);
    return found == self.values_.end() ? Object() : found->second;
}

bool XXAppData::isExistsValueForKey(const std::string& key) { return !valueForKey(key).isNull(); }

void XXAppData::removeAllValues() {
    auto& self = instance();
    const Lock lock(self.mutex_);
    self.values_.clear();
}

void XXAppData::addEvent(const std::string& event) { addEvent(event, Environment::current().now()); }

void XXAppData::addEvent(const std::string& event, Date withDate) {
    auto& self = instance();
    const Lock lock(self.mutex_);
    self.events_.addEvent(event, withDate);
}

std::size_t XXAppData::countEvent(const std::string& event, std::optional<Date> fromDate) {
    auto& self = instance();
    const Lock lock(self.mutex_);
    return self.events_.countEvent(event, fromDate);
}

bool XXAppData::isExistsEvent(const std::string& event) {
    auto& self = instance();
    const Lock lock(self.mutex_);
    return self.events_.isExistsEvent(event);
}

std::optional<Date> XXAppData::dateToFirstEvent(const std::string& event) {
    auto& self = instance();
    const Lock lock(self.mutex_);
    return self.events_.dateToFirstEvent(event);
}

std::optional<Date> XXAppData::dateToLastEvent(const std::string& event) {
    auto& self = instance();
    const Lock lock(self.mutex_);
    return self.events_.dateToLastEvent(event);
}

void XXAppData::removeEvent(const std::string& event) {
    auto& self = instance();
    const Lock lock(self.mutex_);
    self.events_.removeEvent(event);
}

void XXAppData::removeAllEvents() {
    auto& self = instance();
    const Lock lock(self.mutex_);
    self.events_.removeAllEvents();
}

}  // namespace dayward
