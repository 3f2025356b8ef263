// What other processes on the same home changed, taken into memory.
#include <unordered_set>

#include "Classes/Event/EventLocalStore.h"
#include "Classes/Event/HHEvent.h"
#include "Classes/Event/HHGeneralEventDocumentData.h"
#include "Classes/Event/PackageReader.h"
#include "Classes/Event/PackageStamp.h"
#include "Classes/Event/PackageWrites.h"
#include "platform/UnreadableFiles.h"
#include "platform/DirectoryWatch.h"
#include "platform/DispatchQueue.h"
#include "platform/FileSystem.h"
#include "platform/KeyedArchiver.h"
#include "platform/Log.h"

namespace dayward {

struct EventLocalStore::Changes {
    std::vector<std::shared_ptr<HHEvent>> updated;
    std::vector<std::shared_ptr<HHEvent>> removed;
};

namespace {

Data generalData(const HHEvent& event) { return KeyedArchiver::archivedDataWithRootObject(event.getStoreInfo()); }

std::vector<std::string> keysOf(const std::vector<std::shared_ptr<HHEvent>>& events) {
    std::vector<std::string> keys;
    for (const auto& event : events) keys.push_back(event->identifier());
    return keys;
}

}  // namespace

void EventLocalStore::startWatch() {
    DirectoryWatcher* const watcher = environment().watcher();
    if (watcher == nullptr) return;
    auto started = watcher->watch(directory_, [this](const std::vector<std::string>& names) {
        const EnvironmentScope scope(&environment());
        syncQueue_->async([this, names] {
            if (names.empty()) return refreshFromDisk();
            std::vector<std::string> keys;
            for (const std::string& name : names)
                if (pathExtension(name) == fileExtension_) keys.push_back(keyForURL(*this, name));
            refreshKeys(keys);
        });
    });
    if (started) {
        watch_ = *std::move(started);
    } else {
        logError(typeName() + ": " + started.error().description());
    }
}

void EventLocalStore::refreshFromDisk() {
    const auto names = environment().files().listDirectory(directory_);
    if (!names) {
        // A directory that cannot be listed says nothing about its packages.
        const EnvironmentScope scope(&environment());
        logError(typeName() + ": " + names.error().description());
        return;
    }
    forgetLeftOut(directory_);
    std::vector<std::string> keys = getSyncKeys();
    std::erase_if(keys, [this](const std::string& key) { return !URLForKey(*this, key); });
    for (const LeftOut& file : leftOut()) keys.push_back(keyForURL(*this, file.path));
    const std::unordered_set<std::string> known(keys.begin(), keys.end());
    for (const std::string& name : *names) {
        if (pathExtension(name) != fileExtension_) continue;
        std::string key = keyForURL(*this, name);
        if (!known.contains(key)) keys.push_back(std::move(key));
    }
    refreshKeys(keys);
}

void EventLocalStore::refreshKeys(const std::vector<std::string>& keys) {
    const EnvironmentScope scope(&environment());
    unreadable_->reload();
    Changes changes;
    for (const std::string& key : keys) refreshKey(key, changes);
    dropOvertaken(changes);
    if (!changes.updated.empty()) postDidUpdate(EventLocalStoreUpdatedKey, changes.updated);
    if (!changes.removed.empty()) postDidUpdate(EventLocalStoreRemovedKey, changes.removed);
    postNotificationStoreDidUpdate(keysOf(changes.updated), keysOf(changes.removed));
}

void EventLocalStore::refreshKey(const std::string& key, Changes& changes) {
    const std::string path = pathOfKey(key);
    for (bool isDone = false; !isDone;) {
        const auto stamp = PackageStamp::ofPackage(environment().files(), path);
        if (stamp && stamps_->isUnchanged(key, *stamp)) return;
        // A change of our own that waits is newer, and its write will find the package.
        const auto seenChange = writes_->settledChange(key);
        if (!seenChange) return;
        const auto package = readUndisturbed(path);
        if (!package) return logError(typeName() + ": " + package.error().description());
        isDone = takeIn(key, *package, *seenChange, changes);
    }
}

void EventLocalStore::dropOvertaken(Changes& changes) {
    Changes standing;
    const Lock lock(dataLayerLock_);
    for (auto& event : changes.updated)
        if (find(event->identifier()) == event) standing.updated.push_back(std::move(event));
    for (auto& event : changes.removed)
        if (!find(event->identifier())) standing.removed.push_back(std::move(event));
    changes = std::move(standing);
}

Result<LoadedPackage> EventLocalStore::readUndisturbed(const std::string& path) const {
    LoadedPackage package;
    const auto accessor = [&](const std::string& readPath) -> Result<> {
        package = reader_->read(readPath);
        return {};
    };
    TRY_VOID(coordinator().coordinateReading(path, FileCoordinator::ReadingOptions::withoutChanges, accessor));
    if (package.exists || !environment().files().exists(asidePath(path))) return package;
    // Whoever was replacing it is gone.
    TRY_VOID(settle(path));
    TRY_VOID(coordinator().coordinateReading(path, FileCoordinator::ReadingOptions::withoutChanges, accessor));
    return package;
}

Result<> EventLocalStore::settle(const std::string& path) const {
    return coordinator().coordinateWriting(
        path, FileCoordinator::WritingOptions::forMoving,
        [this](const std::string& writePath) { return settlePackage(environment().files(), writePath); });
}

bool EventLocalStore::takeIn(const std::string& key, const LoadedPackage& package, std::uint64_t seenChange,
                             Changes& changes) {
    const Lock lock(dataLayerLock_);
    if (!isLatest(key, seenChange)) return false;
    if (stamps_->isUnchanged(key, package.stamp)) return true;
    stamps_->set(key, package.stamp);
    writes_->noteChange(key);
    if (package.event) {
        forgetLeftOut(package.path);
        if (!isNews(key, **package.event)) return true;
        put(key, *package.event);
        changes.updated.push_back(*package.event);
    } else if (package.exists) {
        leaveOut(package.path, package.event.error());
    } else {
        forgetLeftOut(package.path);
        unreadable_->forget(package.path);
        if (auto event = take(key)) changes.removed.push_back(std::move(event));
    }
    return true;
}

bool EventLocalStore::isLatest(const std::string& key, std::optional<std::uint64_t> seenChange) const {
    return seenChange && writes_->settledChange(key) == seenChange;
}

bool EventLocalStore::isNews(const std::string& key, const HHEvent& event) {
    const auto present = find(key);
    if (!present) return true;
    // Memory is ahead of its file where a write failed: then only something newer counts.
    if (writes_->hasFailed(key))
        return !present->version() || (event.version() && *event.version() > *present->version());
    return event.version() != present->version() || generalData(event) != generalData(*present);
}

}  // namespace dayward
