#include "Classes/Interface/Info/WidgetViewController.h"

#include <algorithm>

#include "Classes/Event/EventLocalStore.h"
#include "Classes/Event/HHEvent.h"
#include "Classes/Interface/Info/EventsByName.h"
#include "alerts/AppWidget.h"
#include "platform/Environment.h"
#include "platform/NotificationCenter.h"
#include "platform/Strings.h"
#include "platform/UserDefaults.h"

namespace dayward {

WidgetViewController::WidgetViewController() { setTitle(localized("Widget")); }

void WidgetViewController::viewDidLoad() {
    // Another process may have chosen meanwhile.
    (void)Environment::current().groupDefaults().synchronize();
    widgetEventsKeys_ = AppWidget::eventsKeys().value_or(std::vector<std::string>());
    TableScreen::viewDidLoad();
}

void WidgetViewController::viewWillAppear() {
    observer_.observe(
        EventCellDidChangedValue,
        [this](const Notification& changed) {
            setSelected(*changed.userInfo.at(EventCellEventKey).string(),
                        *changed.userInfo.at(EventCellValueKey).boolean());
        },
        this);
    observer_.observe(EventLocalStoreDidUpdateNotification, [this](const Notification&) { reloadData(); });
    TableScreen::viewWillAppear();
}

void WidgetViewController::viewWillDisappear(Disappearance) {
    observer_.end();
    AppWidget::setEventsKeys(widgetEventsKeys_);
}

std::vector<TableSection> WidgetViewController::makeSections() { return {typeSection(), eventsSection()}; }

TableSection WidgetViewController::typeSection() {
    TableSection section{"type", localized("Widget Type"), {}, {}};
    for (const WidgetType type : AppWidget::kTypes) {
        section.rows.push_back(checkRow("type" + std::to_string(static_cast<std::int64_t>(type)),
                                        AppWidget::displayName(type), type == AppWidget::type(), [this, type] {
                                            AppWidget::setType(type);
                                            reloadData();
                                        }));
    }
    return section;
}

TableSection WidgetViewController::eventsSection() {
    TableSection section{"events", localized("Selected events for a widget"), {}, {}};
    for (const auto& event : eventsByName()) section.rows.push_back(eventRow(*event));
    return section;
}

TableRow WidgetViewController::eventRow(const HHEvent& event) {
    const bool selected = std::ranges::find(widgetEventsKeys_, event.identifier()) != widgetEventsKeys_.end();
    return toggleRow("event:" + event.identifier(), listedName(event), selected, [this, key = event.identifier()](bool on) {
        Environment::current().notifications().post(EventCellDidChangedValue, this,
                                                    {{EventCellEventKey, key}, {EventCellValueKey, on}});
    });
}

void WidgetViewController::setSelected(const std::string& eventKey, bool selected) {
    std::erase(widgetEventsKeys_, eventKey);
    if (selected) widgetEventsKeys_.push_back(eventKey);
    reloadData();
}

}  // namespace dayward
