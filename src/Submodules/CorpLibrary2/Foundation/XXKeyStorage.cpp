#include "Submodules/CorpLibrary2/Foundation/XXKeyStorage.h"

#include <exception>
#include <random>
#include <source_location>

#include "Submodules/CorpLibrary2/Foundation/AESCrypt.h"
#include "Submodules/CorpLibrary2/Foundation/ArchivedFile.h"
#include "Submodules/CorpLibrary2/Foundation/CCDObject.h"
#include "platform/Environment.h"
#include "platform/KeyedArchiver.h"
#include "platform/KeyedUnarchiver.h"
#include "platform/Log.h"
#include "platform/UserDefaults.h"

namespace dayward {

namespace {

constexpr const char* kCryptoObjectKey = "object";
constexpr const char* kCryptoSaltKey = "x";
constexpr std::int64_t kCryptoSaltLimit = 1000;

std::int64_t newSalt() {
    std::random_device device;
    return std::uniform_int_distribution<std::int64_t>(0, kCryptoSaltLimit - 1)(device);
}

void logException(Log& log, const std::string& name, const std::string& reason,
                  const std::source_location& place = std::source_location::current()) {
    log.error(std::string(place.function_name()) + " [Line " + std::to_string(place.line()) + "] Exception: " + name +
              " reason: " + reason);
}

}  // namespace

XXKeyStorage::XXKeyStorage(const KeyStorageDefaultsKey& key)
    : environment_(Environment::current()), userDefaultsKey_(key.key) {}

XXKeyStorage::XXKeyStorage(const KeyStorageFile& file) : environment_(Environment::current()), filePath_(file.path) {}

bool XXKeyStorage::autoSynchronize() const {
    const Lock lock(mutex_);
    return autoSynchronize_;
}

void XXKeyStorage::setAutoSynchronize(bool on) {
    const Lock lock(mutex_);
    autoSynchronize_ = on;
}

std::optional<std::string> XXKeyStorage::cryptoKey() const {
    const Lock lock(mutex_);
    return cryptoKey_;
}

void XXKeyStorage::setCryptoKey(std::optional<std::string> key) {
    const Lock lock(mutex_);
    cryptoKey_ = std::move(key);
}

std::optional<std::string> XXKeyStorage::userDefaultsKey() const {
    const Lock lock(mutex_);
    return userDefaultsKey_;
}

void XXKeyStorage::setUserDefaultsKey(std::optional<std::string> key) {
    const Lock lock(mutex_);
    userDefaultsKey_ = std::move(key);
    replaceAll();
}

std::optional<std::string> XXKeyStorage::filePath() const {
    const Lock lock(mutex_);
    return filePath_;
}

void XXKeyStorage::setFilePath(std::optional<std::string> path) {
    const Lock lock(mutex_);
    filePath_ = std::move(path);
    replaceAll();
}

void XXKeyStorage::replaceAll() {
    if (storage_) storage_->setAll(storage_->values());
}

Object XXKeyStorage::load() const {
    if (userDefaultsKey_) return environment_.standardDefaults().objectForKey(*userDefaultsKey_);
    if (!filePath_) return nullptr;
    auto root = readArchivedFile(environment_, *filePath_);
    if (root) return root->value_or(nullptr);
    logException(environment_.log(), root.error().domain, *filePath_ + ", " + root.error().description());
    return nullptr;
}

Object XXKeyStorage::opened(const Object& stored, const std::optional<std::string>& cryptoKey) {
    const Object content = cryptoKey ? objectFromCryptoData(stored, *cryptoKey) : stored;
    return content.dictionary() ? content : Object();
}

MergedDictionary& XXKeyStorage::loadedStorage() const {
    if (!storage_) {
        const Object loaded = opened(load(), cryptoKey_);
        storage_ = MergedDictionary(loaded.isNull() ? Dictionary() : *loaded.dictionary());
    }
    return *storage_;
}

Dictionary XXKeyStorage::storage() const {
    const Lock lock(mutex_);
    return loadedStorage().values();
}

Result<Dictionary> XXKeyStorage::store(const MergedDictionary::Changes& changes, const Dictionary& values) {
    Dictionary merged = values;
    const auto sealed = [&, cryptoKey = cryptoKey_](const std::optional<Object>& present) -> Object {
        const Object content = opened(present.value_or(Object()), cryptoKey);
        if (!content.isNull()) merged = changes.appliedTo(*content.dictionary());
        return cryptoKey ? Object(cryptoDataFromObject(merged, *cryptoKey)) : Object(merged);
    };
    if (userDefaultsKey_) {
        auto& defaults = environment_.standardDefaults();
        TRY_VOID(defaults.synchronize());  // for what another process wrote under the key
        defaults.setObject(sealed(defaults.objectForKey(*userDefaultsKey_)), *userDefaultsKey_);
        TRY_VOID(defaults.synchronize());
    } else if (filePath_) {
        TRY_VOID(updateArchivedFile(environment_, *filePath_, sealed));
    }
    return merged;
}

void XXKeyStorage::synchronize() {
    const Lock lock(mutex_);
    MergedDictionary& content = loadedStorage();
    auto changes = content.takeChanges();
    auto written = store(changes, content.values());
    if (written) return content.adopt(*std::move(written));
    content.restoreChanges(std::move(changes));
    // The defaults log a failure themselves, with path and reason.
    if (!userDefaultsKey_)
        environment_.log().error("XXKeyStorage write: " + *filePath_ + ", error: " + written.error().description());
}

void XXKeyStorage::performAutoSynchronize() {
    const Lock lock(mutex_);
    if (autoSynchronize_) synchronize();
}

std::size_t XXKeyStorage::count() {
    const Lock lock(mutex_);
    return loadedStorage().values().size();
}

std::vector<std::string> XXKeyStorage::allKeys() const {
    const Lock lock(mutex_);
    std::vector<std::string> keys;
    for (const auto& [key, object] : loadedStorage().values()) keys.push_back(key);
    return keys;
}

std::vector<Object> XXKeyStorage::allValues() const {
    const Lock lock(mutex_);
    std::vector<Object> values;
    for (const auto& [key, object] : loadedStorage().values()) values.push_back(object);
    return values;
}

Object XXKeyStorage::objectForKey(const std::string& key) const {
    const Lock lock(mutex_);
    return loadedStorage().valueForKey(key);
}

Object XXKeyStorage::valueForKey(const std::string& key) const { return objectForKey(key); }

std::vector<std::string> XXKeyStorage::keyEnumerator() const { return allKeys(); }

std::vector<Object> XXKeyStorage::objectEnumerator() const { return allValues(); }

std::size_t XXKeyStorage::countByEnumeratingWithState(EnumerationState& state, std::span<std::string> objects) const {
    const Lock lock(mutex_);
    const auto& storage = loadedStorage().values();
    auto next = state.lastKey ? storage.upper_bound(*state.lastKey) : storage.begin();
    std::size_t filled = 0;
    for (; next != storage.end() && filled < objects.size(); ++next) objects[filled++] = next->first;
    if (filled > 0) state.lastKey = objects[filled - 1];
    return filled;
}

void XXKeyStorage::setObject(Object object, const std::string& forKey) {
    const Lock lock(mutex_);
    loadedStorage().setValue(std::move(object), forKey);
    performAutoSynchronize();
}

void XXKeyStorage::setValue(Object value, const std::string& forKey) {
    XXKeyStorage::setObject(std::move(value), forKey);
}

void XXKeyStorage::setDictionary(Dictionary dictionary) {
    const Lock lock(mutex_);
    loadedStorage().setAll(std::move(dictionary));
    performAutoSynchronize();
}

void XXKeyStorage::removeObjectForKey(const std::string& key) {
    const Lock lock(mutex_);
    loadedStorage().setValue(nullptr, key);
    performAutoSynchronize();
}

void XXKeyStorage::removeAllObjects() {
    const Lock lock(mutex_);
    loadedStorage().setAll({});
    performAutoSynchronize();
}

void XXKeyStorage::removeObjectsForKeys(const std::vector<std::string>& keys) {
    const Lock lock(mutex_);
    for (const auto& key : keys) loadedStorage().setValue(nullptr, key);
    performAutoSynchronize();
}

std::string XXKeyStorage::description() const { return CCDObject(storage()).description(); }

std::optional<Data> XXKeyStorage::cryptoDataFromObject(const Object& object, const std::string& key) {
    if (object.isNull()) return std::nullopt;
    const Data archive = KeyedArchiver::archivedDataWithContents([&](KeyedArchiver& coder) {
        coder.encodeObject(object, kCryptoObjectKey);
        coder.encodeInteger(newSalt(), kCryptoSaltKey);
    });
    return AES256EncryptWithKey(archive, key);
}

Object XXKeyStorage::objectFromCryptoData(const Object& data, const std::string& key) {
    if (!data.data()) return nullptr;
    const auto archive = AES256DecryptWithKey(*data.data(), key);
    if (!archive) return nullptr;
    Object object;
    const auto read = KeyedUnarchiver::unarchiveContents(
        *archive, Environment::current().archiveClasses(),
        [&](KeyedUnarchiver& coder) { object = coder.decodeObject(kCryptoObjectKey); },
        KeyedUnarchiver::OnRefusal::fail);
    return read ? object : Object();
}

}  // namespace dayward
