#include "shell/SingleInstance.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <utility>

#include "platform/Log.h"

namespace dayward {

namespace {

const QString kInterface = QStringLiteral("org.freedesktop.Application");
constexpr int kHandOverMilliseconds = 5000;

}  // namespace

SingleInstance::Role SingleInstance::begin(const QStringList& arguments) {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return Role::first;
    bus.registerObject(QString::fromLatin1(kPath), this, QDBusConnection::ExportAllSlots);
    if (bus.registerService(service_)) return Role::first;
    if (handOver(arguments)) return Role::later;
    logError("another start has the bus name but does not answer");
    return Role::first;
}

void SingleInstance::end() { QDBusConnection::sessionBus().unregisterService(service_); }

bool SingleInstance::handOver(const QStringList& arguments) const {
    QDBusMessage call = QDBusMessage::createMethodCall(service_, QString::fromLatin1(kPath), kInterface,
                                                       QStringLiteral("ActivateAction"));
    QVariantList parameter;
    for (const QString& argument : arguments) parameter.append(argument);
    call << QString::fromLatin1(kStartAction) << parameter << QVariantMap();
    return QDBusConnection::sessionBus().call(call, QDBus::Block, kHandOverMilliseconds).type() ==
           QDBusMessage::ReplyMessage;
}

void SingleInstance::setHandler(std::function<void(const QStringList& arguments)> handler) {
    handler_ = std::move(handler);
    for (const QStringList& arguments : std::exchange(waiting_, {})) start(arguments);
}

void SingleInstance::Activate(const QVariantMap&) { start({}); }

void SingleInstance::Open(const QStringList& uris, const QVariantMap&) { start(uris); }

void SingleInstance::ActivateAction(const QString& name, const QVariantList& parameter, const QVariantMap&) {
    QStringList arguments;
    if (name == QLatin1String(kStartAction)) {
        for (const QVariant& argument : parameter) arguments.append(argument.toString());
    } else {
        arguments.append(QStringLiteral("--") + name);  // an action of the desktop entry
    }
    start(arguments);
}

void SingleInstance::start(const QStringList& arguments) {
    if (handler_) return handler_(arguments);
    waiting_.append(arguments);
}

}  // namespace dayward
