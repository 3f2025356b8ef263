// A table of the event list between its manager and the view that draws it: shape, headers, the cells of
// the rows in sight. What the manager tells goes on to the view message by message.
//
// A view asks for the shape, then for a cell of each row that comes into sight (showRow) and tells when
// the row has left (hideRow). The cells stay current by themselves. Main thread only.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "Classes/Interface/List/EventTableManager.h"
#include "Classes/Interface/List/TableView.h"
#include "platform/PixelSize.h"

namespace dayward {

/// Who draws the table.
class EventListView : public TableUpdates {
public:
    /// The cell of a row in sight shows something else than before, a picture that came late among it.
    /// The row stays where it is: no animation.
    virtual void refreshRow(IndexPath path) = 0;
    virtual void deselectRow(IndexPath path, bool animated) = 0;
    /// How far the list is scrolled, in points; negative while it is pulled down beyond its top.
    [[nodiscard]] virtual double contentOffsetY() const = 0;
};

class EventListTable final : private TableView {
public:
    using Contents = EventTableManager::Contents;

    explicit EventListTable(Contents contents) : contents_(contents) {}
    ~EventListTable() override;
    EventListTable(const EventListTable&) = delete;
    EventListTable& operator=(const EventListTable&) = delete;

    /// Not owned; null for none.
    void setView(EventListView* view) { view_ = view; }
    /// A new manager of that order takes the place of the one that was; its rows are those of `objects`.
    /// The view is told one reload.
    void configure(EventSortType sortType, std::vector<EventRow> objects);
    /// Other rows in the same order. The view is told one reload.
    void setObjects(std::vector<EventRow> objects) { manager_->setObjects(std::move(objects)); }
    /// Null before configure().
    [[nodiscard]] EventTableManager* manager() const { return manager_.get(); }

    // What there is. A path without a row stops the process.

    [[nodiscard]] std::size_t numberOfSections() const;
    [[nodiscard]] std::size_t numberOfRowsInSection(std::size_t section) const;
    [[nodiscard]] bool isEmpty() const { return numberOfSections() == 0; }
    /// The text of the header; nothing in the orders without headers. The blanks that
    /// titleForHeaderInSection() puts before it are left to the view.
    [[nodiscard]] std::optional<std::string> headerText(std::size_t section) const;
    /// In points; 0 without headers.
    [[nodiscard]] double headerHeight(std::size_t section) const;
    [[nodiscard]] static double rowHeight() { return EventTableManager::kRowHeight; }
    [[nodiscard]] EventRow event(IndexPath path) const;
    [[nodiscard]] std::optional<IndexPath> pathOfEvent(const std::string& key) const;
    [[nodiscard]] bool hasRow(IndexPath path) const;

    // Moving a row within its section in the order made by hand; false where that cannot be.

    [[nodiscard]] bool canMoveRow(IndexPath path) const;
    /// The view has moved it.
    bool didMoveRow(IndexPath from, IndexPath to);
    /// The view is told.
    bool moveRowTo(IndexPath from, IndexPath to);

    // Rows in sight.

    /// The row comes into sight at that size: its cell with its present content; the pictures follow.
    /// Rows that are not in sight any more are to be hidden, after a reload as well.
    std::shared_ptr<const EventTableViewCell> showRow(IndexPath path, PixelSize size);
    void hideRow(const std::string& eventKey);
    /// Writes the present content into the cells, and has backgrounds made that are others now.
    void refreshVisibleRows();
    /// The view is told each section whose header is another text on another day.
    void refreshHeaders();
    /// Has the pictures of a row made that will soon come into sight.
    void preheat(IndexPath path, PixelSize size) const;

private:
    struct Shown {
        EventRow event;
        std::shared_ptr<EventTableViewCell> cell;
        PixelSize size;
    };

    void cellDidChange(const std::string& eventKey);
    void reconfigure(const Shown& row);

    // TableView
    void reloadData() override;
    void insertRow(IndexPath path) override;
    void reloadRow(IndexPath path) override;
    void deleteRow(IndexPath path) override;
    void moveRow(IndexPath from, IndexPath to) override;
    void insertSection(std::size_t index) override;
    void reloadSection(std::size_t index) override;
    void deleteSection(std::size_t index) override;
    void moveSection(std::size_t from, std::size_t to) override;
    void deselectRow(IndexPath path, bool animated) override;
    [[nodiscard]] std::vector<std::shared_ptr<EventTableViewCell>> visibleCells() override;
    [[nodiscard]] std::optional<IndexPath> indexPathForCell(const EventTableViewCell& cell) override;
    [[nodiscard]] std::shared_ptr<EventTableViewCell> dequeueReusableCell(const std::string& identifier) override;
    [[nodiscard]] double contentOffsetY() const override;

    const Contents contents_;
    EventListView* view_ = nullptr;
    std::unique_ptr<EventTableManager> manager_;
    std::map<std::string, Shown> shown_;
    const std::thread::id mainThread_ = std::this_thread::get_id();
    const std::shared_ptr<int> life_ = std::make_shared<int>();  ///< what queued calls hold weakly
};

}  // namespace dayward
