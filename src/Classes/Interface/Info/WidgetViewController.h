// The settings of the widget: its type, and the events that are selected for it. The type is stored at once, the
// selection when the screen goes away. Main thread only.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "Classes/Interface/Screens/ScreenObserver.h"
#include "Classes/Interface/Screens/TableScreen.h"

namespace dayward {

class HHEvent;

/// The switch of an event's row was turned. Object the screen, user info "eventKey" and "value".
inline constexpr const char* EventCellDidChangedValue = "EventCellDidChangedValue";
inline constexpr const char* EventCellEventKey = "eventKey";
inline constexpr const char* EventCellValueKey = "value";

class WidgetViewController final : public TableScreen {
public:
    WidgetViewController();

    void viewDidLoad() override;
    void viewWillAppear() override;
    void viewWillDisappear(Disappearance) override;

    /// In the widget's order. Events that are not there now stay selected: they may come back.
    [[nodiscard]] const std::vector<std::string>& widgetEventsKeys() const { return widgetEventsKeys_; }

protected:
    std::vector<TableSection> makeSections() override;

private:
    [[nodiscard]] TableSection typeSection();
    [[nodiscard]] TableSection eventsSection();
    [[nodiscard]] TableRow eventRow(const HHEvent& event);
    void setSelected(const std::string& eventKey, bool selected);

    std::vector<std::string> widgetEventsKeys_;
    ScreenObserver observer_;
};

}  // namespace dayward
