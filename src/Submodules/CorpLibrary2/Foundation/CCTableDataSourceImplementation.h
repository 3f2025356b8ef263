// The operations of CCTableDataSource; included by it only.
#pragma once

#include <algorithm>
#include <iterator>

#include "Submodules/CorpLibrary2/Foundation/CCTableDataSource.h"

namespace dayward {

// Reads

template <class Row, class Section, class Traits>
std::size_t CCTableDataSource<Row, Section, Traits>::numberOfSections() const {
    const Lock lock(monitor());
    return tree_.size();
}

template <class Row, class Section, class Traits>
std::size_t CCTableDataSource<Row, Section, Traits>::numberOfObjectsInSectionAtIndex(std::size_t index) const {
    const Lock lock(monitor());
    return sectionPlace(index)->value.items.size();
}

template <class Row, class Section, class Traits>
std::vector<Section> CCTableDataSource<Row, Section, Traits>::sections() const {
    const Lock lock(monitor());
    std::vector<Section> result;
    tree_.forEach([&](const SectionPlace* place) { result.push_back(place->value.object); });
    return result;
}

template <class Row, class Section, class Traits>
Section CCTableDataSource<Row, Section, Traits>::sectionAtIndex(std::size_t index) const {
    const Lock lock(monitor());
    return sectionPlace(index)->value.object;
}

template <class Row, class Section, class Traits>
std::vector<Row> CCTableDataSource<Row, Section, Traits>::objectsInSectionAtIndex(std::size_t index) const {
    const Lock lock(monitor());
    std::vector<Row> result;
    sectionPlace(index)->value.items.forEach([&](const RowPlace* row) { result.push_back(row->value.object); });
    return result;
}

template <class Row, class Section, class Traits>
Row CCTableDataSource<Row, Section, Traits>::objectAtIndexPath(IndexPath path) const {
    const Lock lock(monitor());
    return rowPlace(path)->value.object;
}

template <class Row, class Section, class Traits>
std::optional<IndexPath> CCTableDataSource<Row, Section, Traits>::indexPathForObject(const Row& object) const {
    const Lock lock(monitor());
    const auto* place = firstPlaceOf(object);
    return place == nullptr ? std::nullopt : std::optional(pathOf(place));
}

template <class Row, class Section, class Traits>
std::vector<Row> CCTableDataSource<Row, Section, Traits>::objects() const {
    const Lock lock(monitor());
    std::vector<Row> result;
    tree_.forEach([&](const SectionPlace* section) {
        section->value.items.forEach([&](const RowPlace* row) { result.push_back(row->value.object); });
    });
    return result;
}

// Changes

template <class Row, class Section, class Traits>
void CCTableDataSource<Row, Section, Traits>::setObjects(std::vector<Row> objects) {
    const Lock lock(monitor());
    const auto stamp = orderStamp();  // the state that the arranging sees, or an earlier one
    auto groups = arranged(std::move(objects));
    isIndexed_ = false;
    placesOfSections_.clear();
    tree_ = Sections();
    for (auto& group : groups) addGroup(std::move(group), stamp);
    tell(&CCTableDataSourceDelegate::reloadDataForTableDataSource);
}

template <class Row, class Section, class Traits>
void CCTableDataSource<Row, Section, Traits>::appendObject(Row object) {
    const Lock lock(monitor());
    auto section = sectionForObject(object);
    if (const auto found = placesOfSections_.find(section); found != placesOfSections_.end()) {
        auto& node = found->second->value;
        const auto index = newIndexForObject(object, node.items, node.object);
        tell(&CCTableDataSourceDelegate::insertRowAtIndexPath,
             pathOf(insertRow(found->second, index, std::move(object))));
        return;
    }
    const auto index = newIndexForSection(section, tree_);
    insertRow(insertSection(index, std::move(section)), 0, std::move(object));
    tell(&CCTableDataSourceDelegate::insertSectionAtIndex, index);
}

template <class Row, class Section, class Traits>
void CCTableDataSource<Row, Section, Traits>::updateObject(Row object) {
    const Lock lock(monitor());
    auto* place = firstPlaceOf(object);
    if (place == nullptr) {
        appendObject(std::move(object));
        return;
    }
    place->value.object = std::move(object);
    place->value.section->value.items.objectChanged(place);
    tell(&CCTableDataSourceDelegate::reloadRowAtIndexPath, pathOf(place));
}

template <class Row, class Section, class Traits>
void CCTableDataSource<Row, Section, Traits>::removeObject(const Row& object) {
    const Lock lock(monitor());
    auto* place = firstPlaceOf(object);
    if (place == nullptr) return;
    const auto path = pathOf(place);
    auto* section = place->value.section;
    if (isIndexed_) rowsByHash_.remove(place);
    section->value.items.remove(place);
    if (!section->value.items.isEmpty()) {
        tell(&CCTableDataSourceDelegate::deleteRowAtIndexPath, path);
        return;
    }
    removeSection(section);
    tell(&CCTableDataSourceDelegate::deleteSectionAtIndex, path.section);
}

template <class Row, class Section, class Traits>
void CCTableDataSource<Row, Section, Traits>::sortData() {
    const Lock lock(monitor());
    const auto groups = arranged(objects());
    insertMissingSections(groups);
    for (const auto& group : groups) moveRowsToGroup(group);
    removeEmptySections();
}

template <class Row, class Section, class Traits>
void CCTableDataSource<Row, Section, Traits>::insertMissingSections(const std::vector<Group>& groups) {
    for (const auto& [section, rows] : groups) {
        if (placesOfSections_.contains(section)) continue;
        const auto index = newIndexForSection(section, tree_);
        insertSection(index, section);
        tell(&CCTableDataSourceDelegate::insertSectionAtIndex, index);
    }
}

template <class Row, class Section, class Traits>
void CCTableDataSource<Row, Section, Traits>::moveRowsToGroup(const Group& group) {
    auto* section = placesOfSections_.at(group.first);
    for (std::size_t row = 0; row < group.second.size(); ++row) {
        auto* place = firstPlaceOf(group.second[row]);
        if (place == nullptr) fatalError("CCTableDataSource: a row went while it was sorted");
        const auto from = pathOf(place);
        const IndexPath to{SectionPlaces::indexOf(section), row};
        if (from == to) continue;
        moveRow(place, section, row);
        tell(&CCTableDataSourceDelegate::moveRowAtIndexPath, from, to);
    }
}

template <class Row, class Section, class Traits>
void CCTableDataSource<Row, Section, Traits>::removeEmptySections() {
    for (std::size_t index = 0; index < tree_.size();) {
        auto* place = tree_.at(index);
        if (!place->value.items.isEmpty()) {
            ++index;
            continue;
        }
        removeSection(place);
        tell(&CCTableDataSourceDelegate::deleteSectionAtIndex, index);
    }
}

template <class Row, class Section, class Traits>
void CCTableDataSource<Row, Section, Traits>::moveObjectSilently(IndexPath from, IndexPath to) {
    const Lock lock(monitor());
    auto* place = rowPlace(from);
    auto* section = sectionPlace(to.section);
    const auto rowsLeft = section->value.items.size() - (from.section == to.section ? 1 : 0);
    if (to.row > rowsLeft) fatalError("CCTableDataSource: a row cannot be moved past the end of a section");
    moveRow(place, section, to.row);
}

// Order

template <class Row, class Section, class Traits>
std::vector<Section> CCTableDataSource<Row, Section, Traits>::sortSections(std::vector<Section> sections) const {
    if (const auto before = sectionsSortComparator()) stableMergeSort(sections, before);
    return sections;
}

template <class Row, class Section, class Traits>
std::vector<Row> CCTableDataSource<Row, Section, Traits>::sortObjects(std::vector<Row> objects,
                                                                      const Section& forSection) const {
    if (const auto before = objectsSortComparatorForSection(forSection)) stableMergeSort(objects, before);
    return objects;
}

template <class Row, class Section, class Traits>
std::size_t CCTableDataSource<Row, Section, Traits>::newIndexForSection(const Section& section,
                                                                        const Sections& inSections) const {
    const auto before = sectionsSortComparator();
    return before ? inSections.insertionIndex(section, before, orderStamp()) : 0;
}

template <class Row, class Section, class Traits>
std::size_t CCTableDataSource<Row, Section, Traits>::newIndexForObject(const Row& object, const Rows& inObjects,
                                                                       const Section& inSection) const {
    const auto before = objectsSortComparatorForSection(inSection);
    return before ? inObjects.insertionIndex(object, before, orderStamp()) : 0;
}

/// In the order in which the sections are first met.
template <class Row, class Section, class Traits>
auto CCTableDataSource<Row, Section, Traits>::grouped(std::vector<Row> objects) const -> std::vector<Group> {
    std::vector<Group> groups;
    std::unordered_map<Section, std::size_t, typename Traits::SectionHash, typename Traits::SectionEqual>
        groupOfSection;
    for (auto& object : objects) {
        auto section = sectionForObject(object);
        const auto [found, isNew] = groupOfSection.try_emplace(section, groups.size());
        if (isNew) groups.emplace_back(std::move(section), std::vector<Row>());
        groups[found->second].second.push_back(std::move(object));
    }
    return groups;
}

template <class Row, class Section, class Traits>
auto CCTableDataSource<Row, Section, Traits>::arranged(std::vector<Row> objects) const -> std::vector<Group> {
    auto groups = grouped(std::move(objects));
    std::vector<Section> order;
    std::unordered_map<Section, std::vector<Row>*, typename Traits::SectionHash, typename Traits::SectionEqual>
        rowsOfSection;
    for (auto& [section, rows] : groups) {
        order.push_back(section);
        rowsOfSection.emplace(section, &rows);
    }
    std::vector<Group> result;
    for (auto& section : sortSections(std::move(order))) {
        auto rows = sortObjects(std::move(*rowsOfSection.at(section)), section);
        result.emplace_back(std::move(section), std::move(rows));
    }
    return result;
}

// The tree and its indexes

template <class Row, class Section, class Traits>
IndexPath CCTableDataSource<Row, Section, Traits>::pathOf(const RowPlace* place) {
    return {SectionPlaces::indexOf(place->value.section), RowPlaces::indexOf(place)};
}

template <class Row, class Section, class Traits>
auto CCTableDataSource<Row, Section, Traits>::sectionPlace(std::size_t index) const -> SectionPlace* {
    if (index >= tree_.size()) fatalError("CCTableDataSource: no section " + std::to_string(index));
    return tree_.at(index);
}

template <class Row, class Section, class Traits>
auto CCTableDataSource<Row, Section, Traits>::rowPlace(IndexPath path) const -> RowPlace* {
    const auto& items = sectionPlace(path.section)->value.items;
    if (path.row >= items.size()) fatalError("CCTableDataSource: no row " + std::to_string(path.row));
    return items.at(path.row);
}

template <class Row, class Section, class Traits>
auto CCTableDataSource<Row, Section, Traits>::firstPlaceOf(const Row& object) const -> RowPlace* {
    makeIndex();
    RowPlace* first = nullptr;
    rowsByHash_.forEach(typename Traits::RowHash{}(object), [&](RowPlace* place) {
        if (!typename Traits::RowEqual{}(place->value.object, object)) return;
        if (first == nullptr || pathOf(place) < pathOf(first)) first = place;
    });
    return first;
}

template <class Row, class Section, class Traits>
auto CCTableDataSource<Row, Section, Traits>::insertSection(std::size_t index, Section section) -> SectionPlace* {
    auto* place = tree_.insert(index, Node(section));
    placesOfSections_.insert_or_assign(std::move(section), place);
    return place;
}

template <class Row, class Section, class Traits>
void CCTableDataSource<Row, Section, Traits>::removeSection(SectionPlace* place) {
    placesOfSections_.erase(place->value.object);
    tree_.remove(place);
}

template <class Row, class Section, class Traits>
void CCTableDataSource<Row, Section, Traits>::addGroup(Group group, std::int64_t stamp) {
    auto* place = insertSection(tree_.size(), std::move(group.first));
    std::vector<typename Node::Item> items;
    items.reserve(group.second.size());
    for (auto& row : group.second) items.push_back({std::move(row), place});
    place->value.items.assignInOrder(std::move(items), stamp);
}

template <class Row, class Section, class Traits>
auto CCTableDataSource<Row, Section, Traits>::insertRow(SectionPlace* section, std::size_t index, Row object)
    -> RowPlace* {
    auto* place = section->value.items.insert(index, {std::move(object), section});
    addToIndex(place);
    return place;
}

/// Of equal rows in several sections a target row may lie past the end once one was taken out; the row
/// then goes to the end.
template <class Row, class Section, class Traits>
void CCTableDataSource<Row, Section, Traits>::moveRow(RowPlace* place, SectionPlace* toSection, std::size_t toRow) {
    auto owned = place->value.section->value.items.remove(place);
    place->value.section = toSection;
    auto& items = toSection->value.items;
    items.insert(std::min(toRow, items.size()), std::move(owned));
}

template <class Row, class Section, class Traits>
void CCTableDataSource<Row, Section, Traits>::addToIndex(RowPlace* place) const {
    if (!isIndexed_) return;
    place->value.hash = typename Traits::RowHash{}(place->value.object);
    rowsByHash_.add(place);
}

template <class Row, class Section, class Traits>
void CCTableDataSource<Row, Section, Traits>::makeIndex() const {
    if (std::exchange(isIndexed_, true)) return;
    std::size_t count = 0;
    tree_.forEach([&](const SectionPlace* section) { count += section->value.items.size(); });
    rowsByHash_.reset(count);
    tree_.forEach(
        [&](const SectionPlace* section) { section->value.items.forEach([&](RowPlace* row) { addToIndex(row); }); });
}

}  // namespace dayward
