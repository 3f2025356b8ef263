// An older key storage whose values die: each is kept as a dictionary with "object" and "endDate",
// and is gone for the reader once its date has passed. Threads and files as in XXKeyStorage.
#pragma once

#include "Submodules/CorpLibrary2/Foundation/XXKeyStorage.h"

namespace dayward {

class XXCacheKeyStorage final : public XXKeyStorage {
public:
    using XXKeyStorage::XXKeyStorage;

    /// Of values that are set without a life of their own; 0 s at first.
    [[nodiscard]] TimeInterval defaultLifeTime() const;
    void setDefaultLifeTime(TimeInterval lifeTime);

    /// The three forms drop the dead entries first. A null object is an entry that reads as null.
    void setObject(Object object, const std::string& forKey) override;
    void setObject(Object object, const std::string& forKey, TimeInterval lifeTimeSecond);
    void setObject(Object object, const std::string& forKey, Date endDate);
    void setValue(Object value, const std::string& forKey) override;
    /// Adds each pair with the default life; other entries stay.
    void setDictionary(Dictionary dictionary) override;

    /// Null for a dead entry.
    [[nodiscard]] Object objectForKey(const std::string& key) const override;
    [[nodiscard]] Object valueForKey(const std::string& key) const override;
    /// A live entry of that key is there.
    [[nodiscard]] bool containsKey(const std::string& key) const;
    /// The live value equals the object; null equals nothing.
    [[nodiscard]] bool equalsObject(const Object& object, const std::string& forKey) const;
    /// Drops the dead entries first.
    [[nodiscard]] std::size_t count() override;

    void removeOldValues();
    /// True for null, and for an entry whose "endDate" is earlier than now. An object that is no
    /// entry is old as well.
    [[nodiscard]] bool isOldValue(const Object& entry) const;

    /// Entries are no values: these stop the process.
    [[nodiscard]] std::vector<Object> allValues() const override;
    [[nodiscard]] std::vector<Object> objectEnumerator() const override;

private:
    [[nodiscard]] Object rawEntry(const std::string& key) const;

    TimeInterval defaultLifeTime_ DAYWARD_GUARDED_BY(mutex_);
};

}  // namespace dayward
