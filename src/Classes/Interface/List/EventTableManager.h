// The events of the store as rows and sections of the list: the common part of the three sort modes.
// It is its own delegate and passes each message on to its table as one update.
//
// Changes come on the main thread in practice and hold the list's lock (see CCTableDataSource).
#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "Classes/Event/HHEvent.h"
#include "Classes/Interface/List/HHDTDSContainer.h"
#include "Submodules/CorpLibrary2/Foundation/CCTableDataSource.h"
#include "platform/PixelSize.h"

namespace dayward {

class EventTableViewCell;
class TableView;

/// A row; rows are equal when their events' identifiers are.
using EventRow = std::shared_ptr<HHEvent>;
/// The section of a row; nothing in the modes that have one section.
using EventSection = std::optional<HHDTDSContainer>;

struct EventTableTraits {
    struct RowHash {
        std::size_t operator()(const EventRow& row) const { return std::hash<std::string>{}(row->identifier()); }
    };
    struct RowEqual {
        bool operator()(const EventRow& a, const EventRow& b) const { return *a == *b; }
    };
    struct SectionHash {
        std::size_t operator()(const EventSection& section) const { return section ? section->hash() : 0; }
    };
    using SectionEqual = std::equal_to<EventSection>;
};

/// Posted when a row is selected; object the manager, user info "item": the event.
inline constexpr const char* EventTableManagerDidSelectItemNotification = "EventTableManagerDidSelectItemNotification";
inline constexpr const char* EventTableManagerItemKey = "item";

/// The stored sort modes, of which the two low bits count.
enum class EventSortType : std::int64_t { byDate = 0, byName = 1, byCustom = 2 };
EventSortType eventSortType(std::int64_t stored);
/// The localised label of a mode: "by Date", "by Name", "Customizable".
std::string eventSortLabel(EventSortType type);

class EventTableManager : public CCTableDataSource<EventRow, EventSection, EventTableTraits>,
                          public CCTableDataSourceDelegate {
public:
    static constexpr double kRowHeight = 70.0;
    /// Pulled further than this the list clears the missed events.
    static constexpr double kPullToClearOffset = -150.0;

    enum class EditingStyle { none, remove, insert };
    /// What the rows are: those that a search found say nothing about the order of all.
    enum class Contents { all, found };

    /// The table is not owned and may be null: then the rows are only kept.
    explicit EventTableManager(TableView* tableView, Contents contents = Contents::all);
    /// The manager of a sort mode.
    static std::unique_ptr<EventTableManager> makeForSortType(EventSortType type, TableView* tableView,
                                                              Contents contents = Contents::all);

    /// Writes the present texts into the table's visible rows.
    void configureVisibleCells();
    /// Writes an event's content into a row and asks for its icon where rows show icons. False without an
    /// event.
    bool configureCell(const std::shared_ptr<EventTableViewCell>& cell, const EventRow& forObject);

    // The table asks.
    [[nodiscard]] std::size_t numberOfSectionsInTableView() const { return numberOfSections(); }
    [[nodiscard]] std::size_t numberOfRowsInSection(std::size_t section) const {
        return numberOfObjectsInSectionAtIndex(section);
    }
    [[nodiscard]] std::shared_ptr<EventTableViewCell> cellForRowAtIndexPath(IndexPath path);
    /// The row comes into sight at that size: its background is asked for.
    void willDisplayCell(const std::shared_ptr<EventTableViewCell>& cell, IndexPath forRowAtIndexPath, PixelSize size);
    [[nodiscard]] virtual bool canEditRowAtIndexPath(IndexPath) const { return true; }
    [[nodiscard]] virtual bool canMoveRowAtIndexPath(IndexPath) const { return false; }
    [[nodiscard]] double heightForRowAtIndexPath(IndexPath) const { return kRowHeight; }
    /// 0 in the modes without headers.
    [[nodiscard]] virtual double heightForHeaderInSection(std::size_t) const { return 0; }
    /// The header's text; nothing in the modes without headers.
    [[nodiscard]] virtual std::optional<std::string> titleForHeaderInSection(std::size_t) const { return std::nullopt; }

    // The table tells.
    /// Removes the event from the store; the row goes when the store's update reaches the list.
    void commitEditingStyle(EditingStyle style, IndexPath forRowAtIndexPath);
    virtual void moveRowAtIndexPath(IndexPath /*from*/, IndexPath /*to*/) {}
    void didSelectRowAtIndexPath(IndexPath path);
    void scrollViewDidEndDragging(bool willDecelerate);
    /// The same, asked for in words.
    void clearMissedEvents();

    // CCTableDataSourceDelegate
    void reloadDataForTableDataSource(CCTableDataSourceBase& source) override;
    void insertRowAtIndexPath(CCTableDataSourceBase& source, IndexPath path) override;
    void reloadRowAtIndexPath(CCTableDataSourceBase& source, IndexPath path) override;
    void deleteRowAtIndexPath(CCTableDataSourceBase& source, IndexPath path) override;
    void moveRowAtIndexPath(CCTableDataSourceBase& source, IndexPath from, IndexPath to) override;
    void insertSectionAtIndex(CCTableDataSourceBase& source, std::size_t index) override;
    void reloadSectionAtIndex(CCTableDataSourceBase& source, std::size_t index) override;
    void deleteSectionAtIndex(CCTableDataSourceBase& source, std::size_t index) override;
    void moveSectionAtIndex(CCTableDataSourceBase& source, std::size_t from, std::size_t to) override;

protected:
    [[nodiscard]] TableView* tableView() const { return tableView_; }
    [[nodiscard]] Contents contents() const { return contents_; }

private:
    TableView* tableView_;
    const Contents contents_;
};

}  // namespace dayward
