#include "Classes/Interface/Edit/EventEditState.h"

#include "Classes/Category/CategoryLocalStore.h"
#include "Classes/Category/EventCategory.h"
#include "Classes/Event/EventDisplay.h"
#include "Classes/Event/HHEvent.h"
#include "recurrence/XELRRule.h"

namespace dayward {

namespace {

/// An event without a time of day begins at midnight; so does one that is read from a document without.
const std::vector<std::int64_t> kNoTime{0};

}  // namespace

EventEditState::EventEditState(const HHEvent& event)
    : icon(event.icon()),
      name(event.name()),
      category(CategoryLocalStore::shared().getCategory(event.categoryKey())),
      date(event.date()),
      duration(event.duration()),
      showAge(event.showAge()),
      intervalFormat(event.intervalFormat()),
      alerts(event.alerts().list.value_or(std::vector<XDIDateInterval>())),
      soundName(event.alerts().soundName),
      background(event.background()),
      randomBackground(event.randomBackground()),
      fontName(event.appearance().fontName),
      textColor(event.appearance().textColor),
      note(event.note()),
      times_(event.times()),
      rrule_(event.rrule()) {
    if (!category) category = CategoryLocalStore::shared().defaultCategory();
}

void EventEditState::writeTo(HHEvent& event) const {
    event.setIcon(icon);
    event.setName(name);
    event.setCategoryKey(category->key);
    event.setDate(date);
    event.setDuration(duration);
    event.setTimes(times_.empty() ? kNoTime : times_);
    event.setRrule(rrule_);
    event.setShowAge(showAge);
    event.setIntervalFormat(intervalFormat);
    event.alerts().list = alerts;
    event.alerts().soundName = soundName;
    event.setBackground(background);
    event.setRandomBackground(randomBackground);
    event.appearance().fontName = fontName;
    event.appearance().textColor = textColor;
    event.setNote(note);
}

bool EventEditState::repeatsWithinADay() const {
    const RuleFrequency frequency = rrule_ ? XELRRuleComponents(*rrule_).frequency() : RuleFrequency::none;
    return frequency >= RuleFrequency::secondly && frequency <= RuleFrequency::hourly;
}

void EventEditState::setTimes(std::vector<std::int64_t> times) {
    times_ = std::move(times);
    if (times_.size() < 2 || !repeatsWithinADay()) return;
    XELRRuleComponents components(*rrule_);
    components.setInterval(1);
    components.setFrequency(RuleFrequency::daily);
    rrule_ = components.rrule();
}

void EventEditState::setRrule(std::optional<std::string> rrule) {
    rrule_ = std::move(rrule);
    if (times_.size() >= 2 && repeatsWithinADay()) times_.resize(1);
}

bool EventEditState::repeatsYearly() const { return rrule_ == XELRRule::rruleForFrequency(RuleFrequency::yearly); }

bool EventEditState::isCategoryRandom() const {
    return category->eventBackgroundTpl && category->eventBackgroundTpl->isRandom();
}

void EventEditState::setCategory(std::shared_ptr<EventCategory> chosen) {
    category = std::move(chosen);
    if (isCategoryRandom() && !randomBackground) randomBackground = category->eventBackgroundTpl->getPicture();
}

void EventEditState::inheritBackground() {
    background = nullptr;
    if (isCategoryRandom()) randomBackground = category->eventBackgroundTpl->getPicture();
}

std::shared_ptr<EventIconPicture> EventEditState::displayIcon() const { return EventDisplay::icon(icon, category); }

std::shared_ptr<EventBackgroundPicture> EventEditState::displayBackground() const {
    return EventDisplay::background(background, randomBackground, category);
}

std::string EventEditState::displayFont() const { return EventDisplay::font(fontName, category); }

Color EventEditState::displayTextColor() const { return EventDisplay::textColor(textColor, category); }

}  // namespace dayward
