#include "alerts/EventNotifications.h"

#include <algorithm>
#include <utility>

#include "Classes/Event/HHEvent.h"
#include "alerts/EventNotification.h"
#include "intervals/XDIFormatter.h"
#include "platform/Environment.h"
#include "platform/PercentFormat.h"
#include "platform/Strings.h"

namespace dayward {

namespace {

std::string nameOf(const HHEvent& event) {
    return event.name().value_or("").empty() ? localized("???") : *event.name();
}

constexpr std::size_t kMostKnown = 64;

std::string lengthText(const XDIDateInterval& length) {
    return XDIFormatter::stringForDateInterval(length, TextStyle::full);
}

}  // namespace

std::string AlertTexts::text(const std::string& name, const XDIDateInterval& alert) {
    auto words = std::ranges::find_if(known_, [&](const Words& one) { return one.alert.hasSameFields(alert); });
    if (words == known_.end()) {
        if (known_.size() == kMostKnown) known_.clear();
        words = known_.insert(known_.end(), wordsOf(alert));
    }
    return formatText(words->format, {name, words->length});
}

AlertTexts::Words AlertTexts::wordsOf(const XDIDateInterval& alert) {
    const double value = alert.getSingleValue();
    if (value == 0) return {alert, localized("%@ is happening!"), ""};
    if (value < 0) return {alert, localized("%@ since last %@!"), lengthText({alert.getSingleUnit(), -value})};
    return {alert, localized("%@ - is coming in %@!"), lengthText(alert)};
}

EventNotifications::EventNotifications(const HHEvent& event, AlertTexts& texts) : event_(event) {
    creator_.maxNotificationsCount = kMaximumNotificationsForEvent;
    creator_.objectKey = event.identifier();
    creator_.startDateDay = event.date();
    creator_.startDateTimes = event.times();
    creator_.rrule = event.rrule();
    creator_.alerts = event.alerts().list.value_or(std::vector<XDIDateInterval>());
    creator_.setSoundName(event.alerts().soundName);
    creator_.alertBodyBlock = [name = nameOf(event), &texts](const XDIDateInterval& alert) {
        return texts.text(name, alert);
    };
}

std::vector<EventNotifications::Firing> EventNotifications::firings(std::optional<Date> latest) {
    creator_.latestFireDate = latest;
    std::vector<Firing> firings = creator_.getFirings();
    const Date now = Environment::current().now();
    std::erase_if(firings, [&](const Firing& one) { return one.fireDate < now; });
    removeRepeated(firings);
    return firings;
}

bool EventNotifications::isSame(const Firing& one, const Firing& other) {
    if (one.fireDate != other.fireDate) return false;
    return one.alert == other.alert || creator_.notificationWithoutDate(one.alert).alertBody ==
                                           creator_.notificationWithoutDate(other.alert).alertBody;
}

void EventNotifications::removeRepeated(std::vector<Firing>& firings) {
    auto kept = firings.begin();
    for (const Firing& next : firings) {
        if (std::any_of(firings.begin(), kept, [&](const Firing& one) { return isSame(one, next); })) continue;
        *kept++ = next;
    }
    firings.erase(kept, firings.end());
}

LocalNotification EventNotifications::notification(const Firing& firing) {
    LocalNotification notification = creator_.notification(firing);
    setEventIdentifier(notification, event_.identifier());
    return notification;
}

std::vector<LocalNotification> notificationsOfEvent(const HHEvent& event) {
    AlertTexts texts;
    EventNotifications notifications(event, texts);
    std::vector<LocalNotification> result;
    for (const auto& firing : notifications.firings()) result.push_back(notifications.notification(firing));
    return result;
}

}  // namespace dayward
