#include "Classes/Interface/List/EventByNameTableManager.h"

#include "platform/Collation.h"

namespace dayward {

EventTableManager::RowComparator EventByNameTableManager::objectsSortComparatorForSection(const EventSection&) const {
    return [](const EventRow& a, const EventRow& b) {
        if (!b->name()) return false;
        if (!a->name()) return true;
        return plainStringOrder(*a->name(), *b->name()) < 0;
    };
}

}  // namespace dayward
