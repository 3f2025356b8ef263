#include "Classes/Event/HHEvent.h"

#include "Classes/Event/HHGeneralEventDocumentData.h"
#include "platform/Environment.h"
#include "platform/UUID.h"

namespace dayward {

HHEvent::HHEvent() : HHEvent(newUUIDString()) {}

HHEvent::HHEvent(std::string identifier) : identifier_(std::move(identifier)), date_(Environment::current().now()) {}

HHEvent::HHEvent(const HHEvent& other)
    : Archivable(other),
      identifier_(other.identifier_),
      sourceInfo_(other.sourceInfo_),
      icon_(other.icon_),
      name_(other.name_),
      categoryKey_(other.categoryKey_),
      date_(other.date_),
      times_(other.times_),
      rrule_(other.rrule_),
      duration_(other.duration_),
      intervalFormat_(other.intervalFormat_),
      alerts_(other.alerts_),
      appearance_(other.appearance_),
      background_(other.background_),
      randomBackground_(other.randomBackground_),
      note_(other.note_),
      version_(other.version_),
      showAge_(other.showAge_) {}

HHEvent& HHEvent::operator=(const HHEvent& other) {
    identifier_ = other.identifier_;
    sourceInfo_ = other.sourceInfo_;
    icon_ = other.icon_;
    name_ = other.name_;
    categoryKey_ = other.categoryKey_;
    date_ = other.date_;
    times_ = other.times_;
    rrule_ = other.rrule_;
    duration_ = other.duration_;
    showAge_ = other.showAge_;
    intervalFormat_ = other.intervalFormat_;
    alerts_ = other.alerts_;
    appearance_ = other.appearance_;
    background_ = other.background_;
    randomBackground_ = other.randomBackground_;
    note_ = other.note_;
    version_ = other.version_;
    moduleEventDateRefresh();
    return *this;
}

void HHEvent::setDate(Date date) {
    date_ = date;
    moduleEventDateRefresh();
}

void HHEvent::setTimes(std::vector<std::int64_t> times) {
    times_ = std::move(times);
    moduleEventDateRefresh();
}

void HHEvent::setRrule(std::optional<std::string> rrule) {
    rrule_ = std::move(rrule);
    moduleEventDateRefresh();
}

void HHEvent::setDuration(std::optional<XDIDateInterval> duration) {
    duration_ = std::move(duration);
    moduleEventDateRefresh();
}

std::string HHEvent::description() const { return "HHEvent: " + name_.value_or("null"); }

bool HHEvent::isEqual(const Archivable& other) const {
    const auto* event = dynamic_cast<const HHEvent*>(&other);
    return event && *this == *event;
}

}  // namespace dayward
