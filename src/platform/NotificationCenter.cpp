#include "platform/NotificationCenter.h"

#include <algorithm>
#include <condition_variable>
#include <thread>
#include <utility>
#include <vector>

namespace dayward {

/// One observer. Its lock is never held while the handler runs: two observers that post to each
/// other from two threads must not wait for each other.
struct NotificationCenter::Observation::Entry {
    Entry(std::string observedName, Handler observer, const void* sender)
        : name(std::move(observedName)), object(sender), handler(std::move(observer)) {}

    const std::string name;
    const void* const object;
    Mutex mutex;
    std::condition_variable_any left;
    Handler handler DAYWARD_GUARDED_BY(mutex);
    bool active DAYWARD_GUARDED_BY(mutex) = true;
    std::vector<std::thread::id> running DAYWARD_GUARDED_BY(mutex);

    void call(const Notification& notification) {
        const Handler* toCall = nullptr;
        {
            const Lock lock(mutex);
            if (!active) return;
            running.push_back(std::this_thread::get_id());
            // Nobody replaces the handler while a thread is listed as running.
            toCall = &handler;
        }
        (*toCall)(notification);
        leave();
    }

    void leave() {
        Handler dropped;
        const Lock lock(mutex);
        running.erase(std::ranges::find(running, std::this_thread::get_id()));
        dropped = takeUnusedHandler();
        left.notify_all();
    }

    void end() {
        Handler dropped;
        const Lock lock(mutex);
        active = false;
        // A thread that ends the observation from its own handler does not wait, not even for
        // others: they may be doing the same.
        const auto self = std::this_thread::get_id();
        while (!running.empty() && std::ranges::find(running, self) == running.end()) left.wait(mutex);
        dropped = takeUnusedHandler();
    }

    Handler takeUnusedHandler() DAYWARD_REQUIRES(mutex) {
        return !active && running.empty() ? std::exchange(handler, nullptr) : nullptr;
    }
};

NotificationCenter::Observation::Observation(Observation&& other) noexcept
    : entry_(std::move(other.entry_)), center_(std::move(other.center_)) {}

NotificationCenter::Observation& NotificationCenter::Observation::operator=(Observation&& other) noexcept {
    if (this == &other) return *this;
    end();
    entry_ = std::move(other.entry_);
    center_ = std::move(other.center_);
    return *this;
}

NotificationCenter::Observation::~Observation() { end(); }

void NotificationCenter::Observation::end() {
    const auto entry = std::exchange(entry_, nullptr);
    if (!entry) return;
    if (const auto center = center_.lock()) {
        const Lock lock(center->mutex_);
        const auto [first, last] = center->entries_.equal_range(entry->name);
        const auto found = std::find_if(first, last, [&](const auto& item) { return item.second == entry; });
        if (found != last) center->entries_.erase(found);
    }
    entry->end();
}

NotificationCenter::Observation NotificationCenter::addObserver(std::string name, Handler handler, const void* object) {
    Observation observation;
    observation.entry_ = std::make_shared<Observation::Entry>(name, std::move(handler), object);
    observation.center_ = weak_from_this();
    const Lock lock(mutex_);
    entries_.emplace(std::move(name), observation.entry_);
    return observation;
}

void NotificationCenter::post(const std::string& name, const void* object, Dictionary userInfo) {
    std::vector<std::shared_ptr<Observation::Entry>> observers;
    {
        const Lock lock(mutex_);
        const auto [first, last] = entries_.equal_range(name);
        for (auto item = first; item != last; ++item) {
            const void* const wanted = item->second->object;
            if (wanted == nullptr || wanted == object) observers.push_back(item->second);
        }
    }
    const Notification notification{name, object, std::move(userInfo)};
    for (const auto& observer : observers) observer->call(notification);
}

}  // namespace dayward
