// One section of a sectioned list: its section object and its rows in display order.
#pragma once

#include <vector>

#include "Submodules/CorpLibrary2/Foundation/OrderedItems.h"

namespace dayward {

template <class Row, class Section>
struct CCTableDataSourceNode {
    /// The node in the list's tree.
    using Place = typename IndexedList<CCTableDataSourceNode>::Node;

    struct Item {
        Row object;
        Place* section;
        std::size_t hash = 0;  ///< of the object when it came into the index
        typename IndexedList<Item>::Node* nextInChain = nullptr;
    };

    explicit CCTableDataSourceNode(Section sectionObject) : object(std::move(sectionObject)) {}

    Section object;
    OrderedItems<Item, Row> items;
};

}  // namespace dayward
