#include "Classes/Interface/List/EventByDateTableManager.h"

#include <algorithm>
#include <cmath>

#include "alerts/MissedEventsHelper.h"
#include "platform/Collation.h"
#include "platform/Environment.h"

namespace dayward {

EventDateRank::EventDateRank(const HHEvent& event, Date now) : group_(Group::running), name_(event.name().value_or("")) {
    const std::optional<Date> next = event.nextDate();
    seconds_ = next ? std::round((*next - now).seconds()) : 0;
    if (event.isComing()) return;
    group_ = seconds_ >= 0 ? Group::ahead : Group::past;
    if (group_ == Group::past) seconds_ = -seconds_;
}

bool EventDateRank::isOrderedBefore(const EventDateRank& other) const {
    if (group_ != other.group_) return group_ < other.group_;
    if (seconds_ != other.seconds_) return seconds_ < other.seconds_;
    return plainStringOrder(name_, other.name_) < 0;
}

std::optional<std::string> EventByDateTableManager::titleForHeaderInSection(std::size_t section) const {
    const EventSection object = sectionAtIndex(section);
    return object ? std::optional("  " + object->text()) : std::nullopt;
}

EventSection EventByDateTableManager::sectionForObject(const EventRow& event) const {
    const Environment& environment = Environment::current();
    return HHDTDSContainer::sectionOf(*event, MissedEventsHelper::isMissed(event->identifier()), environment.now(),
                                      *environment.calendar());
}

EventTableManager::SectionComparator EventByDateTableManager::sectionsSortComparator() const {
    return [](const EventSection& a, const EventSection& b) {
        return HHDTDSContainer::isOrderedBefore(a.value_or(HHDTDSContainer()), b.value_or(HHDTDSContainer()));
    };
}

EventTableManager::RowComparator EventByDateTableManager::objectsSortComparatorForSection(const EventSection&) const {
    return [now = Environment::current().now()](const EventRow& a, const EventRow& b) {
        return EventDateRank(*a, now).isOrderedBefore(EventDateRank(*b, now));
    };
}

std::vector<EventRow> EventByDateTableManager::sortObjects(std::vector<EventRow> events, const EventSection&) const {
    const Date now = Environment::current().now();
    std::vector<std::pair<EventDateRank, EventRow>> ranked;
    ranked.reserve(events.size());
    for (EventRow& event : events) {
        EventDateRank rank(*event, now);
        ranked.emplace_back(std::move(rank), std::move(event));
    }
    stableMergeSort(ranked, [](const auto& a, const auto& b) { return a.first.isOrderedBefore(b.first); });
    std::ranges::transform(ranked, events.begin(), [](auto& entry) { return std::move(entry.second); });
    return events;
}

std::int64_t EventByDateTableManager::orderStamp() const {
    return static_cast<std::int64_t>(std::floor(Environment::current().now().secondsSinceReference() * 2));
}

}  // namespace dayward
