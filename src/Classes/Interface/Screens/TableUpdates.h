// What a list of sections and rows tells the view that shows it: each change as one update, to be
// animated. Called on the thread that changes the list.
#pragma once

#include <cstddef>

#include "Submodules/CorpLibrary2/Foundation/IndexPath.h"

namespace dayward {

/// Each update speaks of the list as the updates before it have left it.
class TableUpdates {
public:
    virtual ~TableUpdates() = default;

    /// The whole list was replaced.
    virtual void reloadData() = 0;
    virtual void insertRow(IndexPath path) = 0;
    /// A row's value was replaced in its place.
    virtual void reloadRow(IndexPath path) = 0;
    virtual void deleteRow(IndexPath path) = 0;
    /// Taken out at `from`, then put in at `to`.
    virtual void moveRow(IndexPath from, IndexPath to) = 0;
    /// A section came with the rows that it has.
    virtual void insertSection(std::size_t index) = 0;
    /// A section's header or footer was replaced; its rows have updates of their own.
    virtual void reloadSection(std::size_t index) = 0;
    virtual void deleteSection(std::size_t index) = 0;
    virtual void moveSection(std::size_t from, std::size_t to) = 0;
};

}  // namespace dayward
