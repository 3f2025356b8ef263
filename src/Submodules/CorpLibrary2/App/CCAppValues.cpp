#include "Submodules/CorpLibrary2/App/CCAppValues.h"

#include "Submodules/CorpLibrary2/Foundation/ArchivedFile.h"
#include "platform/Environment.h"
#include "platform/FileSystem.h"
#include "platform/Log.h"

namespace dayward {

namespace {

const Dictionary* dictionaryIn(const std::optional<Object>& root) { return root ? root->dictionary() : nullptr; }

Dictionary load(Environment& environment, const std::string& path) {
    const auto root = readArchivedFile(environment, path);
    if (!root) environment.log().error("CCAppValues read: " + path + ", error: " + root.error().description());
    const auto* dictionary = root ? dictionaryIn(*root) : nullptr;
    return dictionary ? *dictionary : Dictionary();
}

}  // namespace

CCAppValues::CCAppValues(Environment& environment)
    : environment_(environment),
      path_(joinPath(environment.paths().library, "CCAppValues.dat")),
      values_(load(environment, path_)) {}

CCAppValues& CCAppValues::shared() { return Environment::current().shared<CCAppValues>(); }

void CCAppValues::initialize() { shared(); }

void CCAppValues::setValue(Object value, const std::string& forKey) {
    auto& self = shared();
    const Lock lock(self.mutex_);
    self.values_.setValue(std::move(value), forKey);
}

Object CCAppValues::valueForKey(const std::string& key) {
    auto& self = shared();
    const Lock lock(self.mutex_);
    return self.values_.valueForKey(key);
}

bool CCAppValues::containsValueWithKey(const std::string& key) { return !valueForKey(key).isNull(); }

void CCAppValues::removeAllValues() {
    auto& self = shared();
    const Lock lock(self.mutex_);
    self.values_.removeAll();
}

void CCAppValues::synchronize() {
    auto& self = shared();
    const Lock lock(self.mutex_);
    auto changes = self.values_.takeChanges();
    const auto merge = [&changes, values = &self.values_](const auto& present) -> Object {
        const auto* dictionary = dictionaryIn(present);
        return dictionary ? changes.appliedTo(*dictionary) : values->values();
    };
    const auto written = updateArchivedFile(self.environment_, self.path_, merge);
    if (written) {
        self.values_.adopt(*written->dictionary());
        return;
    }
    self.values_.restoreChanges(std::move(changes));
    self.environment_.log().error("CCAppValues writeToFile: " + self.path_ +
                                  ", error: " + written.error().description());
}

}  // namespace dayward
