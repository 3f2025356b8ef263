#include "Classes/Interface/Screens/TableScreen.h"

#include <algorithm>

#include "Classes/Interface/Screens/TableDifference.h"
#include "platform/FatalError.h"

namespace dayward {

const TableRow& TableScreen::row(IndexPath path) const {
    if (path.section >= sections_.size() || path.row >= sections_[path.section].rows.size()) {
        fatalError("no such row in the screen \"" + title() + "\"");
    }
    return sections_[path.section].rows[path.row];
}

std::optional<IndexPath> TableScreen::pathOfRow(std::string_view id) const {
    for (std::size_t section = 0; section < sections_.size(); ++section) {
        const auto& rows = sections_[section].rows;
        const auto found = std::ranges::find(rows, id, &TableRow::id);
        if (found != rows.end()) return IndexPath{section, static_cast<std::size_t>(found - rows.begin())};
    }
    return std::nullopt;
}

TableRow* TableScreen::usableRow(IndexPath path) {
    if (!isPresented() || path.section >= sections_.size() || path.row >= sections_[path.section].rows.size())
        return nullptr;
    TableRow& row = sections_[path.section].rows[path.row];
    return row.enabled ? &row : nullptr;
}

// Each action is copied before it runs, since it may replace the row that holds it.

void TableScreen::select(IndexPath path) {
    const TableRow* row = usableRow(path);
    if (row == nullptr) return;
    const auto action = row->actions.select;
    if (row->open) {
        if (std::erase(openRows_, row->id) == 0) openRows_.push_back(row->id);
        reloadData();
    }
    if (action) action();
}

void TableScreen::toggle(IndexPath path, bool on) {
    TableRow* row = usableRow(path);
    if (row == nullptr || !row->actions.toggle) return;
    const auto action = row->actions.toggle;
    row->on = on;
    if (updates_ != nullptr) updates_->reloadRow(path);
    action(on);
}

void TableScreen::editText(IndexPath path, const std::string& text) {
    TableRow* row = usableRow(path);
    if (row == nullptr || !row->actions.editText) return;
    if (auto* content = std::get_if<TextContent>(&row->content)) content->text = text;
    if (auto* header = std::get_if<EventEditHeaderCell>(&row->content)) header->nameField.text = text;
    const auto action = row->actions.editText;
    action(text);
}

void TableScreen::pickDate(IndexPath path, Date date) {
    TableRow* row = usableRow(path);
    if (row == nullptr || !row->actions.pickDate) return;
    if (auto* content = std::get_if<DateContent>(&row->content)) content->date = date;
    const auto action = row->actions.pickDate;
    action(date);
}

void TableScreen::pickWheels(IndexPath path, const std::vector<std::size_t>& positions) {
    TableRow* row = usableRow(path);
    auto* content = row != nullptr ? std::get_if<WheelsContent>(&row->content) : nullptr;
    if (content == nullptr || !row->actions.pickWheels || positions.size() != content->wheels.size()) return;
    for (std::size_t index = 0; index < positions.size(); ++index) {
        if (positions[index] >= content->wheels[index].titles.size()) return;
    }
    for (std::size_t index = 0; index < positions.size(); ++index) content->wheels[index].selected = positions[index];
    const auto action = row->actions.pickWheels;
    action(positions);
}

void TableScreen::tapItem(IndexPath path, std::size_t item) {
    const TableRow* row = usableRow(path);
    if (row == nullptr || !row->actions.tapItem) return;
    const auto* grid = std::get_if<GridContent>(&row->content);
    if (grid != nullptr && item >= grid->items.size()) return;
    const auto action = row->actions.tapItem;
    action(item);
}

void TableScreen::deleteRow(IndexPath path) {
    const TableRow* row = usableRow(path);
    if (row == nullptr || !row->canDelete || !row->actions.remove) return;
    const auto action = row->actions.remove;
    action();
}

void TableScreen::moveRow(IndexPath from, IndexPath to) {
    const TableRow* row = usableRow(from);
    const TableRow* place = usableRow(to);
    if (row == nullptr || place == nullptr || !row->canMove || !place->canMove || from.section != to.section) return;
    auto& rows = sections_[from.section].rows;
    TableRow moved = std::move(rows[from.row]);
    rows.erase(rows.begin() + static_cast<std::ptrdiff_t>(from.row));
    rows.insert(rows.begin() + static_cast<std::ptrdiff_t>(to.row), std::move(moved));
    didMoveRow(from, to);
}

void TableScreen::reloadData() {
    std::vector<TableSection> sections = makeSections();
    for (TableSection& section : sections) {
        for (TableRow& row : section.rows) {
            if (row.open) row.open = isOpen(row.id);
        }
    }
    updateSections(sections_, std::move(sections), updates_);
}

bool TableScreen::isOpen(std::string_view id) const { return std::ranges::find(openRows_, id) != openRows_.end(); }

}  // namespace dayward
