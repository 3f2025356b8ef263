#include "alerts/WidgetExport.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <numeric>
#include <span>

#include "Classes/Category/CategoryLocalStore.h"
#include "Classes/Category/EventIconPicture.h"
#include "Classes/Category/NamedPicture.h"
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

/// So many events' icons are made together.
constexpr std::size_t kAtATime = 128;

/// The places of the events, of many what comes soonest before what is over.
std::vector<std::size_t> placesByDate(const Events& events) {
    std::vector<std::size_t> places(events.size());
    std::iota(places.begin(), places.end(), std::size_t{0});
    if (places.size() <= kAtATime) return places;
    const Date now = Environment::current().now();
    std::vector<Date> next(events.size());
    inParallel(events.size(), 256, [&](std::size_t place) {
        next[place] = events[place]->datesAt(now).next.value_or(Date::sinceReference(HUGE_VAL));
    });
    std::ranges::stable_sort(places, {}, [&](std::size_t place) { return next[place]; });
    return places;
}

std::optional<Data> iconData(const Image& image) {
    if (image.isEmpty()) return std::nullopt;
    auto data = scaledToFit(image, WidgetExport::kIconSize).pngData();
    if (data) return *std::move(data);
    logError("widget: an icon cannot be written: " + data.error().description());
    return std::nullopt;
}

/// Makes the icons of a few events at a time, each of a name once.
class Icons {
public:
    using Pictures = std::vector<std::shared_ptr<const EventIconPicture>>;
    using Icon = std::optional<Data>;

    /// In the order of the pictures.
    std::vector<Icon> of(const Pictures& pictures) {
        Pictures wanted;
        std::map<Key, std::size_t> places;
        for (const auto& picture : pictures) {
            const Key key = keyOf(picture);
            if (!isMade(key) && places.try_emplace(key, wanted.size()).second) wanted.push_back(picture);
        }
        std::vector<Icon> made(wanted.size());
        inParallel(wanted.size(), 4, [&](std::size_t i) { made[i] = iconData(*wanted[i]->getImage()); });
        std::vector<Icon> icons;
        for (const auto& picture : pictures) {
            const auto place = places.find(keyOf(picture));
            icons.push_back(place != places.end() ? made[place->second] : named_.at(keyOf(picture).second));
        }
        for (const auto& [key, place] : places) {
            if (key.first == nullptr) named_.emplace(key.second, std::move(made[place]));
        }
        return icons;
    }

private:
    /// A name, or another picture's place in memory.
    using Key = std::pair<const EventIconPicture*, std::string>;

    static Key keyOf(const std::shared_ptr<const EventIconPicture>& picture) {
        const auto* named = dynamic_cast<const NamedPicture*>(picture.get());
        return named != nullptr ? Key{nullptr, named->named()} : Key{picture.get(), {}};
    }

    [[nodiscard]] bool isMade(const Key& key) const { return key.first == nullptr && named_.contains(key.second); }

    std::map<std::string, Icon> named_;
};

void takeIcons(const Events& events, const Copies& copies) {
    const std::vector<std::size_t> places = placesByDate(events);
    Icons made;
    std::size_t bytes = 0;
    for (std::size_t begin = 0; begin < places.size() && bytes < WidgetExport::kMaximalIconBytes; begin += kAtATime) {
        const auto some = std::span(places).subspan(begin, std::min(kAtATime, places.size() - begin));
        Icons::Pictures pictures;
        for (const std::size_t place : some) pictures.push_back(events[place]->displayIcon());
        auto icons = made.of(pictures);
        for (std::size_t i = 0; i < some.size(); ++i) {
            if (icons[i]) bytes += icons[i]->size();
            copies[some[i]]->icon = std::move(icons[i]);
        }
    }
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
