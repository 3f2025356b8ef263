#include "cli/EventLookup.h"

#include <algorithm>

#include "Classes/Category/CategoryLocalStore.h"
#include "Classes/Category/EventCategory.h"
#include "Classes/Event/EventLocalStore.h"
#include "Classes/Event/HHEvent.h"
#include "cli/CategoryLookup.h"

namespace dayward {

Result<std::shared_ptr<HHEvent>> eventNamed(const std::string& text) {
    EventLocalStore& store = EventLocalStore::shared();
    if (auto event = store.eventByIdentifier(text)) return event;
    auto named = store.findEvent([&](const HHEvent& event) { return event.name() == text; });
    if (named.size() == 1) return named.front();
    if (named.empty()) return failure("there is no event '" + text + "'");
    return failure("there are " + std::to_string(named.size()) + " events of the name '" + text + "'; give an identifier");
}

Result<std::vector<std::shared_ptr<HHEvent>>> eventsNamed(const std::vector<std::string>& texts) {
    std::vector<std::shared_ptr<HHEvent>> events;
    for (const std::string& text : texts) {
        auto event = TRY(eventNamed(text));
        if (std::ranges::find(events, event) == events.end()) events.push_back(std::move(event));
    }
    return events;
}

Result<std::shared_ptr<EventCategory>> categoryNamed(const std::string& text) {
    CategoryLocalStore& store = CategoryLocalStore::shared();
    if (auto category = store.getCategory(text)) return category;
    std::vector<std::shared_ptr<EventCategory>> named = store.getCategories();
    std::erase_if(named, [&](const auto& category) { return category->name != text; });
    if (named.size() == 1) return named.front();
    if (named.empty()) return failure("there is no category '" + text + "'");
    return failure("there are " + std::to_string(named.size()) + " categories of the name '" + text + "'; give a key");
}

}  // namespace dayward
