// What a new event starts with. Each change goes straight to the settings. Main thread only.
#pragma once

#include <vector>

#include "Classes/Interface/Edit/AlertsViewController.h"
#include "Classes/Interface/Screens/TableScreen.h"

namespace dayward {

class DefaultValuesViewController final : public TableScreen, public AlertsViewControllerDelegate {
public:
    DefaultValuesViewController();

    void completeWithAlerts(AlertsViewController& sender, const std::vector<XDIDateInterval>& alerts) override;

protected:
    std::vector<TableSection> makeSections() override;

private:
    void openTime();
    void openUnits();
    void openAlerts();
    void openSound();
};

}  // namespace dayward
