// Makes the new event that the editor starts from, and the examples of a new installation.
#pragma once

#include <memory>
#include <vector>

#include "Classes/Event/HHEvent.h"

namespace dayward {

class EventFactory {
public:
    /// A new event with the user's defaults, in the default category. Where that category's background
    /// is random, one is picked and kept.
    static std::shared_ptr<HHEvent> createEvent();
    /// The examples in the order of the list. Makes the category "Holiday" on the way.
    static std::vector<std::shared_ptr<HHEvent>> getDefaultEvents();
};

}  // namespace dayward
