// Tells in plain words whether alerts will come, and gives one as a test. Main thread only; the device is
// asked on another one, and the rows are there as soon as it has answered.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "Classes/Interface/Screens/ScreenObserver.h"
#include "Classes/Interface/Screens/TableScreen.h"
#include "alerts/AlertHealth.h"

namespace dayward {

class AlertHealthViewController final : public TableScreen {
public:
    /// Null where nothing shows notifications.
    explicit AlertHealthViewController(std::shared_ptr<NotificationDevice> device);

    void viewWillAppear() override;
    void viewWillDisappear(Disappearance) override { observer_.end(); }

protected:
    std::vector<TableSection> makeSections() override;

private:
    [[nodiscard]] TableSection verdictSection() const;
    [[nodiscard]] TableSection deviceSection() const;
    [[nodiscard]] TableSection nextSection() const;
    [[nodiscard]] TableSection testSection();
    void examine();
    void sendTest();
    void testDidEnd(const Result<>& sent);

    const std::shared_ptr<NotificationDevice> device_;
    std::optional<AlertHealth> health_;  ///< nothing until it was examined
    bool isSending_ = false;
    ScreenObserver observer_;
};

}  // namespace dayward
