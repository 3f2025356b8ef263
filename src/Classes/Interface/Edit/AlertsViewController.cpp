#include "Classes/Interface/Edit/AlertsViewController.h"

#include <algorithm>

#include "Classes/Interface/Edit/EditIntervalView.h"
#include "Classes/Interface/General/Interface.h"
#include "Classes/Interface/Screens/Presenter.h"
#include "platform/PercentFormat.h"
#include "platform/Strings.h"

namespace dayward {

namespace {

XDIDateInterval withOppositeSign(const XDIDateInterval& interval) {
    return {interval.getSingleUnit(), -interval.getSingleValue()};
}

}  // namespace

AlertsViewController::AlertsViewController(const std::vector<XDIDateInterval>& alerts,
                                           std::weak_ptr<AlertsViewControllerDelegate> delegate)
    : delegate_(std::move(delegate)) {
    setTitle(localized("Alerts"));
    setAlerts(alerts);
}

std::vector<XDIDateInterval> AlertsViewController::alerts() const {
    std::vector<XDIDateInterval> alerts;
    if (onEventValue_) alerts.emplace_back();
    for (const Items* items : {&beforeItems_, &afterItems_}) {
        for (const Item& item : *items) {
            if (std::ranges::find(alerts, item.interval) == alerts.end()) alerts.push_back(item.interval);
        }
    }
    return alerts;
}

void AlertsViewController::setAlerts(const std::vector<XDIDateInterval>& alerts) {
    onEventValue_ = false;
    beforeItems_.clear();
    afterItems_.clear();
    for (const XDIDateInterval& alert : alerts) {
        const double value = alert.getSingleValue();
        if (value == 0) onEventValue_ = true;
        if (value > 0) add(beforeItems_, alert);
        if (value < 0) add(afterItems_, alert);
    }
}

void AlertsViewController::add(Items& items, const XDIDateInterval& interval) {
    if (std::ranges::find(items, interval, &Item::interval) != items.end()) return;
    items.push_back({nextSerial_++, interval});
}

void AlertsViewController::viewWillDisappear(Disappearance) {
    if (const auto delegate = delegate_.lock()) delegate->completeWithAlerts(*this, alerts());
}

std::vector<TableSection> AlertsViewController::makeSections() {
    TableSection onEvent{"onEvent", {}, {}, {}};
    onEvent.rows.push_back(toggleRow("onEvent", localized("On Event"), onEventValue_, [this](bool on) {
        onEventValue_ = on;
        reloadData();
    }));
    std::vector<TableSection> sections{std::move(onEvent), sectionOf(Side::before), sectionOf(Side::after)};
    if (!alerts().empty()) {
        sections.push_back({"clear", {}, {}, {destructiveRow("clear", localized("Clear"), [this] { clear(); })}});
    }
    return sections;
}

TableSection AlertsViewController::sectionOf(Side side) {
    const bool isBefore = side == Side::before;
    TableSection section{isBefore ? "before" : "after", {}, {}, {}};
    for (const Item& item : itemsOf(side)) section.rows.push_back(rowOf(side, item));
    section.rows.push_back(actionRow(isBefore ? "addBefore" : "addAfter",
                                     localized(isBefore ? "Add alert before" : "Add alert after"),
                                     [this, side] { edit(side, std::nullopt); }));
    return section;
}

TableRow AlertsViewController::rowOf(Side side, const Item& item) {
    const bool isBefore = side == Side::before;
    const XDIDateInterval shown = isBefore ? item.interval : withOppositeSign(item.interval);
    TableRow row =
        valueRow("alert" + std::to_string(item.serial),
                 formatText(localized(isBefore ? "%@ Before" : "%@ After"), {Interface::descriptionDuration(shown)}),
                 {}, [this, side, item] { edit(side, item); });
    row.canDelete = true;
    row.actions.remove = [this, side, serial = item.serial] { deleteTimeAction(side, serial); };
    return row;
}

void AlertsViewController::edit(Side side, const std::optional<Item>& item) {
    const std::optional<Serial> serial = item ? std::optional(item->serial) : std::nullopt;
    std::function<void()> remove;
    if (serial) remove = [this, side, serial] { deleteTimeAction(side, *serial); };
    presenter().presentPanel(
        *this, std::make_shared<EditIntervalView>(
                   localized("Alert"), item ? IntervalPicker(item->interval) : IntervalPicker(),
                   [this, side, serial](const XDIDateInterval& picked) { doneTimeAction(side, serial, picked); },
                   std::move(remove)));
}

void AlertsViewController::doneTimeAction(Side side, std::optional<Serial> serial, XDIDateInterval picked) {
    Items& items = itemsOf(side);
    if (side == Side::after) picked = withOppositeSign(picked);
    const auto item = serial ? std::ranges::find(items, *serial, &Item::serial) : items.end();
    if (item != items.end()) {
        item->interval = picked;
    } else {
        add(items, picked);
    }
    reloadData();
}

void AlertsViewController::deleteTimeAction(Side side, Serial serial) {
    std::erase_if(itemsOf(side), [serial](const Item& item) { return item.serial == serial; });
    reloadData();
}

void AlertsViewController::clear() {
    setAlerts({});
    reloadData();
}

}  // namespace dayward
