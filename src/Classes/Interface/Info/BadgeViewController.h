// Chooses the number on the program's icon, and the event whose days it counts. A tap stores the choice and
// asks for a refresh of the notifications; the screen stays. Main thread only.
#pragma once

#include <functional>

#include "Classes/Interface/Screens/ScreenObserver.h"
#include "Classes/Interface/Screens/TableScreen.h"

namespace dayward {

class BadgeViewController final : public TableScreen {
public:
    /// `refresh` is called on the main thread; it may be empty.
    explicit BadgeViewController(std::function<void()> refresh);

    void viewWillAppear() override;
    void viewWillDisappear(Disappearance) override { observer_.end(); }

protected:
    std::vector<TableSection> makeSections() override;

private:
    [[nodiscard]] TableSection typeSection();
    [[nodiscard]] TableSection eventsSection();
    void didChoose();

    const std::function<void()> refresh_;
    ScreenObserver observer_;
};

}  // namespace dayward
