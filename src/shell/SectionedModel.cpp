#include "shell/SectionedModel.h"

#include <numeric>

namespace dayward {

int SectionedModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : startOfSection(rowCounts_.size());
}

int SectionedModel::startOfSection(std::size_t section) const {
    const auto end = rowCounts_.begin() + static_cast<std::ptrdiff_t>(section);
    return std::accumulate(rowCounts_.begin(), end, static_cast<int>(section) * itemsBesideRows());
}

int SectionedModel::indexOf(IndexPath path) const {
    return startOfSection(path.section) + (hasHeaders() ? 1 : 0) + static_cast<int>(path.row);
}

SectionedModel::Place SectionedModel::placeAt(int index) const {
    std::size_t section = 0;
    while (section + 1 < rowCounts_.size() && index >= rowCounts_[section] + itemsBesideRows()) {
        index -= rowCounts_[section] + itemsBesideRows();
        ++section;
    }
    return {section, index - (hasHeaders() ? 1 : 0)};
}

std::optional<IndexPath> SectionedModel::pathAt(int index) const {
    if (index < 0 || index >= rowCount()) return std::nullopt;
    const Place place = placeAt(index);
    if (place.row < 0 || place.row >= rowCounts_[place.section]) return std::nullopt;
    return IndexPath{place.section, static_cast<std::size_t>(place.row)};
}

void SectionedModel::rowDidChange(IndexPath path, const QList<int>& roles) {
    const QModelIndex changed = index(indexOf(path));
    emit dataChanged(changed, changed, roles);
}

void SectionedModel::resetAll() {
    beginResetModel();
    takeCounts();
    endResetModel();
}

void SectionedModel::rowInserted(IndexPath path) {
    const int index = indexOf(path);
    beginInsertRows({}, index, index);
    ++rowCounts_[path.section];
    endInsertRows();
    edgesDidChange(path.section);
}

void SectionedModel::rowDeleted(IndexPath path) {
    const int index = indexOf(path);
    beginRemoveRows({}, index, index);
    --rowCounts_[path.section];
    endRemoveRows();
    edgesDidChange(path.section);
}

void SectionedModel::rowMoved(IndexPath from, IndexPath to) {
    const int source = indexOf(from);
    int target = indexOf(to);
    if (to.section > from.section) --target;
    moveItems(source, 1, target, [&] {
        --rowCounts_[from.section];
        ++rowCounts_[to.section];
    });
    edgesDidChange(from.section);
    if (to.section != from.section) edgesDidChange(to.section);
}

void SectionedModel::sectionInserted(std::size_t section) {
    const int start = startOfSection(section);
    const int count = countRows()[section];
    beginInsertRows({}, start, start + count + itemsBesideRows() - 1);
    rowCounts_.insert(rowCounts_.begin() + static_cast<std::ptrdiff_t>(section), count);
    endInsertRows();
}

void SectionedModel::sectionReloaded(std::size_t section) {
    const QModelIndex header = index(startOfSection(section));
    const QModelIndex footer = index(startOfSection(section + 1) - 1);
    if (hasHeaders()) emit dataChanged(header, header);
    if (hasFooters()) emit dataChanged(footer, footer);
}

void SectionedModel::sectionDeleted(std::size_t section) {
    beginRemoveRows({}, startOfSection(section), startOfSection(section + 1) - 1);
    rowCounts_.erase(rowCounts_.begin() + static_cast<std::ptrdiff_t>(section));
    endRemoveRows();
}

void SectionedModel::sectionMoved(std::size_t from, std::size_t to) {
    const int count = rowCounts_[from] + itemsBesideRows();
    std::vector<int> moved = rowCounts_;
    moved.erase(moved.begin() + static_cast<std::ptrdiff_t>(from));
    const int target = std::accumulate(moved.begin(), moved.begin() + static_cast<std::ptrdiff_t>(to),
                                       static_cast<int>(to) * itemsBesideRows());
    moved.insert(moved.begin() + static_cast<std::ptrdiff_t>(to), rowCounts_[from]);
    moveItems(startOfSection(from), count, target, [&] { rowCounts_ = moved; });
}

void SectionedModel::moveItems(int from, int count, int to, const std::function<void()>& change) {
    if (from == to) return change();
    beginMoveRows({}, from, from + count - 1, {}, to > from ? to + count : to);
    change();
    endMoveRows();
}

/// The rounded ends of the section may be other rows now.
void SectionedModel::edgesDidChange(std::size_t section) {
    const QList<int> roles = edgeRoles();
    if (rowCounts_[section] == 0 || roles.isEmpty()) return;
    const int first = indexOf({section, 0});
    emit dataChanged(index(first), index(first + rowCounts_[section] - 1), roles);
}

}  // namespace dayward
