#include "Classes/Interface/Events/HHSplitViewController.h"

#include <utility>

#include "Classes/Interface/Events/EventDetailViewController.h"

namespace dayward {

HHSplitViewController::HHSplitViewController(Navigation& navigation, EventScreensServices services)
    : navigation_(navigation), master_(std::make_shared<EventListViewController>(std::move(services))) {
    observer_.observe(
        EventListSelectEventKeyNotification,
        [this](const Notification& notification) { eventListSelectEventKey(notification); }, master_.get());
}

std::shared_ptr<EventDetailViewController> HHSplitViewController::detail() const {
    const auto& screens = navigation_.screens(StackId::detail);
    return screens.empty() ? nullptr : std::dynamic_pointer_cast<EventDetailViewController>(screens.front());
}

void HHSplitViewController::eventListSelectEventKey(const Notification& notification) {
    if (!navigation_.hasDetailPane()) return;
    const auto key = notification.userInfo.find(EventListEventKey);
    const auto screen = master_->detailShowing(
        key == notification.userInfo.end() ? std::nullopt : std::optional(*key->second.string()));
    if (!screen->isPresented()) navigation_.showDetail(screen);
}

}  // namespace dayward
