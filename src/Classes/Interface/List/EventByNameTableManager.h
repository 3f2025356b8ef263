// The list by name: one section, unnamed events first, capitals before small letters.
#pragma once

#include "Classes/Interface/List/EventTableManager.h"

namespace dayward {

class EventByNameTableManager final : public EventTableManager {
public:
    using EventTableManager::EventTableManager;

protected:
    [[nodiscard]] RowComparator objectsSortComparatorForSection(const EventSection& section) const override;
};

}  // namespace dayward
