#include "shell/Life.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QQuickWindow>
#include <utility>

#include "Classes/App/AppDelegate.h"
#include "Classes/App/AppManager.h"
#include "Classes/App/LaunchArguments.h"
#include "Classes/App/NotificationAlertPresenter.h"
#include "Classes/Interface/Events/HHSplitViewController.h"
#include "alerts/NotificationsManager.h"
#include "alerts/WidgetExport.h"
#include "platform/LocalNotifications.h"
#include "platform/Log.h"
#include "shell/NotificationPort.h"
#include "shell/QtWindow.h"
#include "shell/SingleInstance.h"
#include "shell/TerminationSignals.h"

namespace dayward {

Life::Life(const Environment::Services& services)
    : application_({services.queues, services.clock, services.notifications, services.localNotifications}, *this) {
    QDBusConnection::systemBus().connect(QStringLiteral("org.freedesktop.login1"),
                                         QStringLiteral("/org/freedesktop/login1"),
                                         QStringLiteral("org.freedesktop.login1.Manager"),
                                         QStringLiteral("PrepareForSleep"), this, SLOT(prepareForSleep(bool)));
}

bool Life::run(Environment& environment, const LaunchOptions& launch, const Ports& ports) {
    Shell shell(environment);
    QtWindow window(environment, shell);
    if (window.quickWindow() == nullptr) return false;
    window_ = &window;
    EventScreensServices services;
    services.share = &shell.shareServices();
    services.settings.notificationDevice = ports.device;
    services.handleFirstLaunch = [] { AppManager::handleFirstLaunch(); };
    services.settings.refreshNotifications = [] { NotificationsManager::refresh(); };
    const HHSplitViewController split(shell.navigation(), services);
    const auto notificationAlerts = std::make_shared<NotificationAlertPresenter>(shell.navigation());
    NotificationsManager::setPresenter(notificationAlerts);
    NotificationsManager::followStore();
    AppServices connected = makeAppServices();
    const auto widget = std::make_shared<WidgetExport>();
    widget->follow();
    connected.widget = widget;
    const auto delegate = std::make_shared<AppDelegate>(std::move(connected), [&split] { return split.master(); });
    delegate->setWindow(&window);
    followWindow();
    const TerminationSignals termination([this] { close(); });
    application_.launch(delegate, launch);
    if (launch.newEvent) AppManager::presentNewEvent();
    ports.instance.setHandler([this](const QStringList& arguments) { takeStart(arguments); });
    serve(ports.notifications);
    QCoreApplication::exec();
    ports.instance.end();
    ports.notifications.setHandlers({});
    ports.instance.setHandler(nullptr);
    delegate->setWindow(nullptr);
    window_ = nullptr;
    return true;
}

void Life::followWindow() {
    QQuickWindow* const window = window_->quickWindow();
    connect(window, &QWindow::visibilityChanged, this, [this](QWindow::Visibility visibility) {
        const bool shown = visibility != QWindow::Hidden && visibility != QWindow::Minimized;
        if (std::exchange(isShown_, shown) != shown) {
            shown ? application_.windowDidShow() : application_.windowDidHide();
        }
        if (visibility == QWindow::Hidden) end();
    });
}

/// A closed window ends the program as soon as nothing that it began is left to do.
void Life::end() {
    application_.whenBackgroundTasksEnd([this] {
        if (!isShown_) QCoreApplication::quit();
    });
}

/// Asked to end from outside, the program goes the way of a closed window.
void Life::close() {
    if (!window_->quickWindow()->isVisible()) return end();
    window_->quickWindow()->hide();
}

void Life::takeStart(const QStringList& arguments) {
    std::vector<std::string> given;
    for (const QString& argument : arguments) given.push_back(argument.toStdString());
    const auto options = launchOptionsFromArguments(given);
    if (!options) logError("a later start: " + options.error().description());
    application_.open(options.value_or(LaunchOptions{}));
    if (options && options->newEvent) AppManager::presentNewEvent();
}

void Life::serve(NotificationPort& port) {
    NotificationPort::Handlers handlers;
    handlers.deliver = [this](const LocalNotification& notification) { return showFired(notification); };
    handlers.open = [this](const LocalNotification& notification) {
        LaunchOptions options;
        options.localNotification = notification;
        application_.open(options);
    };
    handlers.fetch = [this](std::function<void(bool)> done) {
        if (application_.applicationState() != ApplicationState::background) return done(false);
        const std::uint64_t before = NotificationsManager::refreshCount();
        application_.performFetch([done = std::move(done), before](BackgroundFetchResult) {
            done(NotificationsManager::refreshCount() != before);
        });
    };
    port.setHandlers(std::move(handlers));
}

/// A window in sight but behind others, or on another desktop, shows nothing to anybody.
bool Life::showFired(const LocalNotification& notification) {
    const bool isInFront =
        application_.applicationState() == ApplicationState::active && window_->quickWindow()->isActive();
    if (isInFront) application_.notificationDidFire(notification);
    return isInFront;
}

void Life::prepareForSleep(bool begins) {
    if (window_ == nullptr) return;
    begins ? application_.systemWillSleep() : application_.systemDidWake();
}

void Life::raiseWindow() {
    if (window_ != nullptr) window_->raise();
}

/// Without its date nothing tells which bubble it is, and all of its event that are still to come would go.
void Life::withdrawNotification(const LocalNotification& notification) {
    LocalNotifications* const device = Environment::current().localNotifications();
    if (device != nullptr && notification.fireDate) device->cancelLocalNotification(notification);
}

void Life::showBadgeNumber(std::int64_t number) {
    QDBusMessage update =
        QDBusMessage::createSignal(QStringLiteral("/org/dayward/Dayward"),
                                   QStringLiteral("com.canonical.Unity.LauncherEntry"), QStringLiteral("Update"));
    update << QStringLiteral("application://org.dayward.Dayward.desktop")
           << QVariantMap{{"count", qlonglong(number)}, {"count-visible", number > 0}};
    QDBusConnection::sessionBus().send(update);
}

}  // namespace dayward
