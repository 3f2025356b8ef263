#include "Submodules/CorpLibrary2/Foundation/XXCacheKeyStorage.h"

#include "platform/Environment.h"
#include "platform/FatalError.h"

namespace dayward {

namespace {

constexpr const char* kObjectKey = "object";
constexpr const char* kEndDateKey = "endDate";

Object valueIn(const Object& entry, const char* key) {
    const auto* dictionary = entry.dictionary();
    if (!dictionary) return nullptr;
    const auto found = dictionary->find(key);
    return found == dictionary->end() ? Object() : found->second;
}

Object entryOf(Object object, Date endDate) {
    Dictionary entry{{kEndDateKey, endDate}};
    if (!object.isNull()) entry.insert_or_assign(kObjectKey, std::move(object));
    return entry;
}

}  // namespace

TimeInterval XXCacheKeyStorage::defaultLifeTime() const {
    const Lock lock(mutex_);
    return defaultLifeTime_;
}

void XXCacheKeyStorage::setDefaultLifeTime(TimeInterval lifeTime) {
    const Lock lock(mutex_);
    defaultLifeTime_ = lifeTime;
}

void XXCacheKeyStorage::setObject(Object object, const std::string& forKey) {
    const Lock lock(mutex_);
    setObject(std::move(object), forKey, defaultLifeTime_);
}

void XXCacheKeyStorage::setObject(Object object, const std::string& forKey, TimeInterval lifeTimeSecond) {
    setObject(std::move(object), forKey, environment_.now() + lifeTimeSecond);
}

void XXCacheKeyStorage::setObject(Object object, const std::string& forKey, Date endDate) {
    const Lock lock(mutex_);
    removeOldValues();
    XXKeyStorage::setObject(entryOf(std::move(object), endDate), forKey);
}

void XXCacheKeyStorage::setValue(Object value, const std::string& forKey) { setObject(std::move(value), forKey); }

void XXCacheKeyStorage::setDictionary(Dictionary dictionary) {
    const Lock lock(mutex_);
    // One sweep and one write for all the pairs, however many there are.
    removeOldValues();
    const Date endDate = environment_.now() + defaultLifeTime_;
    for (auto& [key, object] : dictionary) loadedStorage().setValue(entryOf(object, endDate), key);
    performAutoSynchronize();
}

Object XXCacheKeyStorage::rawEntry(const std::string& key) const { return XXKeyStorage::objectForKey(key); }

Object XXCacheKeyStorage::objectForKey(const std::string& key) const {
    const Object entry = rawEntry(key);
    return isOldValue(entry) ? Object() : valueIn(entry, kObjectKey);
}

Object XXCacheKeyStorage::valueForKey(const std::string& key) const { return objectForKey(key); }

bool XXCacheKeyStorage::containsKey(const std::string& key) const { return !isOldValue(rawEntry(key)); }

bool XXCacheKeyStorage::equalsObject(const Object& object, const std::string& forKey) const {
    const Object value = objectForKey(forKey);
    return !value.isNull() && value == object;
}

std::size_t XXCacheKeyStorage::count() {
    const Lock lock(mutex_);
    removeOldValues();
    return XXKeyStorage::count();
}

void XXCacheKeyStorage::removeOldValues() {
    const Lock lock(mutex_);
    std::vector<std::string> oldKeys;
    for (const auto& [key, entry] : loadedStorage().values()) {
        if (isOldValue(entry)) oldKeys.push_back(key);
    }
    if (!oldKeys.empty()) removeObjectsForKeys(oldKeys);
}

bool XXCacheKeyStorage::isOldValue(const Object& entry) const {
    if (!entry.dictionary()) return true;
    const auto endDate = valueIn(entry, kEndDateKey).date();
    return endDate && *endDate < environment_.now();
}

std::vector<Object> XXCacheKeyStorage::allValues() const {
    fatalError("XXCacheKeyStorage allValues: unrecognized selector, an entry is no value");
}

std::vector<Object> XXCacheKeyStorage::objectEnumerator() const {
    fatalError("XXCacheKeyStorage objectEnumerator: unrecognized selector, an entry is no value");
}

}  // namespace dayward
