// A screen of sections and rows: the base of all forms.
//
// A subclass makes its rows anew from its state in makeSections(); reloadData() compares them with the
// present ones by their ids and tells the view only what differs, so that a change is animated and
// what the user is typing stays. What the user does to a row is written into the row first, without an
// update, and then goes to the row's action. Main thread only.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Classes/Interface/Screens/TableRow.h"
#include "Classes/Interface/Screens/TableUpdates.h"
#include "Classes/Interface/Screens/ViewController.h"
#include "platform/Date.h"

namespace dayward {

class TableScreen : public ViewController {
public:
    /// The view that shows the rows; not owned, null for none.
    void setTableUpdates(TableUpdates* updates) { updates_ = updates; }

    [[nodiscard]] const std::vector<TableSection>& sections() const { return sections_; }
    /// Stops the process where there is no such row.
    [[nodiscard]] const TableRow& row(IndexPath path) const;
    [[nodiscard]] std::optional<IndexPath> pathOfRow(std::string_view id) const;

    // What the user does. A path without such a row, a disabled row and one without such an action
    // change nothing, nor does a screen that stands in no stack any more.

    /// Tapping the row; one that opens and closes does so.
    void select(IndexPath path);
    void toggle(IndexPath path, bool on);
    void editText(IndexPath path, const std::string& text);
    void pickDate(IndexPath path, Date date);
    /// One position for each wheel.
    void pickWheels(IndexPath path, const std::vector<std::size_t>& positions);
    /// Tapping an item of a grid or a part of the header. The screen selects the item.
    void tapItem(IndexPath path, std::size_t item);
    void deleteRow(IndexPath path);
    void moveRow(IndexPath from, IndexPath to);

    /// Builds the rows anew and tells the differences.
    void reloadData();

    void viewDidLoad() override { reloadData(); }
    void viewWillAppear() override { reloadData(); }

protected:
    [[nodiscard]] virtual std::vector<TableSection> makeSections() = 0;
    /// The view has already moved the row.
    virtual void didMoveRow(IndexPath /*from*/, IndexPath /*to*/) {}
    /// Whether a row that opens and closes is open.
    [[nodiscard]] bool isOpen(std::string_view id) const;

private:
    [[nodiscard]] TableRow* usableRow(IndexPath path);

    std::vector<TableSection> sections_;
    std::vector<std::string> openRows_;
    TableUpdates* updates_ = nullptr;
};

}  // namespace dayward
