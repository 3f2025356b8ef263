#include "shell/NotificationPort.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <chrono>
#include <utility>

#include "agent/desktop/BusNames.h"
#include "agent/desktop/NotificationMessage.h"
#include "platform/Log.h"
#include "shell/Activation.h"

namespace dayward {

namespace {

qulonglong monotonicMicroseconds() {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<qulonglong>(std::chrono::duration_cast<std::chrono::microseconds>(now).count());
}

}  // namespace

NotificationPort::NotificationPort(std::string directory) : directory_(std::move(directory)) {}

void NotificationPort::registerObject() {
    QDBusConnection::sessionBus().registerObject(QString::fromLatin1(NotificationsObject::kPath), this,
                                                 QDBusConnection::ExportAllSlots);
}

void NotificationPort::setHandlers(Handlers handlers) {
    handlers_ = std::move(handlers);
    if (!handlers_.open) return;
    for (const LocalNotification& notification : std::exchange(opened_, {})) handlers_.open(notification);
}

bool NotificationPort::Deliver(const QString& home, const QByteArray& notification, qulonglong deadline) {
    const auto fired = isOwn(home) ? decoded(notification) : std::nullopt;
    if (!fired || !handlers_.deliver || monotonicMicroseconds() > deadline) return false;
    return handlers_.deliver(*fired);
}

void NotificationPort::Open(const QString& home, const QByteArray& notification, const QVariantMap& platformData) {
    const auto opened = isOwn(home) ? decoded(notification) : std::nullopt;
    if (!opened) return;
    keepActivation(platformData);
    if (handlers_.open) return handlers_.open(*opened);
    opened_.push_back(*opened);
}

bool NotificationPort::Fetch(const QString& home) {
    if (!isOwn(home) || !handlers_.fetch) return false;
    setDelayedReply(true);
    handlers_.fetch([this, asked = message()](bool isDone) {
        const auto answer = [asked, isDone] { QDBusConnection::sessionBus().send(asked.createReply(isDone)); };
        QMetaObject::invokeMethod(this, answer, Qt::QueuedConnection);
    });
    return false;  // nobody's answer
}

bool NotificationPort::isOwn(const QString& home) {
    if (home.toStdString() == directory_) return true;
    refuse("this application keeps another home");
    return false;
}

std::optional<LocalNotification> NotificationPort::decoded(const QByteArray& notification) {
    auto read = notificationOfMessage(Data(notification.begin(), notification.end()));
    if (read) return *std::move(read);
    refuse(read.error().description());
    return std::nullopt;
}

void NotificationPort::refuse(const std::string& reason) {
    if (calledFromDBus()) sendErrorReply(QDBusError::AccessDenied, QString::fromStdString(reason));
}

}  // namespace dayward
