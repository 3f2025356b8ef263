#include "Classes/Interface/Screens/ViewController.h"

#include <algorithm>
#include <utility>

#include "platform/FatalError.h"

namespace dayward {

bool ViewController::press(BarButton::Role role) {
    const auto button = std::ranges::find(barButtons_, role, &BarButton::role);
    if (button == barButtons_.end() || !button->enabled || !isPresented()) return false;
    const auto action = button->action;  // the action may replace the buttons
    action();
    return true;
}

void ViewController::loadIfNeeded() {
    if (std::exchange(isLoaded_, true)) return;
    viewDidLoad();
}

void ViewController::setTitle(std::string title) {
    title_ = std::move(title);
    if (observer_ != nullptr) observer_->barDidChange();
}

void ViewController::setBarButtons(std::vector<BarButton> buttons) {
    barButtons_ = std::move(buttons);
    if (observer_ != nullptr) observer_->barDidChange();
}

Presenter& ViewController::presenter() const {
    if (presenter_ == nullptr) fatalError("a screen asks its surroundings, but stands in no stack: " + title_);
    return *presenter_;
}

}  // namespace dayward
