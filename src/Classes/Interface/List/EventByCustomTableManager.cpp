#include "Classes/Interface/List/EventByCustomTableManager.h"

#include <algorithm>

#include "Classes/Settings/AppSettings.h"

namespace dayward {

namespace {

std::shared_ptr<const CustomOrder> storedOrder() {
    return std::make_shared<const CustomOrder>(AppSettings::tableSortIdentifiers());
}

}  // namespace

CustomOrder::CustomOrder(std::vector<std::string> keys) : keys_(std::move(keys)) {
    for (std::size_t index = 0; index < keys_.size(); ++index) positions_.emplace(keys_[index], index);
}

std::optional<std::size_t> CustomOrder::positionOf(const std::string& key) const {
    if (const auto found = positions_.find(key); found != positions_.end()) return found->second;
    const std::size_t blank = key.find(' ');
    if (blank == std::string::npos) return std::nullopt;
    const std::string_view source = std::string_view(key).substr(0, blank);
    const auto found = std::ranges::find_if(keys_, [&](const std::string& entry) { return entry.contains(source); });
    if (found == keys_.end()) return std::nullopt;
    return static_cast<std::size_t>(found - keys_.begin());
}

void EventByCustomTableManager::appendObject(EventRow event) {
    EventTableManager::appendObject(std::move(event));
    saveOrder();
}

void EventByCustomTableManager::updateObject(EventRow event) {
    EventTableManager::updateObject(std::move(event));
    saveOrder();
}

void EventByCustomTableManager::removeObject(const EventRow& event) {
    EventTableManager::removeObject(event);
    saveOrder();
}

void EventByCustomTableManager::moveRowAtIndexPath(IndexPath from, IndexPath to) {
    moveObjectSilently(from, to);
    saveOrder();
}

void EventByCustomTableManager::saveOrder() {
    if (contents() == Contents::found) return;
    std::vector<std::string> keys;
    for (const EventRow& event : objects()) keys.push_back(event->identifier());
    AppSettings::setTableSortIdentifiers(keys);
    ++stamp_;
}

EventTableManager::RowComparator EventByCustomTableManager::objectsSortComparatorForSection(const EventSection&) const {
    return [order = storedOrder()](const EventRow& a, const EventRow& b) {
        const auto positionOfA = order->positionOf(a->identifier());
        if (!positionOfA) return true;
        const auto positionOfB = order->positionOf(b->identifier());
        return positionOfB && *positionOfA < *positionOfB;
    };
}

std::vector<EventRow> EventByCustomTableManager::sortObjects(std::vector<EventRow> events, const EventSection&) const {
    const auto order = storedOrder();
    std::vector<std::pair<std::optional<std::size_t>, EventRow>> placed;
    placed.reserve(events.size());
    for (EventRow& event : events) {
        const auto position = order->positionOf(event->identifier());
        placed.emplace_back(position, std::move(event));
    }
    // An absent position is less than any.
    std::ranges::stable_sort(placed, [](const auto& a, const auto& b) { return a.first < b.first; });
    std::ranges::transform(placed, events.begin(), [](auto& entry) { return std::move(entry.second); });
    return events;
}

}  // namespace dayward
