#include "Classes/App/NotificationAlertPresenter.h"

#include "Classes/App/AppManager.h"
#include "Classes/Interface/Screens/Presenter.h"
#include "platform/Strings.h"

namespace dayward {

namespace {

constexpr const char* kAlertName = "notification";

}  // namespace

void NotificationAlertPresenter::showNotificationAlert(const std::string& message,
                                                       const std::optional<std::string>& eventIdentifier) {
    presenter_.dismissAlert(kAlertName);
    presenter_.alert({{},
                      message,
                      {{localized("OK"), AlertButton::Role::cancel, {}},
                       {localized("Show"), AlertButton::Role::normal,
                        [eventIdentifier] { AppManager::presentEventAtIdentifier(eventIdentifier); }}},
                      kAlertName});
}

}  // namespace dayward
