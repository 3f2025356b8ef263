#include "Classes/Interface/Events/EventDetailViewController.h"

#include <utility>

#include "Classes/App/HHAppTimerKeys.h"
#include "Classes/Category/CategoryLocalStore.h"
#include "Classes/Event/EventLocalStore.h"
#include "Classes/Event/HHEvent.h"
#include "Classes/Interface/Edit/EventEditViewController.h"
#include "Classes/Interface/General/TextScrim.h"
#include "Classes/Interface/Screens/Presenter.h"
#include "platform/DispatchQueue.h"
#include "platform/Environment.h"
#include "platform/Strings.h"

namespace dayward {

namespace {

bool names(const Notification& notification, const char* list, const std::string& key) {
    const auto found = notification.userInfo.find(list);
    if (found == notification.userInfo.end() || found->second.array() == nullptr) return false;
    for (const Object& entry : *found->second.array()) {
        const auto event = entry.as<HHEvent>();
        if (event && event->identifier() == key) return true;
    }
    return false;
}

}  // namespace

EventDetailViewController::EventDetailViewController(std::optional<std::string> eventIdentifier, ShareServices* share)
    : eventIdentifier_(std::move(eventIdentifier)) {
    if (share != nullptr) {
        shareToolbar_.emplace(*share, [this](std::shared_ptr<ViewController> sheet) {
            presenter().presentPanel(*this, std::move(sheet));
        });
    }
    configureView();
}

void EventDetailViewController::setEventIdentifier(std::optional<std::string> identifier) {
    if (eventIdentifier_ == identifier) return;
    eventIdentifier_ = std::move(identifier);
    configureView();
}

void EventDetailViewController::configureView() {
    const auto self = weak_from_this().lock();  // leaving the stack, the screen may lose its owner
    event_ = EventLocalStore::shared().eventByIdentifier(eventIdentifier_);
    if (event_) {
        eventView_.configureForEvent(*event_);
        setTitle(eventView_.nameLabel().empty() ? localized("No name") : eventView_.nameLabel());
        if (displayed_) measureBackground();
    }
    if (shareToolbar_) shareToolbar_->setEvent(event_);
    showBarButtons();
    tell(DetailChange::all);
    if (event_) return;
    if (isPresented() && !presenter().hasDetailPane()) return presenter().pop(*this);
    setTitle({});
}

void EventDetailViewController::showBarButtons() {
    std::vector<BarButton> buttons;
    if (event_) buttons.push_back({BarButton::Role::edit, localized("Edit"), [this] { editAction(); }});
    setBarButtons(std::move(buttons));
}

/// The picture is decoded for it, which may take long; it is wanted anyway.
void EventDetailViewController::measureBackground() {
    Queues& queues = Environment::current().queues();
    queues.global().async(
        [&queues, weak = weak_from_this(), this, picture = eventView_.backgroundView(), text = eventView_.textColor()] {
            if (weak.expired()) return;
            const Color scrim = textScrim(text, *picture.load());
            queues.main().async([weak, this, picture, text, scrim] {
                const auto self = weak.lock();
                if (!self || eventView_.backgroundView() != picture || eventView_.textColor() != text) return;
                if (eventView_.scrim() == scrim) return;
                eventView_.setScrim(scrim);
                tell(DetailChange::scrim);
            });
        });
}

void EventDetailViewController::editAction() {
    if (event_) presenter().present(std::make_shared<EventEditViewController>(event_));
}

void EventDetailViewController::takePicture(ChosenPicture picture) {
    if (!event_) return;
    const auto editor = std::make_shared<EventEditViewController>(event_);
    presenter().present(editor);
    editor->takePicture(std::move(picture));
}

void EventDetailViewController::noteTapGestureAction() {
    eventView_.noteTapGestureAction();
    tell(DetailChange::note);
}

void EventDetailViewController::timerAction() {
    if (displayed_ && event_ && eventView_.configureOnlyTimeTextForEvent(*event_)) tell(DetailChange::times);
}

void EventDetailViewController::viewWillAppear() {
    displayed_ = true;
    observer_.observe(HHAppTimerKeys::everySecound, [this](const Notification&) { timerAction(); });
    observer_.observe(EventLocalStoreDidUpdateNotification,
                      [this](const Notification& notification) { eventStoreDidUpdate(notification); });
    observer_.observe(CategoryLocalStoreDidUpdateNotification,
                      [this](const Notification& notification) { categoryStoreDidUpdate(notification); });
    configureView();
}

void EventDetailViewController::viewDidDisappear(Disappearance) {
    displayed_ = false;
    observer_.end();
}

void EventDetailViewController::categoryStoreDidUpdate(const Notification&) { configureView(); }

void EventDetailViewController::eventStoreDidUpdate(const Notification& notification) {
    if (!eventIdentifier_) return;
    if (names(notification, EventLocalStoreUpdatedKey, *eventIdentifier_) ||
        names(notification, EventLocalStoreRemovedKey, *eventIdentifier_)) {
        configureView();
    }
}

void EventDetailViewController::tell(DetailChange change) {
    if (detailObserver_ != nullptr) detailObserver_->detailDidChange(change);
}

}  // namespace dayward
