// Batches of changes on their way to the disk.
#include <algorithm>

#include "Classes/Event/EventLocalStore.h"
#include "Classes/Event/EventStoreHelper.h"
#include "Classes/Event/HHEvent.h"
#include "platform/FailedSave.h"
#include "platform/FileSystem.h"
#include "platform/Log.h"
#include "platform/NotificationCenter.h"

namespace dayward {

namespace {

using Write = PackageWrites::Write;

/// From here on one sync of the whole device is sooner done than three of each package.
constexpr std::size_t kFewestTogether = 8;

std::vector<std::string> keysOf(const std::vector<Write>& writes, const std::vector<Result<>>& results,
                                bool (*isWanted)(const Write& write)) {
    std::vector<std::string> keys;
    for (std::size_t i = 0; i < writes.size(); ++i)
        if (results[i] && isWanted(writes[i])) keys.push_back(writes[i].key);
    return keys;
}

bool isRemoval(const Write& write) { return write.value.isNull(); }
bool isUpdate(const Write& write) { return !write.value.isNull(); }

}  // namespace

std::vector<Result<>> EventLocalStore::writeTogether(const std::vector<Write>& writes) {
    const EnvironmentScope scope(&environment());
    std::vector<Result<>> results(writes.size());
    std::vector<Write> sound;
    std::vector<std::size_t> places;
    for (std::size_t i = 0; i < writes.size(); ++i) {
        const auto url = URLForKey(*this, writes[i].key);
        if (!url) {
            results[i] = std::unexpected(url.error());
        } else if (writes.size() < kFewestTogether) {
            results[i] = setStoreValue(writes[i].value, writes[i].key);
        } else {
            sound.push_back(writes[i]);
            places.push_back(i);
        }
    }
    if (sound.empty()) return results;
    const std::vector<Result<>> written = replacePackages(sound);
    for (std::size_t i = 0; i < sound.size(); ++i) results[places[i]] = written[i];
    return results;
}

void EventLocalStore::tellFailure(const std::vector<Result<>>& results) {
    const auto failed = std::ranges::find_if(results, [](const auto& result) { return !result.has_value(); });
    if (failed != results.end()) tellFailedSave(environment(), storeIdentity(*this), failed->error());
}

void EventLocalStore::retryFailedWrites() {
    const EnvironmentScope scope(&environment());
    {
        const Lock lock(dataLayerLock_);
        for (const std::string& key : writes_->failedKeys()) {
            const auto event = find(key);
            writes_->add(key, event ? Object(std::make_shared<HHEvent>(*event)) : Object());
        }
    }
    writes_->run();
}

std::vector<Result<>> EventLocalStore::replacePackages(const std::vector<Write>& writes) {
    logDebug([&] { return typeName() + " write: " + std::to_string(writes.size()) + " together"; });
    std::vector<std::string> paths;
    for (const Write& write : writes) paths.push_back(pathOfKey(write.key));
    std::vector<Result<>> results;
    const auto done = coordinator().coordinateWriting(paths, [&]() -> Result<> {
        results = replaceCoordinated(writes, paths);
        return {};
    });
    if (!done) return std::vector<Result<>>(writes.size(), done);
    postNotificationStoreDidUpdate(keysOf(writes, results, isUpdate), keysOf(writes, results, isRemoval));
    return results;
}

std::vector<Result<>> EventLocalStore::replaceCoordinated(const std::vector<Write>& writes,
                                                          const std::vector<std::string>& paths) {
    std::vector<PackageChange> changes;
    std::vector<std::string> removals;
    for (std::size_t i = 0; i < writes.size(); ++i) {
        if (isRemoval(writes[i])) {
            removals.push_back(paths[i]);
        } else {
            changes.push_back({paths[i], [event = writes[i].value.as<HHEvent>(), path = paths[i]] {
                                   return EventStoreHelper::packageOfEvent(*event, path);
                               }});
        }
    }
    FileSystem& files = environment().files();
    std::vector<Result<>> changed, removed;
    if (!changes.empty()) changed = writePackagesAtomically(files, directory_, changes);
    if (!removals.empty()) removed = removePackagesAtomically(files, directory_, removals);
    std::vector<Result<>> results;
    std::size_t change = 0, removal = 0;
    for (const Write& write : writes) {
        results.push_back(std::move(isRemoval(write) ? removed[removal++] : changed[change++]));
        if (!results.back()) continue;
        if (isRemoval(write)) {
            storeValueDidRemove(write.key);
        } else {
            storeValueDidUpdate(write.key);
        }
    }
    return results;
}

}  // namespace dayward
