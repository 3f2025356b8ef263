#include "Classes/Interface/Info/EventsByName.h"

#include <algorithm>

#include "Classes/Event/EventLocalStore.h"
#include "Classes/Event/HHEvent.h"
#include "platform/Collation.h"
#include "platform/Strings.h"

namespace dayward {

std::string listedName(const HHEvent& event) {
    return event.name() && !event.name()->empty() ? *event.name() : localized("No name");
}

std::vector<std::shared_ptr<HHEvent>> eventsByName() {
    auto events = EventLocalStore::shared().allEvents();
    std::ranges::sort(events, {}, [](const auto& event) { return event->identifier(); });
    std::ranges::stable_sort(events, [](const auto& one, const auto& other) {
        return plainStringOrder(listedName(*one), listedName(*other)) < 0;
    });
    return events;
}

}  // namespace dayward
