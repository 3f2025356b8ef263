#include "Classes/Interface/Info/BadgeViewController.h"

#include <utility>

#include "Classes/Event/EventLocalStore.h"
#include "Classes/Event/HHEvent.h"
#include "Classes/Interface/Info/EventsByName.h"
#include "alerts/AppBadge.h"
#include "alerts/MissedEventsHelper.h"
#include "platform/Environment.h"
#include "platform/PercentFormat.h"
#include "platform/Strings.h"

namespace dayward {

namespace {

/// What the icon shows with the present choice.
std::string presentNumberText() {
    const auto number =
        AppBadge::currentNumber(EventLocalStore::shared().allEvents(), Environment::current().now());
    if (!number) return localized("Choose an event below.");
    if (*number == 0) return localized("No number is shown now.");
    return formatText(localized("The number is %@ now."), {std::to_string(*number)});
}

}  // namespace

BadgeViewController::BadgeViewController(std::function<void()> refresh) : refresh_(std::move(refresh)) {
    setTitle(localized("Badge"));
}

void BadgeViewController::viewWillAppear() {
    for (const char* name : {EventLocalStoreDidUpdateNotification, MissedEventsHelper::kDidUpdateNotification}) {
        observer_.observe(name, [this](const Notification&) { reloadData(); });
    }
    TableScreen::viewWillAppear();
}

std::vector<TableSection> BadgeViewController::makeSections() { return {typeSection(), eventsSection()}; }

TableSection BadgeViewController::typeSection() {
    TableSection section{"type", localized("Badge Type"), presentNumberText(), {}};
    for (const BadgeType type : AppBadge::kTypes) {
        section.rows.push_back(checkRow("type" + std::to_string(static_cast<std::int64_t>(type)),
                                        AppBadge::displayName(type), type == AppBadge::type(), [this, type] {
                                            AppBadge::setType(type);
                                            didChoose();
                                        }));
    }
    return section;
}

TableSection BadgeViewController::eventsSection() {
    TableSection section{"events", localized("Selected event for badge"),
                         formatText(localized("Used by \"%@\" and \"%@\"."),
                                    {AppBadge::displayName(BadgeType::daysBeforeEvent),
                                     AppBadge::displayName(BadgeType::daysAfterEvent)}),
                         {}};
    const auto chosen = AppBadge::eventKey();
    for (const auto& event : eventsByName()) {
        section.rows.push_back(checkRow("event:" + event->identifier(), listedName(*event), event->identifier() == chosen,
                                        [this, key = event->identifier()] {
                                            AppBadge::setEventKey(key);
                                            didChoose();
                                        }));
    }
    return section;
}

void BadgeViewController::didChoose() {
    reloadData();
    if (refresh_) refresh_();
}

}  // namespace dayward
