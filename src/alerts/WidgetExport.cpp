#include "alerts/WidgetExport.h"

#include <algorithm>
#include <cmath>
#include <map>

#include "Classes/Category/CategoryLocalStore.h"
#include "Classes/Event/EventLocalStore.h"
#include "Classes/Event/HHEvent.h"
#include "Classes/Settings/InterfaceSettings.h"
#include "alerts/AppWidget.h"
#include "alerts/WidgetEvent.h"
#include "platform/Environment.h"
#include "platform/ImageImport.h"
#include "platform/Log.h"
#include "platform/Parallel.h"

namespace dayward {
namespace {

using Events = std::vector<std::shared_ptr<HHEvent>>;
using Copies = std::vector<std::shared_ptr<WidgetEvent>>;

/// In one order for the same events, or the copy would seem another one.
Events allEvents() {
    Events events = EventLocalStore::shared().allEvents();
    std::ranges::sort(events, {}, [](const auto& event) -> const std::string& { return event->identifier(); });
    return events;
}

Events selectedEvents() {
    Events events;
    for (const std::string& key : AppWidget::eventsKeys().value_or(std::vector<std::string>())) {
        if (auto event = EventLocalStore::shared().eventByIdentifier(key)) events.push_back(std::move(event));
    }
    return events;
}

std::shared_ptr<WidgetEvent> copyOf(const HHEvent& event) {
    auto copy = std::make_shared<WidgetEvent>(event.identifier());
    copy->name = event.name();
    copy->setDate(event.date());
    copy->setTimes(event.times());
    copy->setRrule(event.rrule());
    copy->setDuration(event.duration() ? event.duration()->timeInterval() : TimeInterval(0));
    copy->showAge = event.showAge();
    copy->intervalFormat = event.intervalFormat();
    return copy;
}

/// The places of the events whose icons are taken: what comes soonest before what is over.
std::vector<std::size_t> placesWithIcons(const Events& events) {
    std::vector<std::size_t> places(events.size());
    for (std::size_t place = 0; place < places.size(); ++place) places[place] = place;
    if (places.size() <= WidgetExport::kMaximalIcons) return places;
    const Date now = Environment::current().now();
    std::vector<Date> next(events.size());
    inParallel(events.size(), 256, [&](std::size_t place) {
        next[place] = events[place]->datesAt(now).next.value_or(Date::sinceReference(HUGE_VAL));
    });
    const auto end = places.begin() + WidgetExport::kMaximalIcons;
    std::ranges::partial_sort(places, end, {}, [&](std::size_t place) { return next[place]; });
    places.erase(end, places.end());
    return places;
}

std::optional<Data> iconData(const Image& image) {
    if (image.isEmpty()) return std::nullopt;
    auto data = scaledToFit(image, WidgetExport::kIconSize).pngData();
    if (data) return *std::move(data);
    logError("widget: an icon cannot be written: " + data.error().description());
    return std::nullopt;
}

/// Events share icons; each is made smaller once.
void takeIcons(const Events& events, const Copies& copies) {
    const std::vector<std::size_t> places = placesWithIcons(events);
    std::vector<std::shared_ptr<const Image>> images(places.size());
    inParallel(places.size(), 4, [&](std::size_t i) { images[i] = events[places[i]]->displayIcon()->getImage(); });
    std::map<std::shared_ptr<const Image>, std::optional<Data>> made;
    for (const auto& image : images) made.try_emplace(image);
    std::vector<decltype(made)::value_type*> entries;
    for (auto& entry : made) entries.push_back(&entry);
    inParallel(entries.size(), 4, [&](std::size_t i) { entries[i]->second = iconData(*entries[i]->first); });
    for (std::size_t i = 0; i < places.size(); ++i) copies[places[i]]->icon = made.at(images[i]);
}

}  // namespace

void WidgetExport::exportEvents() {
    const Events events = AppWidget::type() == WidgetType::selectedEvents ? selectedEvents() : allEvents();
    Copies copies;
    copies.reserve(events.size());
    for (const auto& event : events) copies.push_back(copyOf(*event));
    takeIcons(events, copies);
    AppWidget::setLanguage(InterfaceSettings::language());
    AppWidget::setEvents(copies);
}

void WidgetExport::follow() {
    operation_ = std::make_unique<CCDelayedOperation>([] { WidgetExport().exportEvents(); });
    operation_->setDelayedTime(kDelay);
    for (const char* name : {EventLocalStoreDidUpdateNotification, CategoryLocalStoreDidUpdateNotification,
                             AppWidgetDidUpdateNotification, InterfaceSettings::kDidUpdateNotification}) {
        observations_.push_back(Environment::current().notifications().addObserver(
            name, [this](const Notification&) { operation_->start(); }));
    }
}

}  // namespace dayward
