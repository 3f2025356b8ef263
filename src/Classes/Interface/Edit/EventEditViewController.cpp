#include "Classes/Interface/Edit/EventEditViewController.h"

#include <utility>

#include "Classes/App/EventFactory.h"
#include "Classes/App/HHAppTimerKeys.h"
#include "Classes/Category/CategoryLocalStore.h"
#include "Classes/Category/EventCategory.h"
#include "Classes/Event/EventLocalStore.h"
#include "Classes/Interface/List/EventTableViewHelper.h"
#include "Classes/Interface/Screens/Presenter.h"
#include "platform/Environment.h"
#include "platform/Strings.h"

namespace dayward {

namespace {

/// The look's shape, about.
constexpr PixelSize kLookSize{560, 120};

std::shared_ptr<HHEvent> newEvent() {
    auto event = EventFactory::createEvent();
    event->setDate(Environment::current().now());
    return event;
}

}  // namespace

EventEditViewController::EventEditViewController(std::shared_ptr<HHEvent> event)
    : event_(event ? std::move(event) : newEvent()), state_(*event_), preview_(*event_) {
    setTitle(localized(isStored() ? "Event" : "New event"));
    setBarButtons({{BarButton::Role::cancel, localized("Cancel"), [this] { cancelAction(); }},
                   {BarButton::Role::done, localized("Done"), [this] { doneAction(); }}});
}

bool EventEditViewController::isStored() const {
    return EventLocalStore::shared().eventByIdentifier(event_->identifier()) != nullptr;
}

void EventEditViewController::cancelAction() { presenter().dismiss(*this); }

void EventEditViewController::doneAction() {
    const auto self = shared_from_this();
    auto changed = std::make_shared<HHEvent>(*event_);
    state_.writeTo(*changed);
    const bool wasStored = isStored();
    event_ = changed;
    EventLocalStore::shared().updateEvent(changed);
    if (!wasStored) post(EventEditDidCreateItemNotification);
    presenter().dismiss(*this);
}

void EventEditViewController::showDeleteActionAlert() {
    const std::weak_ptr<ViewController> self = weak_from_this();
    presenter().alert({localized("Delete event?"),
                       {},
                       {{localized("Cancel"), AlertButton::Role::cancel},
                        {localized("Delete"), AlertButton::Role::destructive, [this, self] {
                             const auto held = self.lock();
                             if (held && isPresented()) deleteAction();
                         }}}});
}

void EventEditViewController::deleteAction() {
    const auto self = shared_from_this();
    EventLocalStore::shared().removeEvent(event_);
    post(EventEditDidRemoveItemNotification);
    presenter().dismiss(*this);
}

void EventEditViewController::post(const char* notification) const {
    Environment::current().notifications().post(notification, this, {{EventEditItemKey, event_->identifier()}});
}

// The category may have been changed or removed on a screen over this one.
void EventEditViewController::viewWillAppear() {
    auto& categories = CategoryLocalStore::shared();
    auto present = categories.getCategory(state_.category->key);
    state_.setCategory(present ? std::move(present) : categories.defaultCategory());
    didChange();
    timer_ = Environment::current().notifications().addObserver(HHAppTimerKeys::everySecound,
                                                                [this](const Notification&) { timerAction(); });
}

void EventEditViewController::viewWillDisappear(Disappearance) { timer_.end(); }

void EventEditViewController::completeWithDate(DateTimesViewController&, Date date,
                                               const std::vector<std::int64_t>& andTimes) {
    state_.date = date;
    state_.setTimes(andTimes);
    didChange();
}

void EventEditViewController::completeWithAlerts(AlertsViewController&, const std::vector<XDIDateInterval>& alerts) {
    state_.alerts = alerts;
    didChange();
}

void EventEditViewController::showAgeValueChanged(bool on) {
    state_.showAge = on;
    didChange();
}

void EventEditViewController::eventEditHeaderCellDidChangeName(const std::string& name) {
    state_.name = name;
    didChange();
}

void EventEditViewController::didChange() {
    state_.writeTo(preview_);
    lookScrim_ = EventTableViewHelper::backgroundViewCellForEvent(preview_, kLookSize).scrim;
    reloadData();
    measureLook();
}

// What was measured for a background or a colour that is no longer there tells nothing of the present one.
void EventEditViewController::measureLook() {
    EventTableViewHelper::getBackgroundImageCellForEvent(preview_, kLookSize, weak_from_this(), [this](const auto&) {
        const Color scrim = EventTableViewHelper::backgroundViewCellForEvent(preview_, kLookSize).scrim;
        if (std::exchange(lookScrim_, scrim) != scrim) reloadData();
    });
}

}  // namespace dayward
