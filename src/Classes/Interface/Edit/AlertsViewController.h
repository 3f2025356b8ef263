// The alerts of an event: at the moment itself, before it and after it. Hands them over each time it
// goes out of sight. Main thread only.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "Classes/Interface/Screens/TableScreen.h"
#include "intervals/XDIDateInterval.h"

namespace dayward {

class AlertsViewController;

class AlertsViewControllerDelegate {
public:
    virtual ~AlertsViewControllerDelegate() = default;
    virtual void completeWithAlerts(AlertsViewController& sender, const std::vector<XDIDateInterval>& alerts) = 0;
};

class AlertsViewController final : public TableScreen {
public:
    AlertsViewController(const std::vector<XDIDateInterval>& alerts,
                         std::weak_ptr<AlertsViewControllerDelegate> delegate);

    /// The moment itself first, then those before and those after in the order of their making, none
    /// twice. Those after have negative values.
    [[nodiscard]] std::vector<XDIDateInterval> alerts() const;
    /// Sorts the alerts into the three places by the value of their biggest unit.
    void setAlerts(const std::vector<XDIDateInterval>& alerts);

    void viewWillDisappear(Disappearance why) override;

protected:
    std::vector<TableSection> makeSections() override;

private:
    using Serial = std::size_t;
    struct Item {
        Serial serial;  ///< keeps the row's identity while others come and go
        XDIDateInterval interval;
    };
    enum class Side { before, after };
    using Items = std::vector<Item>;

    [[nodiscard]] Items& itemsOf(Side side) { return side == Side::before ? beforeItems_ : afterItems_; }
    [[nodiscard]] TableSection sectionOf(Side side);
    [[nodiscard]] TableRow rowOf(Side side, const Item& item);
    void add(Items& items, const XDIDateInterval& interval);
    /// Without an item, for a new one.
    void edit(Side side, const std::optional<Item>& item);
    void doneTimeAction(Side side, std::optional<Serial> serial, XDIDateInterval picked);
    void deleteTimeAction(Side side, Serial serial);
    void clear();

    bool onEventValue_ = false;
    Items beforeItems_;
    Items afterItems_;
    Serial nextSerial_ = 0;
    std::weak_ptr<AlertsViewControllerDelegate> delegate_;
};

}  // namespace dayward
