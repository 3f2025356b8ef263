#include "Classes/Interface/Screens/Window.h"

#include <utility>

#include "Classes/Interface/Screens/Navigation.h"

namespace dayward {

void Window::setRootViewController(std::shared_ptr<ViewController> screen) {
    root_ = std::move(screen);
    if (isVisible_) navigation_.setRoot(root_);
}

void Window::makeKeyAndVisible() {
    if (!std::exchange(isVisible_, true) && root_) navigation_.setRoot(root_);
    show();
}

}  // namespace dayward
