// The screens that the event editor opens. They lie over it and never outlive it, so that they may hold
// it bare.
#include "Classes/Category/EventCategory.h"
#include "Classes/Category/ImageEventBackgroundPicture.h"
#include "Classes/Interface/Edit/DateFormatViewController.h"
#include "Classes/Interface/Edit/EventEditViewController.h"
#include "Classes/Interface/Edit/NoteViewController.h"
#include "Classes/Interface/Edit/PeriodViewController.h"
#include "Classes/Interface/Edit/RRuleViewController.h"
#include "Classes/Interface/Screens/Presenter.h"
#include "Classes/Interface/Select/BackgroundsViewController.h"
#include "Classes/Interface/Select/CategoriesViewController.h"
#include "Classes/Interface/Select/ColorsViewController.h"
#include "Classes/Interface/Select/FontsViewController.h"
#include "Classes/Interface/Select/IconsViewController.h"
#include "Classes/Interface/Select/SoundsViewController.h"
#include "platform/Strings.h"

namespace dayward {

namespace {

std::vector<GalleryChoice> fromCategory(bool isInherited, std::function<void()> inherit) {
    return {{"category", localized("From the category"), isInherited, std::move(inherit)}};
}

}  // namespace

template <class Screen, class... Arguments>
void EventEditViewController::push(Arguments&&... arguments) {
    presenter().push(*this, std::make_shared<Screen>(std::forward<Arguments>(arguments)...));
}

template <class Field, class Value>
void EventEditViewController::take(Field& field, const Value& value) {
    field = value;
    didChange();
}

void EventEditViewController::eventEditHeaderCellTapOnIcon() {
    push<IconsViewController>(state_.icon, fromCategory(!state_.icon, [this] { take(state_.icon, nullptr); }),
                              [this](const IconsViewController::Icon& icon) { take(state_.icon, icon); });
}

void EventEditViewController::eventEditHeaderCellTapOnCategory() {
    push<CategoriesViewController>(state_.category, [this](const CategoriesViewController::Category& category) {
        state_.setCategory(category);
        didChange();
    });
}

void EventEditViewController::openDate() {
    push<DateTimesViewController>(state_.date, state_.times(),
                                  std::static_pointer_cast<EventEditViewController>(shared_from_this()));
}

void EventEditViewController::openDuration() {
    push<PeriodViewController>(state_.duration, [this](const auto& duration) { take(state_.duration, duration); });
}

void EventEditViewController::openRepeat() {
    push<RRuleViewController>(state_.rrule(), EventStart{state_.date, state_.times()},
                              [this](const RRuleViewController::Rule& rrule) {
                                  state_.setRrule(rrule);
                                  didChange();
                              });
}

void EventEditViewController::openUnits() {
    push<DateFormatViewController>(state_.intervalFormat,
                                   [this](const auto& format) { take(state_.intervalFormat, format); });
}

void EventEditViewController::openAlerts() {
    push<AlertsViewController>(state_.alerts, std::static_pointer_cast<EventEditViewController>(shared_from_this()));
}

void EventEditViewController::openSound() {
    push<SoundsViewController>(state_.soundName, [this](const auto& sound) { take(state_.soundName, sound); });
}

void EventEditViewController::openBackgrounds() {
    const auto inherit = [this] {
        state_.inheritBackground();
        didChange();
    };
    push<BackgroundsViewController>(
        state_.background, fromCategory(!state_.background, inherit),
        [this](const BackgroundsViewController::Background& background) { take(state_.background, background); });
}

void EventEditViewController::takePicture(ChosenPicture picture) {
    const std::weak_ptr<ViewController> self = weak_from_this();
    readOwnPicture(std::move(picture), kLongestBackgroundSide, [this, self](auto image, const std::string& source) {
        const auto held = self.lock();
        if (!held || !isPresented()) return;
        if (!image) return presenter().alert(unreadablePictureAlert(source));
        take(state_.background, std::make_shared<ImageEventBackgroundPicture>(std::move(image), source));
    });
}

void EventEditViewController::openFonts() {
    push<FontsViewController>(state_.fontName,
                              fromCategory(!state_.fontName, [this] { take(state_.fontName, std::nullopt); }),
                              [this](const std::string& font) { take(state_.fontName, font); });
}

void EventEditViewController::openTextColors() {
    push<ColorsViewController>(localized("Text color"), state_.textColor,
                               fromCategory(!state_.textColor, [this] { take(state_.textColor, std::nullopt); }),
                               [this](const Color& color) { take(state_.textColor, color); });
}

void EventEditViewController::openNote() {
    push<NoteViewController>(state_.note.value_or(""), [this](const std::string& note) {
        if (note != state_.note.value_or("")) take(state_.note, note);
    });
}

}  // namespace dayward
