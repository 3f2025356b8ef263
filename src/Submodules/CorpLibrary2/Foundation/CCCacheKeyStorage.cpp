#include "Submodules/CorpLibrary2/Foundation/CCCacheKeyStorage.h"

#include "platform/Environment.h"
#include "platform/KeyedArchiver.h"
#include "platform/KeyedUnarchiver.h"

namespace dayward {

namespace {

constexpr const char* kValueKey = "value";
constexpr const char* kLifeDateKey = "lifeDate";

}  // namespace

bool CCCacheKeyStorage::CacheValue::isLife() const { return lifeDate_ > Environment::current().now(); }

void CCCacheKeyStorage::CacheValue::encodeWithCoder(KeyedArchiver& coder) const {
    coder.encodeObject(value_, kValueKey);
    coder.encodeObject(lifeDate_, kLifeDateKey);
}

bool CCCacheKeyStorage::CacheValue::isEqual(const Archivable& other) const {
    const auto* value = dynamic_cast<const CacheValue*>(&other);
    return value && value->value_ == value_ && value->lifeDate_ == lifeDate_;
}

std::shared_ptr<Archivable> CCCacheKeyStorage::CacheValue::read(KeyedUnarchiver& coder) {
    Object value = coder.decodeObject(kValueKey);
    return std::make_shared<CacheValue>(std::move(value), coder.decodeDate(kLifeDateKey).value_or(Date()));
}

std::shared_ptr<CCCacheKeyStorage::CacheValue> CCCacheKeyStorage::cacheValue(const std::string& key) const {
    return storedObject(key).as<CacheValue>();
}

Object CCCacheKeyStorage::valueForKey(const std::string& key) const {
    const auto value = cacheValue(key);
    return value ? value->value() : Object();
}

void CCCacheKeyStorage::setValue(Object value, const std::string& forKey) {
    setValue(std::move(value), forKey, Environment::current().now());
}

void CCCacheKeyStorage::setValue(Object value, const std::string& forKey, Date lifeDate) {
    if (value.isNull()) {
        setStoredObject(nullptr, forKey);
    } else {
        setStoredObject(std::make_shared<CacheValue>(std::move(value), lifeDate), forKey);
    }
}

void CCCacheKeyStorage::setValue(Object value, const std::string& forKey, TimeInterval lifeTimeInterval) {
    setValue(std::move(value), forKey, Environment::current().now() + lifeTimeInterval);
}

std::optional<Date> CCCacheKeyStorage::lifeDateForKey(const std::string& key) const {
    const auto value = cacheValue(key);
    return value ? std::optional(value->lifeDate()) : std::nullopt;
}

bool CCCacheKeyStorage::isLifeValueForKey(const std::string& key) const {
    const auto value = cacheValue(key);
    return value && value->isLife();
}

void CCCacheKeyStorage::clean() {
    for (const auto& [key, object] : values()) {
        const auto value = object.as<CacheValue>();
        if (!value || !value->isLife()) setStoredObject(nullptr, key);
    }
}

}  // namespace dayward
