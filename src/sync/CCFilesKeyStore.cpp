#include "sync/CCFilesKeyStore.h"

#include "platform/FatalError.h"
#include "platform/FileSystem.h"
#include "platform/Log.h"
#include "platform/NotificationCenter.h"

namespace dayward {

CCFilesKeyStore::CCFilesKeyStore(Environment& environment, std::shared_ptr<FileVersions> versions)
    : environment_(environment), versions_(std::move(versions)) {
    if (!versions_) versions_ = std::make_shared<FolderFileVersions>(environment.sharedFiles());
}

CCFilesKeyStoreDelegate& CCFilesKeyStore::requiredDelegate() const {
    CCFilesKeyStoreDelegate* const found = delegate();
    if (found == nullptr) fatalError(typeName() + ": no delegate is set");
    return *found;
}

Result<Object> CCFilesKeyStore::readValueForKey(const std::string& key) {
    CCFilesKeyStoreDelegate& delegate = requiredDelegate();
    const std::string url = TRY(delegate.URLForKey(*this, key));
    logDebug([&] { return typeName() + " read: " + key; });
    Object value;
    const auto accessor = [&](const std::string& path) -> Result<> {
        value = TRY(delegate.readValueFromURL(*this, path));
        return {};
    };
    TRY_VOID(coordinator().coordinateReading(url, FileCoordinator::ReadingOptions::withoutChanges, accessor));
    return value;
}

Result<> CCFilesKeyStore::setStoreValue(const Object& value, const std::string& forKey) {
    if (value.isNull()) return removeStoreValue(forKey);
    CCFilesKeyStoreDelegate& delegate = requiredDelegate();
    const std::string url = TRY(delegate.URLForKey(*this, forKey));
    logDebug([&] { return typeName() + " write: " + forKey; });
    const auto accessor = [&](const std::string& path) -> Result<> {
        TRY_VOID(delegate.writeValue(*this, value, path));
        storeValueDidUpdate(forKey);
        return {};
    };
    TRY_VOID(coordinator().coordinateWriting(url, FileCoordinator::WritingOptions::forReplacing, accessor));
    postNotificationStoreDidUpdate({forKey}, {});
    return {};
}

Result<> CCFilesKeyStore::removeStoreValue(const std::string& key) {
    const std::string url = TRY(requiredDelegate().URLForKey(*this, key));
    logDebug([&] { return typeName() + " remove: " + key; });
    const auto accessor = [&](const std::string& path) { return removeFile(path, key); };
    TRY_VOID(coordinator().coordinateWriting(url, FileCoordinator::WritingOptions::forDeleting, accessor));
    postNotificationStoreDidUpdate({}, {key});
    return {};
}

Result<> CCFilesKeyStore::removeFile(const std::string& path, const std::string& key) {
    TRY_VOID(removePackageAtomically(environment_.files(), path));
    storeValueDidRemove(key);
    return {};
}

void CCFilesKeyStore::storeValueDidUpdate(const std::string&) {}

void CCFilesKeyStore::storeValueDidRemove(const std::string&) {}

bool CCFilesKeyStore::unresolveConflictForURL(const std::string& url) {
    if (!environment_.files().exists(url)) return true;
    logDebug([&] { return typeName() + " unresolveConflict: " + lastPathComponent(url); });
    const auto accessor = [&](const std::string& path) -> Result<> {
        TRY_VOID(versions_->removeOtherVersionsOfItem(path));
        const std::vector<std::string> remaining = TRY(versions_->unresolvedConflictVersionsOfItem(path));
        for (const std::string& version : remaining) TRY_VOID(versions_->setResolved(version));
        return {};
    };
    const Result<> done = coordinator().coordinateWriting(url, FileCoordinator::WritingOptions::forDeleting, accessor);
    if (!done) logError(typeName() + " unresolveConflict: " + done.error().description());
    return done.has_value();
}

bool CCFilesKeyStore::requestDownloadingForURL(const std::string& url) {
    logDebug([&] { return typeName() + " requestDownloading: " + lastPathComponent(url); });
    const Result<> done = versions_->startDownloading(url);
    if (!done) logError(typeName() + " requestDownloading: " + done.error().description());
    return done.has_value();
}

NotificationCenter& CCFilesKeyStore::notificationCenter() const { return environment_.notifications(); }

}  // namespace dayward
