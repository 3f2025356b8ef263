#include "Classes/Interface/Events/RemovedEvents.h"

#include <algorithm>
#include <string>
#include <utility>

#include "Classes/Event/EventLocalStore.h"
#include "Classes/Event/EventWithPictures.h"
#include "Classes/Event/HHEvent.h"
#include "Classes/Settings/AppSettings.h"
#include "platform/Environment.h"

namespace dayward {

namespace {

std::optional<std::size_t> placeInOrder(const std::string& key) {
    const std::vector<std::string> keys = AppSettings::tableSortIdentifiers();
    const auto found = std::ranges::find(keys, key);
    if (found == keys.end()) return std::nullopt;
    return static_cast<std::size_t>(found - keys.begin());
}

void putInOrder(const std::string& key, std::size_t place) {
    std::vector<std::string> keys = AppSettings::tableSortIdentifiers();
    if (std::ranges::find(keys, key) != keys.end()) return;
    keys.insert(keys.begin() + static_cast<std::ptrdiff_t>(std::min(place, keys.size())), key);
    AppSettings::setTableSortIdentifiers(keys);
}

bool isStored(const HHEvent& event) {
    return EventLocalStore::shared().eventByIdentifier(event.identifier()) != nullptr;
}

}  // namespace

bool RemovedEvents::isKept(const Removed& removed) { return Environment::current().now() - removed.when <= kTime; }

void RemovedEvents::keep(const HHEvent& event) {
    forgetOld();
    removed_.push_back({copyWithPictures(event), placeInOrder(event.identifier()), Environment::current().now()});
}

const RemovedEvents::Removed* RemovedEvents::lastRemoved() const {
    const auto found = std::ranges::find_if(removed_.rbegin(), removed_.rend(),
                                            [](const Removed& each) { return isKept(each) && !isStored(*each.event); });
    return found != removed_.rend() ? &*found : nullptr;
}

std::shared_ptr<const HHEvent> RemovedEvents::last() const {
    const Removed* removed = lastRemoved();
    return removed != nullptr ? removed->event : nullptr;
}

TimeInterval RemovedEvents::timeLeft() const {
    const Removed* removed = lastRemoved();
    if (removed == nullptr) return TimeInterval(0);
    return std::min(kTime, kTime - (Environment::current().now() - removed->when));  // the clock may have gone back
}

std::shared_ptr<HHEvent> RemovedEvents::putBack() {
    forgetOld();
    while (!removed_.empty()) {
        const Removed last = std::move(removed_.back());
        removed_.pop_back();
        if (isStored(*last.event)) continue;
        if (last.place) putInOrder(last.event->identifier(), *last.place);
        EventLocalStore::shared().updateEvent(last.event);
        return last.event;
    }
    return nullptr;
}

void RemovedEvents::forgetOld() {
    std::erase_if(removed_, [](const Removed& each) { return !isKept(each); });
}

}  // namespace dayward
