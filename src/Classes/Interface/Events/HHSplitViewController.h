// The list and the detail of one window: side by side where the window is wide enough for both, else one
// over the other. Makes the list, which becomes the root of the root stack, and shows in the detail pane
// what the list selects. Main thread only.
#pragma once

#include <memory>

#include "Classes/Interface/Events/EventListViewController.h"
#include "Classes/Interface/Screens/Navigation.h"
#include "Classes/Interface/Screens/ScreenObserver.h"

namespace dayward {

class HHSplitViewController {
public:
    // In points.
    static constexpr double kMasterColumnWidth = 320;  ///< the least width of the list beside the detail
    static constexpr double kDetailColumnWidth = 380;  ///< the least width of the detail beside the list

    /// The navigation, in which master() is to become the root screen, is not owned.
    explicit HHSplitViewController(Navigation& navigation, EventScreensServices services = {});

    [[nodiscard]] const std::shared_ptr<EventListViewController>& master() const { return master_; }
    /// The root of the detail pane; null where there is none.
    [[nodiscard]] std::shared_ptr<EventDetailViewController> detail() const;

    /// Both columns are always shown where they fit.
    [[nodiscard]] static bool hasRoomForTwoColumns(double width) {
        return width >= kMasterColumnWidth + kDetailColumnWidth;
    }
    /// To be called at the start and whenever the window's width changes.
    void setWindowWidth(double width) { navigation_.setHasDetailPane(hasRoomForTwoColumns(width)); }

private:
    void eventListSelectEventKey(const Notification& notification);

    Navigation& navigation_;
    const std::shared_ptr<EventListViewController> master_;
    ScreenObserver observer_;
};

}  // namespace dayward
