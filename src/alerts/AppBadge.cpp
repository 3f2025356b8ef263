#include "alerts/AppBadge.h"

#include <algorithm>

#include "Classes/Event/HHEvent.h"
#include "Classes/Settings/AppSettings.h"
#include "alerts/BadgeNumbers.h"
#include "alerts/MissedEventsHelper.h"
#include "platform/Environment.h"
#include "platform/FailedSave.h"
#include "platform/LocalNotifications.h"
#include "platform/Strings.h"
#include "platform/UserDefaults.h"

namespace dayward {

namespace {

/// Null where it is none of them.
std::shared_ptr<HHEvent> chosenEvent(const Events& events) {
    const auto key = AppBadge::eventKey();
    const auto found = std::ranges::find_if(events, [&](const auto& event) { return event->identifier() == key; });
    return found != events.end() ? *found : nullptr;
}

void store(Object value, const char* key) {
    Environment& environment = Environment::current();
    environment.standardDefaults().setObject(std::move(value), key);
    saveDefaults(environment, environment.standardDefaults());
}

std::vector<BadgeChange> changes(const Events& events, Date now) {
    const Date until = now + AppBadge::kWindow;
    const BadgeType type = AppBadge::type();
    if (type == BadgeType::daysBeforeNextEvent) return changesOfDaysBefore(events, now, until);
    const auto event = AppBadge::needsEvent(type) ? chosenEvent(events) : nullptr;
    if (!event) return {};
    if (type == BadgeType::daysAfterEvent) return changesOfDaysAfter(*event, now, until);
    return changesOfDaysBefore({event}, now, until);
}

}  // namespace

BadgeType AppBadge::type() {
    const Object stored = Environment::current().standardDefaults().objectForKey(kTypeKey);
    if (const auto number = stored.integer()) {
        const bool isType = *number >= 0 && *number < static_cast<std::int64_t>(kTypes.size());
        return isType ? static_cast<BadgeType>(*number) : BadgeType::none;
    }
    return AppSettings::old_appBadgeShow().value_or(true) ? BadgeType::missedEvents : BadgeType::none;
}

void AppBadge::setType(BadgeType type) { store(static_cast<std::int64_t>(type), kTypeKey); }

bool AppBadge::needsEvent(BadgeType type) {
    return type == BadgeType::daysBeforeEvent || type == BadgeType::daysAfterEvent;
}

std::optional<std::string> AppBadge::eventKey() {
    return Environment::current().standardDefaults().stringForKey(kEventKeyKey);
}

void AppBadge::setEventKey(const std::optional<std::string>& identifier) {
    store(identifier ? Object(*identifier) : Object(), kEventKeyKey);
}

std::string AppBadge::displayName(BadgeType type) {
    switch (type) {
        case BadgeType::none: return localized("None");
        case BadgeType::missedEvents: return localized("Missed events");
        case BadgeType::daysBeforeNextEvent: return localized("Days before next event");
        case BadgeType::daysBeforeEvent: return localized("Days before the event");
        case BadgeType::daysAfterEvent: return localized("Days after the event");
    }
    return {};
}

std::optional<std::int64_t> AppBadge::currentNumber(const Events& events, Date now) {
    const BadgeType present = type();
    if (present == BadgeType::none) return 0;
    if (present == BadgeType::missedEvents) return std::ssize(MissedEventsHelper::missedEvents());
    if (present == BadgeType::daysBeforeNextEvent) return daysBefore(events, now);
    const auto event = chosenEvent(events);
    if (!event) return std::nullopt;
    return present == BadgeType::daysAfterEvent ? daysAfter(*event, now) : daysBefore({event}, now);
}

void AppBadge::showCurrentNumber(const Events& events, Date now) {
    LocalNotifications* device = Environment::current().localNotifications();
    const auto number = device != nullptr ? currentNumber(events, now) : std::nullopt;
    if (number && *number != device->applicationIconBadgeNumber()) device->setApplicationIconBadgeNumber(*number);
}

std::vector<LocalNotification> AppBadge::silentNotifications(const Events& events, Date now) {
    std::vector<LocalNotification> notifications;
    for (const BadgeChange& change : changes(events, now)) {
        LocalNotification& notification = notifications.emplace_back();
        notification.fireDate = change.date;
        notification.applicationIconBadgeNumber = change.number;
    }
    return notifications;
}

}  // namespace dayward
