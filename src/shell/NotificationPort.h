// The object of the session bus through which the agent of the same home hands over notifications: those that fire,
// those that the user opened, and the background fetch. An agent of another home is refused. Main thread only.
#pragma once

#include <QByteArray>
#include <QDBusContext>
#include <QObject>
#include <QVariantMap>
#include <functional>
#include <string>
#include <vector>

#include "platform/LocalNotification.h"

namespace dayward {

class NotificationPort final : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.dayward.Dayward.Notifications1")

public:
    struct Handlers {
        std::function<bool(const LocalNotification&)> deliver;  ///< whether the application shows it
        std::function<void(const LocalNotification&)> open;
        /// Does the background fetch, and tells once, on any thread, whether it is done.
        std::function<void(std::function<void(bool)>)> fetch;
    };

    /// `directory` is the home's state directory.
    explicit NotificationPort(std::string directory);

    /// To be called before the application takes its bus name, so that a call which starts it finds the object.
    void registerObject();
    /// What was opened before there were handlers is handed over now. Without handlers nothing else is taken.
    void setHandlers(Handlers handlers);

public slots:
    // Called over the bus.

    /// Until the deadline, microseconds of the monotonic clock; later the agent shows it.
    bool Deliver(const QString& home, const QByteArray& notification, qulonglong deadline);
    void Open(const QString& home, const QByteArray& notification, const QVariantMap& platformData);
    /// Answered when the fetch has ended: whether it is done.
    bool Fetch(const QString& home);

private:
    /// Nothing where it is refused; the caller is told why.
    bool isOwn(const QString& home);
    std::optional<LocalNotification> decoded(const QByteArray& notification);
    void refuse(const std::string& reason);

    const std::string directory_;
    Handlers handlers_;
    std::vector<LocalNotification> opened_;  ///< before there were handlers
};

}  // namespace dayward
