// The synchroniser's side of the store.
#include "Classes/Event/EventLocalStore.h"
#include "Classes/Event/EventStoreHelper.h"
#include "Classes/Event/HHEvent.h"
#include "Classes/Event/PackageWrites.h"
#include "platform/Log.h"

namespace dayward {

std::vector<std::string> EventLocalStore::getSyncKeys() {
    const Lock lock(dataLayerLock_);
    std::vector<std::string> keys;
    for (const auto& [key, event] : dataLayer_) keys.push_back(key);
    return keys;
}

std::optional<CCSyncItemVersion> EventLocalStore::syncVersionForKey(const std::string& key) {
    const Lock lock(dataLayerLock_);
    const auto event = find(key);
    return event ? event->version() : std::nullopt;
}

Result<Object> EventLocalStore::syncRead(const std::string& key, CCSyncKeyStore&) {
    logDebug([&] { return typeName() + " sync read: " + key; });
    return TRY(URLForKey(*this, key));
}

Result<> EventLocalStore::syncWrite(const Object& value, const std::string& key, CCSyncKeyStore& fromStore) {
    const EnvironmentScope scope(&environment());
    if (value.isNull()) return syncRemove(key, fromStore);
    logDebug([&] { return typeName() + " sync write: " + key; });
    const std::string* const sender = value.string();
    if (sender == nullptr) return failure("event store", 0, {{"syncKey", key}, {"reason", "the value is no path"}});
    std::optional<std::uint64_t> seenChange;
    const std::shared_ptr<HHEvent> event = TRY(copyPackage(*sender, key, seenChange));
    {
        const Lock lock(dataLayerLock_);
        // An own change since then is newer, and its write comes after the copy.
        if (!isLatest(key, seenChange)) return {};
        put(key, event);
    }
    postDidUpdate(EventLocalStoreUpdatedKey, {event});
    return {};
}

Result<std::shared_ptr<HHEvent>> EventLocalStore::copyPackage(const std::string& sender, const std::string& key,
                                                              std::optional<std::uint64_t>& seenChange) {
    const std::string own = TRY(URLForKey(*this, key));
    std::shared_ptr<HHEvent> event;
    const auto accessor = [&](const std::string& readPath, const std::string& writePath) -> Result<> {
        const EventDocument document = TRY(EventStoreHelper::readEventDocument(readPath));
        event = TRY(EventStoreHelper::getEventFromDocument(document));
        TRY_VOID(EventStoreHelper::writeEventDocument(document, writePath));
        storeValueDidUpdate(key);
        seenChange = writes_->settledChange(key);
        return {};
    };
    TRY_VOID(coordinator().coordinateReadingAndWriting(sender, FileCoordinator::ReadingOptions::withoutChanges, own,
                                                       FileCoordinator::WritingOptions::forReplacing, accessor));
    return event;
}

Result<> EventLocalStore::syncRemove(const std::string& key, CCSyncKeyStore& fromStore) {
    logDebug([&] { return typeName() + " sync remove: " + key; });
    if (fromStore.getSyncKeys().empty()) return {};
    const std::string url = TRY(URLForKey(*this, key));
    std::optional<std::uint64_t> seenChange;
    const auto accessor = [&](const std::string& path) -> Result<> {
        TRY_VOID(removeFile(path, key));
        seenChange = writes_->settledChange(key);
        return {};
    };
    TRY_VOID(coordinator().coordinateWriting(url, FileCoordinator::WritingOptions::forDeleting, accessor));
    std::shared_ptr<HHEvent> event;
    {
        const Lock lock(dataLayerLock_);
        if (!isLatest(key, seenChange)) return {};
        event = take(key);
    }
    if (event) postDidUpdate(EventLocalStoreRemovedKey, {event});
    return {};
}

}  // namespace dayward
