#include "Submodules/CorpLibrary2/Foundation/CCKeyStorage.h"

#include "Submodules/CorpLibrary2/Foundation/ArchivedFile.h"
#include "Submodules/CorpLibrary2/Foundation/MergedDictionary.h"
#include "platform/DispatchQueue.h"
#include "platform/Environment.h"
#include "platform/Log.h"
#include "platform/Mutex.h"
#include "platform/UserDefaults.h"

namespace dayward {

namespace {

constexpr TimeInterval kDefaultTimeOutWrite{0.01};

Dictionary dictionaryOf(const Object& object) {
    const auto* dictionary = object.dictionary();
    return dictionary ? *dictionary : Dictionary();
}

Dictionary loadFile(Environment& environment, const std::string& path) {
    const auto root = readArchivedFile(environment, path);
    if (!root) {
        environment.log().error("CCKeyStorage read: " + path + ", error: " + root.error().description());
        return {};
    }
    return *root ? dictionaryOf(**root) : Dictionary();
}

}  // namespace

/// Shared with the blocks that write, which may outlive the storage.
struct CCKeyStorage::State {
    State(Environment& environment_, std::string filePath_, std::string defaultsKey_, Dictionary loaded)
        : environment(environment_),
          filePath(std::move(filePath_)),
          defaultsKey(std::move(defaultsKey_)),
          writeQueue(environment_.queues().makeSerial("CCKeyStorage.write")),
          data(std::move(loaded)) {}

    Environment& environment;
    const std::string filePath;     ///< empty for the defaults source
    const std::string defaultsKey;  ///< empty for the file source
    const std::shared_ptr<DispatchQueue> writeQueue;

    Mutex mutex;
    MergedDictionary data DAYWARD_GUARDED_BY(mutex);
    std::function<void(const Error&)> didFail DAYWARD_GUARDED_BY(mutex);
    bool hasFailed DAYWARD_GUARDED_BY(mutex) = false;  ///< the latest write
    TimeInterval timeOutWrite DAYWARD_GUARDED_BY(mutex) = kDefaultTimeOutWrite;
    /// The latest write request that is pending; 0 at rest.
    std::int64_t writeIndex DAYWARD_GUARDED_BY(mutex) = 0;
    /// The number given last. It never starts again, so that no request is taken for an older one.
    std::int64_t lastWriteIndex DAYWARD_GUARDED_BY(mutex) = 0;

