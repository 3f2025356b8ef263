// Chooses the order of the event list. Main thread only.
#pragma once

#include <functional>

#include "Classes/Interface/Info/ChoiceViewController.h"
#include "Classes/Interface/List/EventTableManager.h"

namespace dayward {

class EventsSortViewController final : public ChoiceViewController {
public:
    using Completion = std::function<void(EventSortType)>;

    /// The completion gets the tapped order, changed or not.
    EventsSortViewController(EventSortType selectedValue, const Completion& completion);

    /// Stores the tapped order, but not the one that is on already.
    static std::shared_ptr<EventsSortViewController> forSettings();
};

}  // namespace dayward
