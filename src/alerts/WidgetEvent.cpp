#include "alerts/WidgetEvent.h"

#include "platform/Environment.h"
#include "platform/KeyedArchiver.h"
#include "platform/KeyedUnarchiver.h"

namespace dayward {

void WidgetEvent::setDate(Date date) {
    date_ = date;
    dates_.drop();
}

void WidgetEvent::setTimes(std::vector<std::int64_t> times) {
    times_ = std::move(times);
    dates_.drop();
}

void WidgetEvent::setRrule(std::optional<std::string> rrule) {
    rrule_ = std::move(rrule);
    dates_.drop();
}

void WidgetEvent::setDuration(TimeInterval duration) {
    duration_ = duration;
    dates_.drop();
}

WidgetEvent::DatesCalculation WidgetEvent::datesAt(Date now) const {
    return dates_.at(now, [this] { return occurrenceRule(); });
}

std::optional<Date> WidgetEvent::nextDate() const { return datesAt(Environment::current().now()).occurrence(); }

std::string WidgetEvent::titleToDate(std::optional<Date> date) const {
    return dayward::titleToDate(name, showAge, rrule_, date_, date);
}

std::optional<std::string> WidgetEvent::countdownToDate(std::optional<Date> date) const {
    return intervalFormat.countdownToDate(date);
}

bool WidgetEvent::isComing() const {
    const Date now = Environment::current().now();
    return datesAt(now).isRunning(now);
}

void WidgetEvent::encodeWithCoder(KeyedArchiver& coder) const {
    coder.encodeString(key_, kKeyKey);
    if (icon) coder.encodeObject(*icon, kIconKey);
    if (name) coder.encodeString(name, kNameKey);
    coder.encodeDate(date_, kDateKey);
    coder.encodeIntegers(times_, kTimesKey);
    if (rrule_) coder.encodeString(rrule_, kRuleKey);
    coder.encodeDouble(duration_.seconds(), kDurationKey);
    coder.encodeBool(showAge, kShowAgeKey);
    coder.encodeRecord(&intervalFormat, kIntervalFormatKey);
}

bool WidgetEvent::isEqual(const Archivable& other) const {
    const auto* event = dynamic_cast<const WidgetEvent*>(&other);
    return event != nullptr && key_ == event->key_ && icon == event->icon && name == event->name &&
           date_ == event->date_ && times_ == event->times_ && rrule_ == event->rrule_ &&
           duration_ == event->duration_ && showAge == event->showAge && intervalFormat == event->intervalFormat;
}

namespace {

std::vector<std::int64_t> integersIn(const Array& numbers) {
    std::vector<std::int64_t> integers;
    for (const Object& number : numbers) {
        if (const auto integer = number.integer()) integers.push_back(*integer);
    }
    return integers;
}

}  // namespace

std::shared_ptr<Archivable> WidgetEvent::read(KeyedUnarchiver& coder) {
    auto key = coder.decodeString(kKeyKey);
    if (!key) return nullptr;
    auto event = std::make_shared<WidgetEvent>(*std::move(key));
    event->icon = coder.decodeData(kIconKey);
    event->name = coder.decodeString(kNameKey);
    event->date_ = coder.decodeDate(kDateKey).value_or(Date());
    if (const Object times = coder.decodeObject(kTimesKey); times.array()) event->times_ = integersIn(*times.array());
    event->rrule_ = coder.decodeString(kRuleKey);
    event->duration_ = TimeInterval(coder.decodeDouble(kDurationKey).value_or(0));
    event->showAge = coder.decodeBool(kShowAgeKey).value_or(false);
    if (const auto format = coder.decodeRecord<HHEventDateFormat>(kIntervalFormatKey)) event->intervalFormat = *format;
    return event;
}

void registerWidgetClasses(ArchiveClasses& classes) {
    registerDateFormatClasses(classes);
    classes.add(WidgetEvent::kArchiveClass, WidgetEvent::read);
}

}  // namespace dayward
