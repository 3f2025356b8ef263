// The application from its launch to its end: window, screens and delegate put together, and the window's
// and the machine's changes told to the application's life. Main thread only.
#pragma once

#include <QObject>
#include <memory>

#include "platform/Environment.h"
#include "platform/linux/DesktopApplication.h"

namespace dayward {

class NotificationDevice;
class NotificationPort;
class QtWindow;
class SingleInstance;

class Life final : public QObject, public Desktop {
    Q_OBJECT

public:
    /// To be made before the environment of the same services.
    explicit Life(const Environment::Services& services);

    /// How others on the session bus reach it, and it the agent.
    struct Ports {
        SingleInstance& instance;
        NotificationPort& notifications;
        std::shared_ptr<NotificationDevice> device;
    };

    /// Launches, and runs Qt's loop until the window is closed and what must be finished is. False where
    /// the window could not be loaded.
    bool run(Environment& environment, const LaunchOptions& launch, const Ports& ports);

    // Desktop
    void raiseWindow() override;
    void showBadgeNumber(std::int64_t number) override;
    void withdrawNotification(const LocalNotification& notification) override;

private slots:
    /// The machine is about to sleep, or has woken.
    void prepareForSleep(bool begins);

private:
    void followWindow();
    void takeStart(const QStringList& arguments);
    void serve(NotificationPort& port);
    bool showFired(const LocalNotification& notification);
    void close();
    void end();

    DesktopApplication application_;
    QtWindow* window_ = nullptr;  ///< while it runs
    bool isShown_ = false;
};

}  // namespace dayward
