#include "shell/SingleInstance.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <utility>

#include "platform/Log.h"
#include "shell/Activation.h"

namespace dayward {

namespace {

const QString kInterface = QStringLiteral("org.freedesktop.Application");
constexpr int kHandOverMilliseconds = 5000;

}  // namespace

SingleInstance::Role SingleInstance::begin(const QStringList& arguments, const QVariantMap& platformData) {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return Role::first;
    bus.registerObject(QString::fromLatin1(kPath), this, QDBusConnection::ExportAllSlots);
    if (bus.registerService(service_)) return Role::first;
    if (handOver(arguments, platformData)) return Role::later;
    logError("another start has the bus name but does not answer");
    return Role::first;
}

void SingleInstance::end() { QDBusConnection::sessionBus().unregisterService(service_); }

bool SingleInstance::handOver(const QStringList& arguments, const QVariantMap& platformData) const {
    QDBusMessage call = QDBusMessage::createMethodCall(service_, QString::fromLatin1(kPath), kInterface,
                                                       QStringLiteral("ActivateAction"));
    QVariantList parameter;
    for (const QString& argument : arguments) parameter.append(argument);
    call << QString::fromLatin1(kStartAction) << parameter << platformData;
    return QDBusConnection::sessionBus().call(call, QDBus::Block, kHandOverMilliseconds).type() ==
           QDBusMessage::ReplyMessage;
}

void SingleInstance::setHandler(std::function<void(const QStringList& arguments)> handler) {
    handler_ = std::move(handler);
    for (const QStringList& arguments : std::exchange(waiting_, {})) handler_(arguments);
}

void SingleInstance::Activate(const QVariantMap& platformData) { start({}, platformData); }

void SingleInstance::Open(const QStringList& uris, const QVariantMap& platformData) { start(uris, platformData); }

void SingleInstance::ActivateAction(const QString& name, const QVariantList& parameter,
                                    const QVariantMap& platformData) {
    QStringList arguments;
    if (name == QLatin1String(kStartAction)) {
        for (const QVariant& argument : parameter) arguments.append(argument.toString());
    } else {
        arguments.append(QStringLiteral("--") + name);  // an action of the desktop entry
    }
    start(arguments, platformData);
}

void SingleInstance::start(const QStringList& arguments, const QVariantMap& platformData) {
    keepActivation(platformData);
    if (handler_) return handler_(arguments);
    waiting_.append(arguments);
}

}  // namespace dayward
