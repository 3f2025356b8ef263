// A model of a sectioned list without any user interface: rows in sections, kept in the order of
// comparators that subclasses supply, telling a delegate each single change.
//
// Rows and sections are values with equality and hash (equal means equal hash); a row is found by
// equality, and of equal rows the first in the list is meant. After every public operation but
// updateObject no section is empty and no two section objects are equal. Rows are found through an index,
// which is made when one is first looked for, and positions through balanced trees, so that an operation
// costs O(log n) and sortData O(n log n); appending to rows that stand out of order costs as much more as
// they have places of disorder, the first appending to a section after orderStamp() has changed O(n), and
// finding one of several equal rows as many positions.
//
// Any thread; each operation holds the list's own recursive monitor from first to last, also while the
// delegate is told.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>
#include <variant>
#include <vector>

#include "Submodules/CorpLibrary2/Foundation/CCTableDataSourceBase.h"
#include "Submodules/CorpLibrary2/Foundation/CCTableDataSourceNode.h"
#include "Submodules/CorpLibrary2/Foundation/PlacesByHash.h"
#include "Submodules/CorpLibrary2/Foundation/StableMergeSort.h"
#include "platform/FatalError.h"

namespace dayward {

/// How rows and sections are compared. Equal values have equal hashes.
template <class Row, class Section>
struct CCTableTraits {
    using RowHash = std::hash<Row>;
    using RowEqual = std::equal_to<Row>;
    using SectionHash = std::hash<Section>;
    using SectionEqual = std::equal_to<Section>;
};

template <class Row, class Section = std::monostate, class Traits = CCTableTraits<Row, Section>>
class CCTableDataSource : public CCTableDataSourceBase {
public:
    using Node = CCTableDataSourceNode<Row, Section>;
    using Rows = OrderedItems<typename Node::Item, Row>;
    using Sections = OrderedItems<Node, Section>;
    /// Whether the first is ordered before the second; empty where there is no order.
    using RowComparator = std::function<bool(const Row&, const Row&)>;
    using SectionComparator = std::function<bool(const Section&, const Section&)>;

    [[nodiscard]] std::size_t numberOfSections() const override;
    [[nodiscard]] std::size_t numberOfObjectsInSectionAtIndex(std::size_t index) const override;
    // An index that is out of range stops the process.
    [[nodiscard]] std::vector<Section> sections() const;
    [[nodiscard]] Section sectionAtIndex(std::size_t index) const;
    [[nodiscard]] std::vector<Row> objectsInSectionAtIndex(std::size_t index) const;
    [[nodiscard]] Row objectAtIndexPath(IndexPath path) const;
    [[nodiscard]] std::optional<IndexPath> indexPathForObject(const Row& object) const;

    /// All rows, section by section.
    [[nodiscard]] std::vector<Row> objects() const;
    /// Replaces everything by these rows, grouped and sorted.
    void setObjects(std::vector<Row> objects);

    /// Puts the row in its section's order, or in a new section in the sections' order.
    virtual void appendObject(Row object);
    /// Replaces the equal row where it stands, even if its section or order is another now: a row does
    /// not jump before sortData is asked for. A row that is not there is appended.
    virtual void updateObject(Row object);
    /// A row that is not there is no matter.
    virtual void removeObject(const Row& object);
    /// Brings the rows into the sections and the order that setObjects would give, told as single steps:
    /// new sections, moves of rows, sections that became empty. Sections that stay keep their order.
    virtual void sortData();

protected:
    /// A section and its rows.
    using Group = std::pair<Section, std::vector<Row>>;

    /// The rows grouped by equal sections, both in order. In each group no row has to stand before the
    /// one before it, as the section's comparator says; equal ones keep their order.
    [[nodiscard]] virtual std::vector<Group> arranged(std::vector<Row> objects) const;
    [[nodiscard]] virtual Section sectionForObject(const Row&) const { return Section{}; }
    [[nodiscard]] virtual SectionComparator sectionsSortComparator() const { return {}; }
    [[nodiscard]] virtual RowComparator objectsSortComparatorForSection(const Section&) const { return {}; }
    [[nodiscard]] virtual std::vector<Section> sortSections(std::vector<Section> sections) const;
    [[nodiscard]] virtual std::vector<Row> sortObjects(std::vector<Row> objects, const Section& forSection) const;
    /// Before the first section that the new one is ordered before; 0 without an order.
    [[nodiscard]] virtual std::size_t newIndexForSection(const Section& section, const Sections& inSections) const;
    [[nodiscard]] virtual std::size_t newIndexForObject(const Row& object, const Rows& inObjects,
                                                        const Section& inSection) const;
    /// A number for the state of whatever the comparators read besides the objects they compare, such
    /// as the present moment. While it stays the same, rows that were in order count as in order.
    [[nodiscard]] virtual std::int64_t orderStamp() const { return 0; }

    /// Moves a row without telling anybody, for a view that has moved it already. The section that it
    /// leaves stays, even if it is empty. A path that is out of range stops the process.
    void moveObjectSilently(IndexPath from, IndexPath to);

private:
    using SectionPlaces = typename Sections::List;
    using SectionPlace = typename SectionPlaces::Node;
    using RowPlaces = typename Rows::List;
    using RowPlace = typename RowPlaces::Node;

    static IndexPath pathOf(const RowPlace* place);
    [[nodiscard]] SectionPlace* sectionPlace(std::size_t index) const;
    [[nodiscard]] RowPlace* rowPlace(IndexPath path) const;
    [[nodiscard]] RowPlace* firstPlaceOf(const Row& object) const;

    [[nodiscard]] std::vector<Group> grouped(std::vector<Row> objects) const;
    void addGroup(Group group, std::int64_t stamp);
    SectionPlace* insertSection(std::size_t index, Section section);
    void removeSection(SectionPlace* place);
    RowPlace* insertRow(SectionPlace* section, std::size_t index, Row object);
    void moveRow(RowPlace* place, SectionPlace* toSection, std::size_t toRow);
    void makeIndex() const;
    void addToIndex(RowPlace* place) const;

    void insertMissingSections(const std::vector<Group>& groups);
    void moveRowsToGroup(const Group& group);
    void removeEmptySections();

    Sections tree_;
    std::unordered_map<Section, SectionPlace*, typename Traits::SectionHash, typename Traits::SectionEqual>
        placesOfSections_;
    mutable PlacesByHash<RowPlace> rowsByHash_;
    mutable bool isIndexed_ = false;  ///< whether all rows are in rowsByHash_, else none is
};

}  // namespace dayward

#include "Submodules/CorpLibrary2/Foundation/CCTableDataSourceImplementation.h"
