#include "platform/UserDefaults.h"

#include <utility>

#include "platform/FileSystem.h"
#include "platform/KeyedArchiver.h"
#include "platform/KeyedUnarchiver.h"
#include "platform/Log.h"
#include "platform/UnreadableFiles.h"

namespace dayward {

UserDefaults::UserDefaults(std::shared_ptr<FileSystem> files, std::shared_ptr<const ArchiveClasses> classes,
                           std::string path)
    : files_(std::move(files)), classes_(std::move(classes)), path_(std::move(path)) {}

/// No value of a suite may stop the process: it would at every start.
Result<Object> UserDefaults::unarchive(const Data& bytes) const {
    return KeyedUnarchiver::unarchiveObjectWithData(bytes, *classes_, KeyedUnarchiver::OnRefusal::fail);
}

Result<std::optional<Dictionary>> UserDefaults::readFile() const {
    if (!TRY(files_->status(path_))) return Dictionary();
    const Data bytes = TRY(files_->readFile(path_));
    const auto object = unarchive(bytes);
    if (object && object->dictionary()) return *object->dictionary();
    logError("defaults: " + path_ + " is unreadable: " + (object ? "no dictionary" : object.error().description()));
    return std::nullopt;
}

Result<std::optional<Dictionary>> UserDefaults::readFileOrPutAside() const {
    auto content = TRY(readFile());
    if (content) return content;
    int number = 1;
    while (TRY(files_->status(unreadableCopyPath(path_, number)))) ++number;
    const std::string kept = unreadableCopyPath(path_, number);
    TRY_VOID(files_->rename(path_, kept));
    logError("defaults: " + path_ + " is kept as " + kept);
    return std::nullopt;
}

void UserDefaults::loadOnce() const {
    if (std::exchange(isLoaded_, true)) return;
    const auto content = [&]() -> Result<std::optional<Dictionary>> {
        auto read = TRY(readFile());
        if (read) return read;
        const auto fileLock = TRY(files_->lock(path_ + ".lock", true));
        return readFileOrPutAside();
    }();
    if (!content) {
        logError("defaults: cannot read " + path_ + ": " + content.error().description());
    } else if (*content) {
        values_ = **content;
    }
}

Object UserDefaults::objectForKey(const std::string& key) const {
    const Lock lock(mutex_);
    loadOnce();
    const auto found = values_.find(key);
    return found == values_.end() ? Object() : found->second;
}

bool UserDefaults::boolForKey(const std::string& key) const { return objectForKey(key).boolean().value_or(false); }

std::int64_t UserDefaults::integerForKey(const std::string& key) const {
    return objectForKey(key).integer().value_or(0);
}

std::optional<std::string> UserDefaults::stringForKey(const std::string& key) const {
    return objectForKey(key).stringValue();
}

void UserDefaults::setObject(Object value, const std::string& forKey) {
    const Lock lock(mutex_);
    loadOnce();
    changed_.insert(forKey);
    if (value.isNull()) {
        values_.erase(forKey);
    } else {
        values_.insert_or_assign(forKey, std::move(value));
    }
}

void UserDefaults::removeObjectForKey(const std::string& key) { setObject(nullptr, key); }

Dictionary UserDefaults::dictionaryRepresentation() const {
    const Lock lock(mutex_);
    loadOnce();
    return values_;
}

void UserDefaults::archiveObject(const Object& value, const std::string& forKey) {
    setObject(value.isNull() ? Object() : Object(KeyedArchiver::archivedDataWithRootObject(value)), forKey);
}

Object UserDefaults::unarchiveObjectForKey(const std::string& key) const {
    const Object stored = objectForKey(key);
    if (!stored.data()) return {};
    auto object = unarchive(*stored.data());
    if (object) return *std::move(object);
    logError("defaults: " + key + " in " + path_ + " is unreadable: " + object.error().description());
    return {};
}

bool UserDefaults::hasChanges() const {
    const Lock lock(mutex_);
    return !changed_.empty();
}

bool UserDefaults::hasChange(const std::string& key) const {
    const Lock lock(mutex_);
    return changed_.contains(key);
}

Result<> UserDefaults::synchronize() {
    const Lock whole(synchronizing_);
    Dictionary known;
    std::set<std::string> changed;
    {
        const Lock lock(mutex_);
        loadOnce();
        known = values_;
        changed = std::exchange(changed_, {});
    }
    auto merged = exchangeWithFile(known, changed);
    const Lock lock(mutex_);
    if (!merged) {
        changed_.merge(changed);
        logError("defaults: cannot synchronize " + path_ + ": " + merged.error().description());
        return std::unexpected(std::move(merged.error()));
    }
    for (const std::string& key : changed_) {
        merged->erase(key);
        const auto own = values_.find(key);
        if (own != values_.end()) merged->insert(*own);
    }
    values_ = *std::move(merged);
    return {};
}

Result<Dictionary> UserDefaults::exchangeWithFile(const Dictionary& known, const std::set<std::string>& changed) {
    const auto fileLock = TRY(files_->lock(path_ + ".lock", true));
    auto stored = TRY(readFileOrPutAside());
    const bool mustWrite = !stored || !changed.empty();
    Dictionary merged = stored ? *std::move(stored) : known;
    for (const std::string& key : changed) {
        merged.erase(key);
        const auto own = known.find(key);
        if (own != known.end()) merged.insert(*own);
    }
    if (mustWrite) TRY_VOID(writeFileAtomically(*files_, path_, KeyedArchiver::archivedDataWithRootObject(merged)));
    return merged;
}

}  // namespace dayward
