#include "Classes/Interface/List/EventSearch.h"

#include "Classes/Event/HHEvent.h"
#include "platform/TextSearch.h"

namespace dayward {

std::vector<std::shared_ptr<HHEvent>> eventsMatching(std::string_view text, std::vector<std::shared_ptr<HHEvent>> events) {
    std::erase_if(events, [&](const std::shared_ptr<HHEvent>& event) {
        return !containsIgnoringCase(event->name().value_or(""), text) &&
               !containsIgnoringCase(event->note().value_or(""), text);
    });
    return events;
}

}  // namespace dayward
