#include "alerts/AppWidget.h"

#include "alerts/WidgetEvent.h"
#include "platform/Environment.h"
#include "platform/FailedSave.h"
#include "platform/KeyedArchiver.h"
#include "platform/NotificationCenter.h"
#include "platform/Strings.h"
#include "platform/UserDefaults.h"

namespace dayward {
namespace {

UserDefaults& defaults() { return Environment::current().groupDefaults(); }

/// Takes in what the other process wrote; false where that is the value already.
bool change(Object value, const char* key) {
    (void)defaults().synchronize();
    if (defaults().objectForKey(key) == value) return false;
    defaults().setObject(std::move(value), key);
    return true;
}

/// A failure is logged by the defaults.
void store(Object value, const char* key) {
    if (change(std::move(value), key)) (void)defaults().synchronize();
}

void storeChoice(Object value, const char* key) {
    if (!change(std::move(value), key)) return;
    Environment& environment = Environment::current();
    saveDefaults(environment, defaults());
    environment.notifications().post(AppWidgetDidUpdateNotification, nullptr);
}

}  // namespace

WidgetType AppWidget::type() {
    return defaults().integerForKey(kTypeKey) == static_cast<std::int64_t>(WidgetType::selectedEvents)
               ? WidgetType::selectedEvents
               : WidgetType::todaysEvents;
}

void AppWidget::setType(WidgetType type) { storeChoice(static_cast<std::int64_t>(type), kTypeKey); }

std::string AppWidget::displayName(WidgetType type) {
    return localized(type == WidgetType::selectedEvents ? "Selected events" : "Today's events");
}

std::optional<std::vector<std::string>> AppWidget::eventsKeys() {
    const Object stored = defaults().objectForKey(kEventsKeysKey);
    if (stored.array() == nullptr) return std::nullopt;
    std::vector<std::string> keys;
    for (const Object& entry : *stored.array()) {
        if (const std::string* key = entry.string()) keys.push_back(*key);
    }
    return keys;
}

void AppWidget::setEventsKeys(const std::vector<std::string>& eventsKeys) {
    storeChoice(Array(eventsKeys.begin(), eventsKeys.end()), kEventsKeysKey);
}

std::vector<std::shared_ptr<WidgetEvent>> AppWidget::events() {
    std::vector<std::shared_ptr<WidgetEvent>> events;
    const Object stored = defaults().unarchiveObjectForKey(kEventsKey);
    if (stored.array() == nullptr) return events;
    events.reserve(stored.array()->size());
    for (const Object& entry : *stored.array()) {
        if (auto event = entry.as<WidgetEvent>()) events.push_back(std::move(event));
    }
    return events;
}

void AppWidget::setEvents(const std::vector<std::shared_ptr<WidgetEvent>>& events) {
    Array records;
    records.reserve(events.size());
    for (const auto& event : events) records.emplace_back(std::shared_ptr<Archivable>(event));
    store(KeyedArchiver::archivedDataWithRootObject(std::move(records)), kEventsKey);
}

std::optional<std::string> AppWidget::language() { return defaults().stringForKey(kLanguageKey); }

void AppWidget::setLanguage(const std::optional<std::string>& language) {
    store(language ? Object(*language) : Object(), kLanguageKey);
}

}  // namespace dayward
