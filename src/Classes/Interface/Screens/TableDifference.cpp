#include "Classes/Interface/Screens/TableDifference.h"

#include <algorithm>
#include <set>
#include <string_view>

#include "platform/FatalError.h"

namespace dayward {

namespace {

void checkIds(const std::vector<TableSection>& sections) {
    std::set<std::string_view> sectionIds;
    std::set<std::string_view> rowIds;
    for (const TableSection& section : sections) {
        if (!sectionIds.insert(section.id).second) fatalError("two sections have the id " + section.id);
        for (const TableRow& row : section.rows) {
            if (!rowIds.insert(row.id).second) fatalError("two rows have the id " + row.id);
        }
    }
}

template <class Item>
std::size_t placeOf(const std::vector<Item>& items, const std::string& id, std::size_t from) {
    const auto begin = items.begin() + static_cast<std::ptrdiff_t>(from);
    return static_cast<std::size_t>(std::ranges::find(begin, items.end(), id, &Item::id) - items.begin());
}

/// `told` has remove(index), insert(index), move(from, to) and same(index, wanted).
template <class Item, class Told>
void updateItems(std::vector<Item>& present, std::vector<Item> wanted, Told told) {
    const auto at = [&](std::size_t index) { return present.begin() + static_cast<std::ptrdiff_t>(index); };
    for (std::size_t index = present.size(); index-- > 0;) {
        if (placeOf(wanted, present[index].id, 0) < wanted.size()) continue;
        present.erase(at(index));
        told.remove(index);
    }
    for (std::size_t index = 0; index < wanted.size(); ++index) {
        const std::size_t place = placeOf(present, wanted[index].id, index);
        if (place == present.size()) {
            present.insert(at(index), std::move(wanted[index]));
            told.insert(index);
            continue;
        }
        if (place != index) {
            Item moved = std::move(present[place]);
            present.erase(at(place));
            present.insert(at(index), std::move(moved));
            told.move(place, index);
        }
        told.same(index, std::move(wanted[index]));
    }
}

struct RowSteps {
    TableSection& section;
    std::size_t index;
    TableUpdates* updates;

    void remove(std::size_t row) const {
        if (updates != nullptr) updates->deleteRow({index, row});
    }
    void insert(std::size_t row) const {
        if (updates != nullptr) updates->insertRow({index, row});
    }
    void move(std::size_t from, std::size_t to) const {
        if (updates != nullptr) updates->moveRow({index, from}, {index, to});
    }
    void same(std::size_t row, TableRow wanted) const {
        TableRow& present = section.rows[row];
        const bool differs = !(static_cast<const RowValue&>(present) == static_cast<const RowValue&>(wanted));
        present = std::move(wanted);
        if (differs && updates != nullptr) updates->reloadRow({index, row});
    }
};

struct SectionSteps {
    std::vector<TableSection>& sections;
    TableUpdates* updates;

    void remove(std::size_t index) const {
        if (updates != nullptr) updates->deleteSection(index);
    }
    void insert(std::size_t index) const {
        if (updates != nullptr) updates->insertSection(index);
    }
    void move(std::size_t from, std::size_t to) const {
        if (updates != nullptr) updates->moveSection(from, to);
    }
    void same(std::size_t index, TableSection wanted) const {
        TableSection& present = sections[index];
        const bool differs = present.header != wanted.header || present.footer != wanted.footer;
        present.header = std::move(wanted.header);
        present.footer = std::move(wanted.footer);
        if (differs && updates != nullptr) updates->reloadSection(index);
        updateItems(present.rows, std::move(wanted.rows), RowSteps{present, index, updates});
    }
};

}  // namespace

void updateSections(std::vector<TableSection>& present, std::vector<TableSection> wanted, TableUpdates* updates) {
    checkIds(wanted);
    updateItems(present, std::move(wanted), SectionSteps{present, updates});
}

}  // namespace dayward
