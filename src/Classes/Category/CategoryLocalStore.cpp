#include "Classes/Category/CategoryLocalStore.h"

#include <algorithm>

#include "Classes/Category/BackgroundTemplateConversion.h"
#include "Classes/Category/ColorEventBackgroundTemplate.h"
#include "Classes/Category/EventCategory.h"
#include "Classes/Category/NamedEventIconPicture.h"
#include "Classes/Settings/AppSettings.h"
#include "platform/FailedSave.h"
#include "platform/FileSystem.h"
#include "platform/KeyedArchiver.h"
#include "platform/KeyedUnarchiver.h"
#include "platform/Log.h"
#include "platform/NotificationCenter.h"
#include "platform/Strings.h"
#include "platform/UserDefaults.h"

namespace dayward {

namespace {

using Category = CategoryLocalStore::Category;
using OnRefusal = KeyedUnarchiver::OnRefusal;

constexpr const char* kDefaultName = "Default";
constexpr const char* kDefaultIcon = "remind";
constexpr const char* kLockFile = "categories.lock";
constexpr const char* kDefaultFont = "ChalkboardSE-Bold";

/// The look that an earlier edition kept for all events, where there is one.
void takeOldLook(EventCategory& category) {
    for (const Object& old : {AppSettings::old_defaultBackgroundTpl(), AppSettings::old_defaultBackgroundInfo()}) {
        auto converted = backgroundTemplateFromObject(old);
        if (!converted) continue;
        category.eventBackgroundTpl = std::move(converted);
        break;
    }
    if (auto font = AppSettings::old_defaultFontName()) category.eventFont = std::move(font);
    if (const auto color = AppSettings::old_defaultTextColor()) category.eventTextColor = color;
}

Category makeDefaultCategory() {
    auto category = std::make_shared<EventCategory>(CategoryLocalStore::kDefaultCategoryKey);
    category->name = localized(kDefaultName);
    category->eventIcon = std::make_shared<NamedEventIconPicture>(kDefaultIcon);
    category->eventBackgroundTpl = std::make_shared<ColorEventBackgroundTemplate>(Color::white());
    category->eventFont = kDefaultFont;
    category->eventTextColor = Color::black();
    takeOldLook(*category);
    return category;
}

/// An array of data blocks, one archive each.
Object blocksOf(const std::vector<Category>& categories) {
    Array blocks;
    for (const Category& category : categories)
        blocks.emplace_back(KeyedArchiver::archivedDataWithRootObject(category));
    return blocks;
}

/// A block that holds no category is dropped.
std::vector<Category> categoriesOfBlocks(const Object& blocks, const ArchiveClasses& classes) {
    std::vector<Category> categories;
    const Array* const array = blocks.array();
    if (array == nullptr) return categories;
    for (const Object& block : *array) {
        if (block.data() == nullptr) continue;
        const auto root = KeyedUnarchiver::unarchiveObjectWithData(*block.data(), classes, OnRefusal::fail);
        if (auto category = root ? root->as<EventCategory>() : nullptr) categories.push_back(std::move(category));
    }
    return categories;
}

bool hasDefault(const std::vector<Category>& categories) {
    return std::ranges::any_of(
        categories, [](const Category& category) { return category->key == CategoryLocalStore::kDefaultCategoryKey; });
}

/// Nothing unless every entry is a category.
std::optional<std::vector<Category>> categoriesInTransit(const Object& value) {
    const Dictionary* const dictionary = value.dictionary();
    if (dictionary == nullptr) return {};
    const auto entry = dictionary->find(CategoryLocalStore::kTransitCategoriesKey);
    if (entry == dictionary->end() || entry->second.array() == nullptr) return {};
    std::vector<Category> categories;
    for (const Object& object : *entry->second.array()) {
        auto category = object.as<EventCategory>();
        if (!category) return {};
        categories.push_back(std::move(category));
    }
    return categories;
}

/// Null where the value has none.
std::shared_ptr<CCSyncItemVersion> versionInTransit(const Object& value) {
    const auto entry = value.dictionary()->find(CategoryLocalStore::kTransitVersionKey);
    return entry == value.dictionary()->end() ? nullptr : entry->second.as<CCSyncItemVersion>();
}

}  // namespace

CategoryLocalStore::Map& CategoryLocalStore::load() {
    if (categoryMap_) return *categoryMap_;
    const EnvironmentScope scope(&environment_);
    std::vector<Category> categories = readBlocks();
    if (!hasDefault(categories)) {
        const auto savedLock = lockSaved();
        // Not over a list that another process saved since, or that could not be read until now.
        const bool isKnown = environment_.standardDefaults().synchronize().has_value();
        categories = readBlocks();
        const bool isMissing = !hasDefault(categories);
        if (isMissing) categories.push_back(makeDefaultCategory());
        if (isMissing && isKnown) writeBlocks(categories);
    }
    Map& map = categoryMap_.emplace();
    for (const Category& category : categories) map[category->key] = category;
    return map;
}

std::vector<Category> CategoryLocalStore::readBlocks() {
    const Object blocks = environment_.standardDefaults().objectForKey(kCategoriesDefaultsKey);
    if (!known_) known_ = blocks;
    return categoriesOfBlocks(blocks, environment_.archiveClasses());
}

void CategoryLocalStore::writeBlocks(const std::vector<Category>& categories) {
    UserDefaults& defaults = environment_.standardDefaults();
    known_ = blocksOf(categories);
    defaults.setObject(*known_, kCategoriesDefaultsKey);
    saveDefaults(environment_, defaults);
}

std::vector<Category> CategoryLocalStore::getCategories() {
    const Lock lock(mutex_);
    std::vector<Category> categories;
    for (const auto& [key, category] : load()) categories.push_back(category);
    return categories;
}

std::vector<Category> CategoryLocalStore::sortCategories() {
    std::vector<Category> categories = getCategories();
    std::ranges::sort(
        categories, {}, [](const Category& category) -> const auto& { return category->name; });
    const auto isDefault = [](const Category& category) { return category->key == kDefaultCategoryKey; };
    const auto builtIn = std::ranges::find_if(categories, isDefault);
    if (builtIn != categories.end()) std::rotate(categories.begin(), builtIn, builtIn + 1);
    return categories;
}

Category CategoryLocalStore::defaultCategory() { return getCategory(kDefaultCategoryKey); }

Category CategoryLocalStore::getCategory(const std::optional<std::string>& key) {
    if (!key) return nullptr;
    const Lock lock(mutex_);
    const Map& map = load();
    const auto found = map.find(*key);
    return found == map.end() ? nullptr : found->second;
}

Category CategoryLocalStore::createCategory() {
    const Category model = defaultCategory();
    auto category = std::make_shared<EventCategory>();
    category->eventIcon = model->eventIcon;
    category->eventBackgroundTpl = model->eventBackgroundTpl;
    category->eventFont = model->eventFont;
    category->eventTextColor = model->eventTextColor;
    return category;
}

Category CategoryLocalStore::categoryNamed(const std::string& name) {
    for (const auto& [key, category] : load())
        if (category->name == name) return category;
    return nullptr;
}

Category CategoryLocalStore::categoryWithName(const std::string& name, Initialize initialize) {
    Category category;
    {
        const Lock lock(mutex_);
        if (Category known = categoryNamed(name)) return known;
        const auto savedLock = lockSaved();
        takeInSaved();
        if (Category known = categoryNamed(name)) return known;
        category = createCategory();
        category->name = name;
        std::vector<Category> categories = getCategories();
        categories.push_back(category);
        save(categories, initialize);
    }
    announce(initialize);
    return category;
}

void CategoryLocalStore::updateCategory(const Category& category, Initialize initialize) {
    {
        const Lock lock(mutex_);
        const auto savedLock = lockSaved();
        takeInSaved();
        std::vector<Category> categories = getCategories();
        const auto isSame = [&](const Category& other) { return other->isEqual(*category); };
        const auto found = std::ranges::find_if(categories, isSame);
        if (found != categories.end()) {
            *found = category;
        } else {
            categories.push_back(category);
        }
        save(categories, initialize);
    }
    announce(initialize);
}

void CategoryLocalStore::removeCategory(const Category& category) {
    if (category->key == kDefaultCategoryKey) return;
    {
        const Lock lock(mutex_);
        const auto savedLock = lockSaved();
        takeInSaved();
        std::vector<Category> categories = getCategories();
        std::erase_if(categories, [&](const Category& other) { return other->isEqual(*category); });
        save(categories, Initialize::no);
    }
    announce(Initialize::no);
}

void CategoryLocalStore::setCategories(const std::vector<Category>& categories) {
    {
        const Lock lock(mutex_);
        save(categories, Initialize::no);
    }
    announce(Initialize::no);
}

void CategoryLocalStore::save(const std::vector<Category>& categories, Initialize initialize) {
    if (initialize == Initialize::no) {
        const EnvironmentScope scope(&environment_);
        storeVersion(std::make_shared<CCSyncItemVersion>(CCSyncItemVersion::next()));
    }
    categoryMap_.reset();
    writeBlocks(categories);
}

void CategoryLocalStore::storeVersion(const std::shared_ptr<CCSyncItemVersion>& version) {
    UserDefaults& defaults = environment_.standardDefaults();
    if (version) {
        defaults.archiveObject(version, kVersionDefaultsKey);
    } else {
        defaults.removeObjectForKey(kVersionDefaultsKey);
    }
}

void CategoryLocalStore::announce(Initialize initialize) {
    if (initialize == Initialize::yes) return;
    postDidUpdate();
    postNotificationStoreDidUpdate({kItemKey}, {});
}

void CategoryLocalStore::postDidUpdate() {
    environment_.notifications().post(CategoryLocalStoreDidUpdateNotification, storeIdentity(*this));
}

std::shared_ptr<FileLock> CategoryLocalStore::lockSaved() {
    if (auto held = savedLock_.lock()) return held;
    auto made = environment_.files().lock(joinPath(environment_.paths().config, kLockFile), true);
    if (!made) {
        logError("CategoryLocalStore: " + made.error().description());
        return nullptr;
    }
    std::shared_ptr<FileLock> held = *std::move(made);
    savedLock_ = held;
    return held;
}

bool CategoryLocalStore::takeInSaved() {
    UserDefaults& defaults = environment_.standardDefaults();
    if (!known_) known_ = defaults.objectForKey(kCategoriesDefaultsKey);
    static_cast<void>(defaults.synchronize());  // what was read before counts too
    Object saved = defaults.objectForKey(kCategoriesDefaultsKey);
    if (saved == *known_) return false;
    known_ = std::move(saved);
    categoryMap_.reset();
    return true;
}

void CategoryLocalStore::refreshFromDisk() {
    bool changed = false;
    {
        const Lock lock(mutex_);
        changed = takeInSaved();
    }
    if (changed) postDidUpdate();
}

void CategoryLocalStore::retryFailedWrites() {
    const Lock lock(mutex_);
    UserDefaults& defaults = environment_.standardDefaults();
    if (!defaults.hasChange(kCategoriesDefaultsKey)) return;
    const auto savedLock = lockSaved();
    static_cast<void>(defaults.synchronize());
}

std::optional<CCSyncItemVersion> CategoryLocalStore::syncVersionForKey(const std::string&) {
    const Lock lock(mutex_);
    const auto version =
        environment_.standardDefaults().unarchiveObjectForKey(kVersionDefaultsKey).as<CCSyncItemVersion>();
    return version ? *version : CCSyncItemVersion::zero();
}

Result<Object> CategoryLocalStore::syncRead(const std::string& key, CCSyncKeyStore&) {
    logDebug([&] { return "CategoryLocalStore sync read: " + key; });
    const Lock lock(mutex_);
    const std::vector<Category> categories = getCategories();
    return Dictionary{{kTransitCategoriesKey, Array(categories.begin(), categories.end())},
                      {kTransitVersionKey, std::make_shared<CCSyncItemVersion>(*syncVersionForKey(key))}};
}

Result<> CategoryLocalStore::syncWrite(const Object& value, const std::string& key, CCSyncKeyStore&) {
    logDebug([&] { return "CategoryLocalStore sync write: " + key; });
    const auto categories = categoriesInTransit(value);
    if (!categories) return failure("category store", 0, {{kErrorSyncKey, key}});
    {
        const Lock lock(mutex_);
        storeVersion(versionInTransit(value));
        categoryMap_.reset();
        writeBlocks(*categories);
    }
    postDidUpdate();
    return {};
}

}  // namespace dayward
