#include "Classes/Event/EventLocalStore.h"

#include <algorithm>

#include "Classes/Event/EventStoreHelper.h"
#include "Classes/Event/HHEvent.h"
#include "Classes/Event/PackageReader.h"
#include "Classes/Event/PackageStamp.h"
#include "Classes/Event/PackageWrites.h"
#include "Classes/Event/SharedParts.h"
#include "platform/UnreadableFiles.h"
#include "platform/DirectoryWatch.h"
#include "platform/DispatchQueue.h"
#include "platform/FileSystem.h"
#include "platform/Log.h"
#include "platform/NotificationCenter.h"
#include "sync/DataLayerLock.h"

namespace dayward {

namespace {

constexpr const char* kTypeName = "EventLocalStore";
constexpr const char* kErrorDomain = "event store";
constexpr const char* kUnreadableDirectory = "unreadable";

/// Why a key cannot be a file's name; null where it can.
const char* faultOfKey(const std::string& key) {
    if (key.empty()) return "the identifier is empty";
    if (key.size() > EventLocalStore::kMaximalKeyLength) return "the identifier is too long for a file's name";
    if (key.front() == '.') return "the identifier begins with a point";
    if (key.find('/') != std::string::npos || key.find('\0') != std::string::npos)
        return "the identifier holds a character that no file's name can have";
    return nullptr;
}

/// For messages: a key from outside may hold anything.
std::string printable(const std::string& key) {
    std::string text = key.substr(0, EventLocalStore::kMaximalKeyLength);
    for (char& c : text)
        if (static_cast<unsigned char>(c) < ' ') c = '?';
    return text;
}

}  // namespace

EventLocalStore::EventLocalStore(Environment& environment)
    : CCFilesKeyStore(environment),
      directory_(environment.paths().documents),
      dataLayerLock_(DataLayerLock::of(environment)),
      syncQueue_(environment.queues().makeConcurrent(std::string(kTypeName) + ".sync")),
      unreadable_(std::make_unique<UnreadableFiles>(environment.files(),
                                                    joinPath(environment.paths().state, kUnreadableDirectory))),
      reader_(std::make_unique<PackageReader>(environment, *unreadable_)),
      stamps_(std::make_unique<PackageStamps>()),
      writes_(std::make_unique<PackageWrites>(syncQueue_, kTypeName,
                                              [this](const auto& writes) {
                                                  auto results = writeTogether(writes);
                                                  tellFailure(results);
                                                  return results;
                                              })) {
    setDelegate(this);
    const EnvironmentScope scope(&environment);
    startWatch();
    load();
    if (watch_) watch_->watchInside();
}

void EventLocalStore::didBecomeShared() {
    const EnvironmentScope scope(&environment());
    postNotificationStoreDidRefresh();
}

EventLocalStore::~EventLocalStore() {
    watch_.reset();
    environment().queues().waitUntilIdle();
}

void EventLocalStore::initialize() {
    const EnvironmentScope scope(&environment());
    load();
    postNotificationStoreDidRefresh();
}

void EventLocalStore::load() {
    {
        const Lock lock(dataLayerLock_);
        const auto waiting = writes_->waitingKeys();
        writes_->forgetFailures();
        std::erase_if(dataLayer_, [&](const auto& entry) { return !waiting.contains(entry.first); });
        {
            const Lock leftOutLock(leftOutMutex_);
            leftOut_.clear();
        }
        const std::vector<std::string> paths = packagePaths();
        dataLayer_.reserve(paths.size());
        SharedParts parts;
        for (LoadedPackage& package : reader_->readAll(paths)) {
            const std::string key =
                package.event ? (*package.event)->identifier() : keyForURL(*this, package.path);
            if (waiting.contains(key)) continue;
            // Another process may have been at it.
            if (!package.event) package = readUndisturbed(package.path).value_or(std::move(package));
            stamps_->set(key, package.stamp);
            if (package.event) {
                parts.share(**package.event);
                dataLayer_[key] = *std::move(package.event);
            } else if (package.exists) {
                leaveOut(package.path, package.event.error());
            }
        }
    }
    initialized_ = true;
}

std::vector<std::string> EventLocalStore::packagePaths() {
    FileSystem& files = environment().files();
    auto names = files.listDirectory(directory_);
    if (names && std::ranges::any_of(*names, isTemporaryName)) {
        removeStaleTemporaries(files, directory_);
        settleAsides(*names);
        names = files.listDirectory(directory_);
    }
    if (!names) {
        leaveOut(directory_, names.error());
        return {};
    }
    std::vector<std::string> paths;
    const std::string ending = "." + fileExtension_;
    for (const std::string& name : *names)
        if (name.size() > ending.size() && name.ends_with(ending)) paths.push_back(joinPath(directory_, name));
    return paths;
}

void EventLocalStore::settleAsides(const std::vector<std::string>& names) const {
    for (const std::string& name : names) {
        const std::string package = nameOfAside(name);
        if (pathExtension(package) != fileExtension_) continue;
        const auto settled = settle(joinPath(directory_, package));
        if (!settled) logError(typeName() + ": " + settled.error().description());
    }
}

std::size_t EventLocalStore::itemsCount() {
    const Lock lock(dataLayerLock_);
    return dataLayer_.size();
}

std::vector<std::shared_ptr<HHEvent>> EventLocalStore::allEvents() {
    return findEvent([](const HHEvent&) { return true; });
}

std::shared_ptr<HHEvent> EventLocalStore::eventByIdentifier(const std::optional<std::string>& identifier) {
    if (!identifier) return nullptr;
    const Lock lock(dataLayerLock_);
    return find(*identifier);
}

std::shared_ptr<HHEvent> EventLocalStore::eventByName(const std::string& name) {
    const Lock lock(dataLayerLock_);
    for (const auto& [key, event] : dataLayer_)
        if (event->name() == name) return event;
    return nullptr;
}

std::vector<std::shared_ptr<HHEvent>> EventLocalStore::findEvent(const std::function<bool(const HHEvent&)>& block) {
    const Lock lock(dataLayerLock_);
    std::vector<std::shared_ptr<HHEvent>> found;
    for (const auto& [key, event] : dataLayer_)
        if (block(*event)) found.push_back(event);
    return found;
}

void EventLocalStore::updateEvents(const std::vector<std::shared_ptr<HHEvent>>& events) {
    const EnvironmentScope scope(&environment());
    {
        const Lock lock(dataLayerLock_);
        for (const auto& event : events) {
            event->setVersion(CCSyncItemVersion::next());
            dataLayer_[event->identifier()] = event;
            // A copy: what is written is the state of now, whatever becomes of the record meanwhile.
            writes_->add(event->identifier(), std::make_shared<HHEvent>(*event));
        }
    }
    postDidUpdate(EventLocalStoreUpdatedKey, events);
    writes_->run();
}

void EventLocalStore::removeEvents(const std::vector<std::shared_ptr<HHEvent>>& events) {
    const EnvironmentScope scope(&environment());
    {
        const Lock lock(dataLayerLock_);
        for (const auto& event : events) {
            dataLayer_.erase(event->identifier());
            writes_->add(event->identifier(), nullptr);
        }
    }
    postDidUpdate(EventLocalStoreRemovedKey, events);
    writes_->run();
}

std::shared_ptr<const Image> EventLocalStore::loadIconImageAtEvent(const std::string& key) {
    return loadImage(key, EventStoreHelper::readIconImage);
}

std::shared_ptr<const Image> EventLocalStore::loadBackgroundImageAtEvent(const std::string& key) {
    return loadImage(key, EventStoreHelper::readBackgroundImage);
}

std::shared_ptr<const Image> EventLocalStore::loadImage(
    const std::string& key, Result<std::shared_ptr<const Image>> (*readImage)(const std::string& path)) {
    const EnvironmentScope scope(&environment());
    std::shared_ptr<const Image> image;
    const auto accessor = [&](const std::string& path) -> Result<> {
        image = TRY(readImage(path));
        return {};
    };
    const auto url = URLForKey(*this, key);
    Result<> done;
    if (url) {
        done = coordinator().coordinateReading(*url, FileCoordinator::ReadingOptions::withoutChanges, accessor);
    } else {
        done = std::unexpected(url.error());
    }
    if (!done) logError(std::string(kTypeName) + ": " + done.error().description());
    return image;
}

Result<> EventLocalStore::flush() {
    const EnvironmentScope scope(&environment());
    return writes_->flush();
}

std::vector<EventLocalStore::LeftOut> EventLocalStore::leftOut() {
    const Lock lock(leftOutMutex_);
    std::vector<LeftOut> files;
    for (const auto& [path, reason] : leftOut_) files.push_back({path, reason});
    return files;
}

void EventLocalStore::leaveOut(const std::string& path, const Error& error) {
    logError(std::string(kTypeName) + ": " + path + " is left out: " + error.description());
    const Lock lock(leftOutMutex_);
    leftOut_[path] = error.description();
}

void EventLocalStore::forgetLeftOut(const std::string& path) {
    const Lock lock(leftOutMutex_);
    leftOut_.erase(path);
}

bool EventLocalStore::initialized() const { return initialized_; }

std::string EventLocalStore::keyForURL(CCFilesKeyStore&, const std::string& url) const {
    return EventStoreHelper::itemKeyForFileURL(url);
}

Result<std::string> EventLocalStore::URLForKey(CCFilesKeyStore&, const std::string& key) const {
    if (const char* const fault = faultOfKey(key))
        return failure(kErrorDomain, 0, {{"key", printable(key)}, {"reason", fault}});
    return pathOfKey(key);
}

Result<Object> EventLocalStore::readValueFromURL(CCFilesKeyStore&, const std::string& url) {
    const EnvironmentScope scope(&environment());
    return TRY(reader_->read(url).event);
}

Result<> EventLocalStore::writeValue(CCFilesKeyStore&, const Object& value, const std::string& forURL) {
    const EnvironmentScope scope(&environment());
    const auto event = value.as<HHEvent>();
    if (!event) return failure(kErrorDomain, 0, {{"path", forURL}, {"reason", "the value is no event"}});
    return EventStoreHelper::writeEvent(*event, forURL);
}

void EventLocalStore::storeValueDidUpdate(const std::string& key) {
    const std::string path = pathOfKey(key);
    EventStoreHelper::forgetImages(path);
    const auto stamp = PackageStamp::ofPackage(environment().files(), path);
    stamps_->set(key, stamp.value_or(std::nullopt));
    unreadable_->forget(path);
    forgetLeftOut(path);
    writes_->fileIsDone(key);
}

void EventLocalStore::storeValueDidRemove(const std::string& key) {
    stamps_->set(key, std::nullopt);
    unreadable_->forget(pathOfKey(key));
    forgetLeftOut(pathOfKey(key));
    writes_->fileIsDone(key);
}

std::string EventLocalStore::pathOfKey(const std::string& key) const {
    return joinPath(directory_, key + "." + fileExtension_);
}

void EventLocalStore::put(const std::string& key, const std::shared_ptr<HHEvent>& event) {
    dataLayer_[key] = event;
    writes_->noteChange(key);
    writes_->forgetFailure(key);
}

std::shared_ptr<HHEvent> EventLocalStore::take(const std::string& key) {
    writes_->noteChange(key);
    writes_->forgetFailure(key);
    const auto node = dataLayer_.extract(key);
    return node ? node.mapped() : nullptr;
}

std::shared_ptr<HHEvent> EventLocalStore::find(const std::string& key) {
    const auto found = dataLayer_.find(key);
    return found == dataLayer_.end() ? nullptr : found->second;
}

void EventLocalStore::postDidUpdate(const char* what, const std::vector<std::shared_ptr<HHEvent>>& events) {
    environment().notifications().post(EventLocalStoreDidUpdateNotification, storeIdentity(*this),
                                       {{what, Array(events.begin(), events.end())}});
}

}  // namespace dayward
