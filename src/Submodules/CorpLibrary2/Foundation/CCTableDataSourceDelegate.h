// Who is told, message by message, what changed in a sectioned list.
#pragma once

#include <cstddef>

#include "Submodules/CorpLibrary2/Foundation/IndexPath.h"

namespace dayward {

class CCTableDataSourceBase;

/// The messages come on the thread that makes the change, while the list is locked: a delegate may read
/// the list, but must not wait for another thread that needs it. Each message speaks of the list as the
/// messages before it have left it; a reader may find the list one step ahead only for the change that
/// is being told.
class CCTableDataSourceDelegate {
public:
    virtual ~CCTableDataSourceDelegate() = default;

    /// The whole list was replaced.
    virtual void reloadDataForTableDataSource(CCTableDataSourceBase& source) = 0;
    /// A row came into a section that was there.
    virtual void insertRowAtIndexPath(CCTableDataSourceBase& source, IndexPath path) = 0;
    /// A row's object was replaced in its place.
    virtual void reloadRowAtIndexPath(CCTableDataSourceBase& source, IndexPath path) = 0;
    /// A row went and its section still has rows.
    virtual void deleteRowAtIndexPath(CCTableDataSourceBase& source, IndexPath path) = 0;
    /// Taken out at `from`, then put in at `to`.
    virtual void moveRowAtIndexPath(CCTableDataSourceBase& source, IndexPath from, IndexPath to) = 0;
    /// A section came: with its first row, or empty before rows are moved into it.
    virtual void insertSectionAtIndex(CCTableDataSourceBase& source, std::size_t index) = 0;
    /// Never sent by the list itself.
    virtual void reloadSectionAtIndex(CCTableDataSourceBase& source, std::size_t index) = 0;
    /// A section went, alone or with its last row.
    virtual void deleteSectionAtIndex(CCTableDataSourceBase& source, std::size_t index) = 0;
    /// Never sent by the list itself.
    virtual void moveSectionAtIndex(CCTableDataSourceBase& source, std::size_t from, std::size_t to) = 0;
};

}  // namespace dayward
