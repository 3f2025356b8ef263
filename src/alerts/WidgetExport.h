// Writes the widget's copy of the events.
//
// The copy is fresh when the user leaves the application: it is written whenever the application goes to the
// background, after a background fetch and after a command that changed something. While the application runs
// beside the widget, follow() keeps it fresh as well.
#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "Submodules/CorpLibrary2/Foundation/CCDelayedOperation.h"
#include "alerts/WidgetService.h"
#include "platform/NotificationCenter.h"

namespace dayward {

class WidgetExport final : public WidgetService {
public:
    /// Icons are made smaller to so many pixels.
    static constexpr int kIconSize = 96;
    /// Every event has its icon, until the icons of those that come sooner are so large together.
    static constexpr std::size_t kMaximalIconBytes = std::size_t{16} << 20;
    /// Changes that come within this time are written together.
    static constexpr TimeInterval kDelay{1};

    /// Writes the copy of the present moment; a copy that has not changed is not written. Any thread.
    void exportEvents() override;

    /// From now on writes it on a queue of its own, soon after events, categories or the widget's choice changed.
    void follow();

private:
    std::unique_ptr<CCDelayedOperation> operation_;
    std::vector<NotificationCenter::Observation> observations_;
};

}  // namespace dayward
