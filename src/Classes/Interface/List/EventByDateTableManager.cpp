#include "Classes/Interface/List/EventByDateTableManager.h"

#include <cmath>

#include "Classes/Interface/List/EventDateArrangement.h"
#include "alerts/MissedEventsHelper.h"
#include "platform/Collation.h"
#include "platform/Environment.h"

namespace dayward {

namespace {

std::string_view eventNameOrEmpty(const HHEvent& event) {
    return event.name() ? std::string_view(*event.name()) : std::string_view();
}

}  // namespace

EventDateRank::EventDateRank(const HHEvent::DatesCalculation& dates, Date now) {
    const std::optional<Date> next = dates.occurrence();
    seconds = next ? std::round((*next - now).seconds()) : 0;
    if (dates.isRunning(now)) return;
    group = seconds >= 0 ? Group::ahead : Group::past;
    if (group == Group::past) seconds = -seconds;
}

bool EventDateRank::isOrderedBefore(const HHEvent& a, const HHEvent& b, Date now) {
    const EventDateRank rankOfA(a.datesAt(now), now), rankOfB(b.datesAt(now), now);
    if (rankOfA != rankOfB) return rankOfA < rankOfB;
    return plainStringOrder(eventNameOrEmpty(a), eventNameOrEmpty(b)) < 0;
}

std::optional<std::string> EventByDateTableManager::titleForHeaderInSection(std::size_t section) const {
    const EventSection object = sectionAtIndex(section);
    return object ? std::optional("  " + object->text()) : std::nullopt;
}

EventSection EventByDateTableManager::sectionForObject(const EventRow& event) const {
    const Environment& environment = Environment::current();
    const auto calendar = environment.calendar();
    const HHDTDSContainer::Moment moment(environment.now(), *calendar);
    const HHEvent::DatesCalculation dates = event->datesAt(moment.now);
    return HHDTDSContainer::sectionOf(dates.occurrence(), dates.isRunning(moment.now),
                                      MissedEventsHelper::isMissed(event->identifier()), moment);
}

EventTableManager::SectionComparator EventByDateTableManager::sectionsSortComparator() const {
    return [](const EventSection& a, const EventSection& b) {
        return HHDTDSContainer::isOrderedBefore(a.value_or(HHDTDSContainer()), b.value_or(HHDTDSContainer()));
    };
}

EventTableManager::RowComparator EventByDateTableManager::objectsSortComparatorForSection(const EventSection&) const {
    return [now = Environment::current().now()](const EventRow& a, const EventRow& b) {
        return EventDateRank::isOrderedBefore(*a, *b, now);
    };
}

std::vector<EventTableManager::Group> EventByDateTableManager::arranged(std::vector<EventRow> events) const {
    auto groups = arrangedByDate(events);
    return groups ? *std::move(groups) : EventTableManager::arranged(std::move(events));
}

std::int64_t EventByDateTableManager::orderStamp() const {
    return wholeSeconds(Environment::current().now().secondsSinceReference() * 2);
}

}  // namespace dayward
