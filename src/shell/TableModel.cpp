#include "shell/TableModel.h"

#include <algorithm>

#include "platform/Environment.h"
#include "shell/QtValues.h"

namespace dayward {

TableModel::TableModel(TableScreen& screen, Pictures& pictures, QObject* parent)
    : SectionedModelOf(parent), screen_(screen), pictures_(pictures) {
    takeCounts();
    screen_.setTableUpdates(this);
}

TableModel::~TableModel() { screen_.setTableUpdates(nullptr); }

std::vector<int> TableModel::countRows() const {
    std::vector<int> counts;
    for (const TableSection& section : screen_.sections()) counts.push_back(static_cast<int>(section.rows.size()));
    return counts;
}

QVariant TableModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const Place place = placeAt(index.row());
    if (place.section >= screen_.sections().size()) return {};
    const TableSection& section = screen_.sections()[place.section];
    const int count = std::min(rowsIn(place.section), static_cast<int>(section.rows.size()));
    if (role == FirstRole) return place.row == 0;
    if (role == LastRole) return place.row == count - 1;
    if (role != RowRole && role != KindRole) return {};
    if (place.row < 0 || place.row >= count) {
        const bool isHeader = place.row < 0;
        TableRowData data(isHeader ? QStringLiteral("header") : QStringLiteral("footer"),
                          isHeader ? section.header : section.footer);
        return role == KindRole ? QVariant(data.kind) : QVariant::fromValue(data);
    }
    const TableRow& row = section.rows[static_cast<std::size_t>(place.row)];
    if (role == KindRole) {
        kinds_[row.id] = row.kind;
        return nameOfKind(row.kind);
    }
    return QVariant::fromValue(TableRowData(row, pictures_));
}

QHash<int, QByteArray> TableModel::roleNames() const {
    return {{RowRole, "row"}, {KindRole, "kind"}, {FirstRole, "first"}, {LastRole, "last"}};
}

void TableModel::select(int place) {
    if (const auto path = pathAt(place)) screen_.select(*path);
}

void TableModel::toggle(int place, bool on) {
    if (const auto path = pathAt(place)) screen_.toggle(*path, on);
}

void TableModel::editText(int place, const QString& text) {
    if (const auto path = pathAt(place)) screen_.editText(*path, text.toStdString());
}

void TableModel::pickDate(int place, int year, int month, int day, int hour, int minute) {
    const auto path = pathAt(place);
    if (!path) return;
    screen_.pickDate(*path, Environment::current().calendar()->date({year, month, day, hour, minute, 0}));
}

void TableModel::pickWheels(int place, const QList<int>& positions) {
    const auto path = pathAt(place);
    if (!path || std::ranges::any_of(positions, [](int position) { return position < 0; })) return;
    screen_.pickWheels(*path, {positions.begin(), positions.end()});
}

void TableModel::tapItem(int place, int item) {
    const auto path = pathAt(place);
    if (path && item >= 0) screen_.tapItem(*path, static_cast<std::size_t>(item));
}

void TableModel::removeRow(int place) {
    if (const auto path = pathAt(place)) screen_.deleteRow(*path);
}

bool TableModel::canMove(int from, int to) const {
    const auto source = pathAt(from);
    const auto target = pathAt(to);
    return source && target && source->section == target->section && screen_.row(*source).canMove &&
           screen_.row(*target).canMove;
}

void TableModel::dragRow(int from, int to) {
    if (from == to || !canMove(from, to)) return;
    const IndexPath source = *pathAt(from);
    const IndexPath target = *pathAt(to);
    moveItems(from, 1, to, [&] { screen_.moveRow(source, target); });
    edgesDidChange(source.section);
}

void TableModel::reloadRow(IndexPath path) {
    const TableRow& row = screen_.row(path);
    const auto drawn = kinds_.find(row.id);
    if (drawn == kinds_.end() || drawn->second == row.kind) return rowDidChange(path, {RowRole});
    rowDeleted(path);
    rowInserted(path);
}

int TableModel::placeOfRow(const QString& rowId) const {
    const auto path = screen_.pathOfRow(rowId.toStdString());
    return path ? indexOf(*path) : -1;
}

}  // namespace dayward
