// Any duration of one unit. What it shows is taken when it goes out of sight. Main thread only.
#pragma once

#include <functional>
#include <optional>

#include "Classes/Interface/Edit/IntervalPicker.h"
#include "Classes/Interface/Screens/TableScreen.h"

namespace dayward {

class PeriodExViewController final : public TableScreen {
public:
    using Completion = std::function<void(const XDIDateInterval&)>;

    /// Without a duration it begins with 1 hour.
    PeriodExViewController(const std::optional<XDIDateInterval>& duration, Completion completionBlock);

    [[nodiscard]] XDIDateInterval duration() const { return picker_.interval(); }

    void viewWillDisappear(Disappearance why) override;

protected:
    std::vector<TableSection> makeSections() override;

private:
    IntervalPicker picker_;
    Completion completionBlock_;
};

}  // namespace dayward
