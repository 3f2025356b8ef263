// What every sectioned list has, whatever its rows and sections are: its shape, its delegate, its lock.
#pragma once

#include <cstddef>

#include "Submodules/CorpLibrary2/Foundation/CCTableDataSourceDelegate.h"
#include "platform/Mutex.h"

namespace dayward {

class CCTableDataSourceBase {
public:
    CCTableDataSourceBase() = default;
    virtual ~CCTableDataSourceBase() = default;
    CCTableDataSourceBase(const CCTableDataSourceBase&) = delete;
    CCTableDataSourceBase& operator=(const CCTableDataSourceBase&) = delete;

    /// Not owned; whoever sets it takes it away before it dies. Null: nobody is told.
    void setDelegate(CCTableDataSourceDelegate* delegate) {
        const Lock lock(mutex_);
        delegate_ = delegate;
    }
    [[nodiscard]] CCTableDataSourceDelegate* delegate() const {
        const Lock lock(mutex_);
        return delegate_;
    }

    [[nodiscard]] virtual std::size_t numberOfSections() const = 0;
    /// An index that is out of range stops the process.
    [[nodiscard]] virtual std::size_t numberOfObjectsInSectionAtIndex(std::size_t index) const = 0;

protected:
    /// The list's own monitor, held from the first to the last step of each operation.
    [[nodiscard]] RecursiveMutex& monitor() const { return mutex_; }

    /// Sends `message` with `arguments` to the delegate, if there is one.
    template <class... Parameters, class... Arguments>
    void tell(void (CCTableDataSourceDelegate::*message)(CCTableDataSourceBase&, Parameters...),
              Arguments... arguments) {
        if (delegate_ != nullptr) (delegate_->*message)(*this, arguments...);
    }

private:
    mutable RecursiveMutex mutex_;
    CCTableDataSourceDelegate* delegate_ = nullptr;
};

}  // namespace dayward
