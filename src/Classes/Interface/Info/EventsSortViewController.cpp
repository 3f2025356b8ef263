#include "Classes/Interface/Info/EventsSortViewController.h"

#include <array>

#include "Classes/Settings/AppSettings.h"
#include "platform/Strings.h"

namespace dayward {

namespace {

// A mode's place is its stored number.
constexpr std::array kModes{EventSortType::byDate, EventSortType::byName, EventSortType::byCustom};

std::vector<std::string> modeLabels() {
    std::vector<std::string> labels;
    for (const EventSortType mode : kModes) labels.push_back(eventSortLabel(mode));
    return labels;
}

}  // namespace

EventsSortViewController::EventsSortViewController(EventSortType selectedValue, const Completion& completion)
    : ChoiceViewController(localized("Sort"), modeLabels(), static_cast<std::size_t>(selectedValue),
                           [completion](std::size_t place) { completion(kModes[place]); }) {}

std::shared_ptr<EventsSortViewController> EventsSortViewController::forSettings() {
    return std::make_shared<EventsSortViewController>(
        eventSortType(AppSettings::tableSortType()), [](EventSortType chosen) {
            if (chosen == eventSortType(AppSettings::tableSortType())) return;
            AppSettings::setTableSortType(static_cast<std::int64_t>(chosen));
        });
}

}  // namespace dayward