    Result<Dictionary> store(const MergedDictionary::Changes& changes, const Dictionary& values) const;
};

Result<Dictionary> CCKeyStorage::State::store(const MergedDictionary::Changes& changes,
                                              const Dictionary& values) const {
    const auto merged = [&](const std::optional<Object>& present) -> Object {
        const auto* dictionary = present ? present->dictionary() : nullptr;
        return dictionary ? changes.appliedTo(*dictionary) : values;
    };
    if (!filePath.empty()) return dictionaryOf(TRY(updateArchivedFile(environment, filePath, merged)));
    auto& defaults = environment.standardDefaults();
    TRY_VOID(defaults.synchronize());  // for what another process wrote under the key
    Object root = merged(defaults.objectForKey(defaultsKey));
    defaults.setObject(root, defaultsKey);
    TRY_VOID(defaults.synchronize());
    return dictionaryOf(root);
}

CCKeyStorage::CCKeyStorage(const KeyStorageFile& file)
    : state_(std::make_shared<State>(Environment::current(), file.path, std::string(),
                                     loadFile(Environment::current(), file.path))) {}

CCKeyStorage::CCKeyStorage(const KeyStorageDefaultsKey& key)
    : state_(std::make_shared<State>(Environment::current(), std::string(), key.key,
                                     dictionaryOf(Environment::current().standardDefaults().objectForKey(key.key)))) {}

CCKeyStorage::~CCKeyStorage() {
    bool pending = false;
    {
        const Lock lock(state_->mutex);
        pending = state_->writeIndex != 0;
    }
    if (pending) static_cast<void>(write());  // logged there
}

CCKeyStorage::SourceType CCKeyStorage::sourceType() const {
    return state_->filePath.empty() ? SourceType::userDefaults : SourceType::file;
}

std::optional<std::string> CCKeyStorage::fileURL() const {
    return sourceType() == SourceType::file ? std::optional(state_->filePath) : std::nullopt;
}

std::optional<std::string> CCKeyStorage::userDefaultsKey() const {
    return sourceType() == SourceType::userDefaults ? std::optional(state_->defaultsKey) : std::nullopt;
}

TimeInterval CCKeyStorage::timeOutWrite() const {
    const Lock lock(state_->mutex);
    return state_->timeOutWrite;
}

void CCKeyStorage::setTimeOutWrite(TimeInterval timeOut) {
    const Lock lock(state_->mutex);
    state_->timeOutWrite = timeOut;
}

void CCKeyStorage::setWriteFailureHandler(std::function<void(const Error&)> handler) {
    const Lock lock(state_->mutex);
    state_->didFail = std::move(handler);
}

Object CCKeyStorage::storedObject(const std::string& key) const {
    const Lock lock(state_->mutex);
    return state_->data.valueForKey(key);
}

Object CCKeyStorage::valueForKey(const std::string& key) const { return storedObject(key); }

void CCKeyStorage::setStoredObject(Object object, const std::string& forKey) {
    {
        const Lock lock(state_->mutex);
        if (!state_->data.setValue(std::move(object), forKey)) return;
    }
    setNeedsWrite();
}

void CCKeyStorage::setValue(Object value, const std::string& forKey) { setStoredObject(std::move(value), forKey); }

Object CCKeyStorage::removeValueForKey(const std::string& key) {
    Object removed = storedObject(key);
    setStoredObject(nullptr, key);
    return removed;
}

void CCKeyStorage::removeAll() {
    {
        const Lock lock(state_->mutex);
        state_->data.removeAll();
    }
    setNeedsWrite();
}

bool CCKeyStorage::containsKey(const std::string& key) const { return !storedObject(key).isNull(); }

std::size_t CCKeyStorage::count() const {
    const Lock lock(state_->mutex);
    return state_->data.values().size();
}

bool CCKeyStorage::isEmpty() const { return count() == 0; }

Dictionary CCKeyStorage::values() const {
    const Lock lock(state_->mutex);
    return state_->data.values();
}

void CCKeyStorage::setNeedsWrite() {
    std::int64_t index = 0;
    TimeInterval delay;
    {
        const Lock lock(state_->mutex);
        index = state_->writeIndex = ++state_->lastWriteIndex;
        delay = state_->timeOutWrite;
    }
    state_->environment.queues().main().after(delay, [weakState = std::weak_ptr(state_), index] {
        const auto state = weakState.lock();
        if (!state) return;
        {
            const Lock lock(state->mutex);
            if (state->writeIndex != index) return;
            state->writeIndex = 0;
        }
        state->writeQueue->async([state] { static_cast<void>(persist(*state)); });
    });
}

Result<> CCKeyStorage::write() {
    {
        const Lock lock(state_->mutex);
        state_->writeIndex = 0;
    }
    // The storage may be destroyed with its environment, where none is in scope.
    const EnvironmentScope scope(&state_->environment);
    Result<> written;
    state_->writeQueue->sync([state = state_, &written] { written = persist(*state); });
    return written;
}

void CCKeyStorage::retryFailedWrite() {
    state_->writeQueue->async([state = state_] {
        bool hasFailed = false;
        {
            const Lock lock(state->mutex);
            hasFailed = state->hasFailed;
        }
        if (hasFailed) static_cast<void>(persist(*state, Telling::no));
    });
}

Result<> CCKeyStorage::persist(State& state, Telling telling) {
    MergedDictionary::Changes changes;
    Dictionary values;
    {
        const Lock lock(state.mutex);
        changes = state.data.takeChanges();
        values = state.data.values();
    }
    auto written = state.store(changes, values);
    std::function<void(const Error&)> didFail;
    {
        const Lock lock(state.mutex);
        state.hasFailed = !written;
        if (written) {
            state.data.adopt(std::move(*written));
            return {};
        }
        state.data.restoreChanges(std::move(changes));
        if (telling == Telling::yes) didFail = state.didFail;
    }
    const std::string place = state.filePath.empty() ? state.defaultsKey : state.filePath;
    state.environment.log().error("CCKeyStorage write: " + place + ", error: " + written.error().description());
    if (didFail) didFail(written.error());
    return std::unexpected(std::move(written.error()));
}

}  // namespace dayward
