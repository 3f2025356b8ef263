// The bottom panel in which an interval of one unit is picked. Main thread only.
#pragma once

#include <functional>
#include <string>

#include "Classes/Interface/Edit/IntervalPicker.h"
#include "Classes/Interface/Screens/TableScreen.h"

namespace dayward {

class EditIntervalView final : public TableScreen {
public:
    /// `remove` is empty for an interval that is not in the list yet. The panel is closed before either
    /// is called.
    EditIntervalView(std::string title, IntervalPicker picker, std::function<void(const XDIDateInterval&)> done,
                     std::function<void()> remove);

protected:
    std::vector<TableSection> makeSections() override;

private:
    void close(const std::function<void()>& andThen);

    IntervalPicker picker_;
    std::function<void(const XDIDateInterval&)> done_;
};

}  // namespace dayward
