// The list of settings. What is built by other parts of the program (cloud, lock) comes in as Services; a row
// whose service is not there is shown at rest. Main thread only.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "Classes/Interface/Screens/TableScreen.h"

namespace dayward {

class NotificationDevice;

class SettingsViewController final : public TableScreen {
public:
    /// A row that opens a screen; without `open` it is at rest.
    struct Destination {
        std::function<std::string()> detail;
        std::function<std::shared_ptr<ViewController>()> open;
    };
    struct Services {
        std::function<void()> refreshNotifications = {};              ///< after a choice that changes what they are
        std::shared_ptr<NotificationDevice> notificationDevice = {};  ///< null where nothing shows them
        Destination cloud;
        bool canLock = false;  ///< the owner's check is there
    };

    /// The root of a modal stack of its own.
    explicit SettingsViewController(Services services);

protected:
    std::vector<TableSection> makeSections() override;

private:
    [[nodiscard]] TableSection eventsSection();
    [[nodiscard]] TableSection glanceSection();
    [[nodiscard]] TableSection safetySection();
    [[nodiscard]] TableSection interfaceSection();
    [[nodiscard]] TableRow destinationRow(std::string id, std::string label, const Destination& destination);
    void open(std::shared_ptr<ViewController> screen);
    void openTheme();
    void openLanguage();

    Services services_;
};

}  // namespace dayward
