// Shows notifications that fire while the program is in sight as alerts over its screens.
#pragma once

#include "alerts/NotificationPresenter.h"

namespace dayward {

class Presenter;

class NotificationAlertPresenter final : public NotificationPresenter {
public:
    /// The presenter is not owned.
    explicit NotificationAlertPresenter(Presenter& presenter) : presenter_(presenter) {}

    void showNotificationAlert(const std::string& message, const std::optional<std::string>& eventIdentifier) override;

private:
    Presenter& presenter_;
};

}  // namespace dayward
