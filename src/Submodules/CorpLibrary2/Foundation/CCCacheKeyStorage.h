// A key storage whose values have a time of death. Values are returned whatever their life; who
// cares asks isLifeValueForKey(). Threads and files as in CCKeyStorage.
#pragma once

#include <memory>

#include "Submodules/CorpLibrary2/Foundation/CCKeyStorage.h"
#include "platform/Archivable.h"

namespace dayward {

class CCCacheKeyStorage : public CCKeyStorage {
public:
    /// A value with its time of death. Archive class "CacheValue": "value", "lifeDate".
    class CacheValue final : public Archivable {
    public:
        static constexpr const char* kArchiveClassName = "CacheValue";

        CacheValue(Object value, Date lifeDate) : value_(std::move(value)), lifeDate_(lifeDate) {}

        [[nodiscard]] const Object& value() const { return value_; }
        [[nodiscard]] Date lifeDate() const { return lifeDate_; }
        /// The time of death is still to come.
        [[nodiscard]] bool isLife() const;

        [[nodiscard]] std::vector<std::string> archiveClassNames() const override { return {kArchiveClassName}; }
        void encodeWithCoder(KeyedArchiver& coder) const override;
        [[nodiscard]] bool isEqual(const Archivable& other) const override;
        /// A value without a readable date is long dead.
        static std::shared_ptr<Archivable> read(KeyedUnarchiver& coder);

    private:
        Object value_;
        Date lifeDate_;
    };

    using CCKeyStorage::CCKeyStorage;

    [[nodiscard]] Object valueForKey(const std::string& key) const override;
    /// The value dies this very moment: it can be read, but it is not alive. A null value removes
    /// the key, in all three setters.
    void setValue(Object value, const std::string& forKey) override;
    void setValue(Object value, const std::string& forKey, Date lifeDate);
    void setValue(Object value, const std::string& forKey, TimeInterval lifeTimeInterval);
    [[nodiscard]] std::optional<Date> lifeDateForKey(const std::string& key) const;
    /// False for a missing key and for an object that is no CacheValue.
    [[nodiscard]] bool isLifeValueForKey(const std::string& key) const;
    /// Removes every key whose value is not alive.
    void clean();

private:
    [[nodiscard]] std::shared_ptr<CacheValue> cacheValue(const std::string& key) const;
};

}  // namespace dayward
