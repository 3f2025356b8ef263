// What a manager of the event list needs of the view that shows it. Each change comes as one update,
// to be animated; the view asks the manager for the rows. Called on the thread that changes the list.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Classes/Interface/Screens/TableUpdates.h"

namespace dayward {

class EventTableViewCell;

class TableView : public TableUpdates {
public:
    virtual void deselectRow(IndexPath path, bool animated) = 0;

    [[nodiscard]] virtual std::vector<std::shared_ptr<EventTableViewCell>> visibleCells() = 0;
    /// Nothing for a row that is on its way out.
    [[nodiscard]] virtual std::optional<IndexPath> indexPathForCell(const EventTableViewCell& cell) = 0;
    /// A row that is free for reuse, or a new one.
    [[nodiscard]] virtual std::shared_ptr<EventTableViewCell> dequeueReusableCell(const std::string& identifier) = 0;
    /// How far the list is scrolled; negative while it is pulled down beyond its top.
    [[nodiscard]] virtual double contentOffsetY() const = 0;
};

}  // namespace dayward
