// The list in the user's own order, kept in the settings as the events' keys. Events that the order does
// not know come first.
#pragma once

#include <atomic>
#include <unordered_map>

#include "Classes/Interface/List/EventTableManager.h"

namespace dayward {

/// The positions of events in a stored order.
class CustomOrder {
public:
    explicit CustomOrder(std::vector<std::string> keys);
    /// Of the first entry equal to the key. A key with a blank, as a conflict copy's, else takes the
    /// first entry that contains what stands before its first blank. Nothing where neither is there.
    [[nodiscard]] std::optional<std::size_t> positionOf(const std::string& key) const;

private:
    std::vector<std::string> keys_;
    std::unordered_map<std::string, std::size_t> positions_;
};

class EventByCustomTableManager final : public EventTableManager {
public:
    using EventTableManager::EventTableManager;

    // Each writes the order that comes of it to the settings, unless the rows are those of a search.
    void appendObject(EventRow event) override;
    void updateObject(EventRow event) override;
    void removeObject(const EventRow& event) override;

    [[nodiscard]] bool canMoveRowAtIndexPath(IndexPath) const override { return contents() == Contents::all; }
    /// The table has moved the row already: the list follows without a message, and the order is written.
    void moveRowAtIndexPath(IndexPath from, IndexPath to) override;
    using EventTableManager::moveRowAtIndexPath;

protected:
    [[nodiscard]] RowComparator objectsSortComparatorForSection(const EventSection& section) const override;
    [[nodiscard]] std::vector<EventRow> sortObjects(std::vector<EventRow> events,
                                                    const EventSection& forSection) const override;
    [[nodiscard]] std::int64_t orderStamp() const override { return stamp_; }

private:
    void saveOrder();

    std::atomic<std::int64_t> stamp_ = 0;  ///< counts the orders written
};

}  // namespace dayward
