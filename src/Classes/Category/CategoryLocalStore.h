// The user's categories on this device: one list, one synchronised item, kept in the standard user
// defaults. The built-in category "default" is always there.
//
// Any thread may call; the store's own monitor guards the list. Notifications go out on the calling
// thread outside it. Each save writes the defaults through, so that other processes see it.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/Environment.h"
#include "platform/Mutex.h"
#include "sync/CCKeyStore.h"
#include "sync/CCSyncKeyStore.h"

namespace dayward {

class EventCategory;
class FileLock;

/// The list changed, whatever the cause. Object the store, no user info.
inline constexpr const char* CategoryLocalStoreDidUpdateNotification = "CategoryLocalStoreDidUpdateNotification";

class CategoryLocalStore final : public CCKeyStore, public CCSyncKeyStore {
public:
    using Category = std::shared_ptr<EventCategory>;

    static constexpr const char* kItemKey = "Categories";
    static constexpr const char* kDefaultCategoryKey = "default";
    /// In the standard defaults: an array of keyed archives of one category each, and the archived version.
    static constexpr const char* kCategoriesDefaultsKey = "k003";
    static constexpr const char* kVersionDefaultsKey = "k004";
    /// In a value in transit: an array of categories, and the list's version.
    static constexpr const char* kTransitCategoriesKey = "p001";
    static constexpr const char* kTransitVersionKey = "p002";
    /// The key of the failing item in the user info of a failed sync write.
    static constexpr const char* kErrorSyncKey = "syncKey";

    /// Whether a change counts as the user's. An initializing one (defaults, a setup's import) keeps
    /// the version and posts nothing, so that a fresh device does not outrank the cloud's list.
    enum class Initialize { no, yes };

    static CategoryLocalStore& shared() { return Environment::current().shared<CategoryLocalStore>(); }
    explicit CategoryLocalStore(Environment& environment) : environment_(environment) {}

    /// In no promised order.
    [[nodiscard]] std::vector<Category> getCategories();
    /// The built-in category, then the others by name in code-point order; no name comes before any.
    [[nodiscard]] std::vector<Category> sortCategories();
    [[nodiscard]] Category defaultCategory();
    /// Null for nothing and for an unknown key.
    [[nodiscard]] Category getCategory(const std::optional<std::string>& key);
    /// A new category with the look of the built-in one, without a name, not stored.
    [[nodiscard]] Category createCategory();
    /// The first category of that name, or a new one, which is saved.
    Category categoryWithName(const std::string& name, Initialize initialize);
    /// Replaces the category with the same key, or adds it, and saves.
    void updateCategory(const Category& category, Initialize initialize);
    /// Removes and saves; the built-in category stays, without a word.
    void removeCategory(const Category& category);
    void setCategories(const std::vector<Category>& categories);
    /// Takes in what other processes saved; posts the update where the list is another one.
    void refreshFromDisk();
    /// Saves the list once more where that failed: there may be room on the device again. That it fails again
    /// is logged, and not told again.
    void retryFailedWrites();

    // CCSyncKeyStore; a value in transit is a dictionary of the two entries above.
    [[nodiscard]] bool initialized() const override { return true; }
    [[nodiscard]] std::vector<std::string> getSyncKeys() override { return {kItemKey}; }
    /// Never nothing: the zero version for a list that was never saved.
    [[nodiscard]] std::optional<CCSyncItemVersion> syncVersionForKey(const std::string& key) override;
    Result<Object> syncRead(const std::string& key, CCSyncKeyStore& toStore) override;
    Result<> syncWrite(const Object& value, const std::string& key, CCSyncKeyStore& fromStore) override;

protected:
    [[nodiscard]] NotificationCenter& notificationCenter() const override { return environment_.notifications(); }

private:
    using Map = std::map<std::string, Category>;

    /// The list, read from the defaults where it is not here yet, the built-in category added.
    Map& load() DAYWARD_REQUIRES(mutex_);
    Category categoryNamed(const std::string& name) DAYWARD_REQUIRES(mutex_);
    void save(const std::vector<Category>& categories, Initialize initialize) DAYWARD_REQUIRES(mutex_);
    [[nodiscard]] std::vector<Category> readBlocks() DAYWARD_REQUIRES(mutex_);
    void writeBlocks(const std::vector<Category>& categories) DAYWARD_REQUIRES(mutex_);
    /// None leaves the list without a version.
    void storeVersion(const std::shared_ptr<CCSyncItemVersion>& version) DAYWARD_REQUIRES(mutex_);
    /// While it is held, no other process takes in the saved list in order to change it. Null where it
    /// cannot be had, which is logged: a change then goes on without.
    std::shared_ptr<FileLock> lockSaved() DAYWARD_REQUIRES(mutex_);
    /// Takes in the list that another process saved; true where it is another one.
    bool takeInSaved() DAYWARD_REQUIRES(mutex_);
    void announce(Initialize initialize);
    void postDidUpdate();

    Environment& environment_;
    RecursiveMutex mutex_;
    std::weak_ptr<FileLock> savedLock_ DAYWARD_GUARDED_BY(mutex_);
    std::optional<Map> categoryMap_ DAYWARD_GUARDED_BY(mutex_);
    /// The list last written or taken in. Others synchronise the defaults too, which may be ahead of it.
    std::optional<Object> known_ DAYWARD_GUARDED_BY(mutex_);
};

}  // namespace dayward
