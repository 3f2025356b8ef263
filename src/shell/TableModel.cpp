#include "shell/TableModel.h"

#include <algorithm>
#include <numeric>

#include "platform/Environment.h"
#include "shell/QtValues.h"

namespace dayward {

namespace {
constexpr int kItemsBesideRows = 2;  // header and footer
}

TableModel::TableModel(TableScreen& screen, Pictures& pictures, QObject* parent)
    : QAbstractListModel(parent), screen_(screen), pictures_(pictures) {
    for (const TableSection& section : screen_.sections()) rowCounts_.push_back(static_cast<int>(section.rows.size()));
    screen_.setTableUpdates(this);
}

TableModel::~TableModel() { screen_.setTableUpdates(nullptr); }

int TableModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : startOfSection(rowCounts_.size());
}

int TableModel::startOfSection(std::size_t section) const {
    const auto end = rowCounts_.begin() + static_cast<std::ptrdiff_t>(section);
    return std::accumulate(rowCounts_.begin(), end, static_cast<int>(section) * kItemsBesideRows);
}

int TableModel::indexOf(IndexPath path) const { return startOfSection(path.section) + 1 + static_cast<int>(path.row); }

TableModel::Place TableModel::placeAt(int index) const {
    std::size_t section = 0;
    while (section + 1 < rowCounts_.size() && index >= rowCounts_[section] + kItemsBesideRows) {
        index -= rowCounts_[section] + kItemsBesideRows;
        ++section;
    }
    return {section, index - 1};
}

std::optional<IndexPath> TableModel::pathAt(int index) const {
    if (index < 0 || index >= rowCount()) return std::nullopt;
    const Place place = placeAt(index);
    if (place.row < 0 || place.row >= rowCounts_[place.section]) return std::nullopt;
    return IndexPath{place.section, static_cast<std::size_t>(place.row)};
}

QVariant TableModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const Place place = placeAt(index.row());
    if (place.section >= screen_.sections().size()) return {};
    const TableSection& section = screen_.sections()[place.section];
    const int count = std::min(rowCounts_[place.section], static_cast<int>(section.rows.size()));
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
    if (role == KindRole) return nameOfKind(row.kind);
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

void TableModel::deleteRow(int place) {
    if (const auto path = pathAt(place)) screen_.deleteRow(*path);
}

bool TableModel::canMove(int from, int to) const {
    const auto source = pathAt(from);
    const auto target = pathAt(to);
    return source && target && source->section == target->section && screen_.row(*source).canMove &&
           screen_.row(*target).canMove;
}

void TableModel::moveRow(int from, int to) {
    if (from == to || !canMove(from, to)) return;
    const IndexPath source = *pathAt(from);
    const IndexPath target = *pathAt(to);
    moveItems(from, 1, to, [&] { screen_.moveRow(source, target); });
    edgesDidChange(source.section);
}

int TableModel::placeOfRow(const QString& rowId) const {
    const auto path = screen_.pathOfRow(rowId.toStdString());
    return path ? indexOf(*path) : -1;
}

void TableModel::reloadData() {
    beginResetModel();
    rowCounts_.clear();
    for (const TableSection& section : screen_.sections()) rowCounts_.push_back(static_cast<int>(section.rows.size()));
    endResetModel();
}

void TableModel::insertRow(IndexPath path) {
    const int index = indexOf(path);
    beginInsertRows({}, index, index);
    ++rowCounts_[path.section];
    endInsertRows();
    edgesDidChange(path.section);
}

void TableModel::reloadRow(IndexPath path) {
    const QModelIndex changed = index(indexOf(path));
    emit dataChanged(changed, changed, {RowRole});
}

void TableModel::deleteRow(IndexPath path) {
    const int index = indexOf(path);
    beginRemoveRows({}, index, index);
    --rowCounts_[path.section];
    endRemoveRows();
    edgesDidChange(path.section);
}

void TableModel::moveRow(IndexPath from, IndexPath to) {
    const int source = indexOf(from);
    // Counted as if the row had been taken out before.
    int target = indexOf(to);
    if (to.section > from.section) --target;
    moveItems(source, 1, target, [&] {
        --rowCounts_[from.section];
        ++rowCounts_[to.section];
    });
    edgesDidChange(from.section);
    if (to.section != from.section) edgesDidChange(to.section);
}

void TableModel::insertSection(std::size_t index) {
    const int start = startOfSection(index);
    const int count = static_cast<int>(screen_.sections()[index].rows.size());
    beginInsertRows({}, start, start + count + kItemsBesideRows - 1);
    rowCounts_.insert(rowCounts_.begin() + static_cast<std::ptrdiff_t>(index), count);
    endInsertRows();
}

void TableModel::reloadSection(std::size_t section) {
    const QModelIndex header = index(startOfSection(section));
    const QModelIndex footer = index(startOfSection(section + 1) - 1);
    emit dataChanged(header, header, {RowRole});
    emit dataChanged(footer, footer, {RowRole});
}

void TableModel::deleteSection(std::size_t index) {
    const int start = startOfSection(index);
    beginRemoveRows({}, start, startOfSection(index + 1) - 1);
    rowCounts_.erase(rowCounts_.begin() + static_cast<std::ptrdiff_t>(index));
    endRemoveRows();
}

void TableModel::moveSection(std::size_t from, std::size_t to) {
    const int count = rowCounts_[from] + kItemsBesideRows;
    std::vector<int> moved = rowCounts_;
    moved.erase(moved.begin() + static_cast<std::ptrdiff_t>(from));
    const int target = std::accumulate(moved.begin(), moved.begin() + static_cast<std::ptrdiff_t>(to),
                                       static_cast<int>(to) * kItemsBesideRows);
    moved.insert(moved.begin() + static_cast<std::ptrdiff_t>(to), rowCounts_[from]);
    moveItems(startOfSection(from), count, target, [&] { rowCounts_ = moved; });
}

/// `to` is where the first of them stands afterwards.
void TableModel::moveItems(int from, int count, int to, const std::function<void()>& change) {
    if (from == to) return change();
    beginMoveRows({}, from, from + count - 1, {}, to > from ? to + count : to);
    change();
    endMoveRows();
}

/// The rounded ends of the section may be other rows now.
void TableModel::edgesDidChange(std::size_t section) {
    if (rowCounts_[section] == 0) return;
    emit dataChanged(index(startOfSection(section) + 1), index(startOfSection(section) + rowCounts_[section]),
                     {FirstRole, LastRole});
}

}  // namespace dayward
