#include "cli/ListSections.h"

#include "Classes/Event/EventLocalStore.h"
#include "Classes/Interface/List/EventSearch.h"
#include "Classes/Interface/List/EventTableManager.h"
#include "Classes/Settings/AppSettings.h"

namespace dayward {

std::vector<ListSection> listSections(const ListRequest& request) {
    std::vector<std::shared_ptr<HHEvent>> events = EventLocalStore::shared().allEvents();
    if (request.search) events = eventsMatching(*request.search, std::move(events));
    const EventSortType type = eventSortType(request.sortType.value_or(AppSettings::tableSortType()));
    const auto manager = EventTableManager::makeForSortType(type, nullptr);
    manager->setObjects(std::move(events));
    std::vector<ListSection> sections;
    for (std::size_t index = 0; index < manager->numberOfSections(); ++index) {
        ListSection& section = sections.emplace_back();
        section.events = manager->objectsInSectionAtIndex(index);
        const EventSection object = manager->sectionAtIndex(index);
        if (!object) continue;
        section.title = object->text();
        section.type = static_cast<std::int64_t>(object->type);
        section.year = object->year;
        section.month = object->month;
    }
    return sections;
}

}  // namespace dayward
