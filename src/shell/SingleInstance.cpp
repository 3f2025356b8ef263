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

/// Whether the first start has taken them.
bool handOver(QDBusConnection& bus, const QStringList& arguments) {
    QDBusMessage call =
        QDBusMessage::createMethodCall(QString::fromLatin1(SingleInstance::kService),
                                       QString::fromLatin1(SingleInstance::kPath), kInterface,
                                       QStringLiteral("ActivateAction"));
    QVariantList parameter;
    for (const QString& argument : arguments) parameter.append(argument);
    call << QString::fromLatin1(SingleInstance::kStartAction) << parameter << QVariantMap();
    return bus.call(call, QDBus::Block, kHandOverMilliseconds).type() == QDBusMessage::ReplyMessage;
}

}  // namespace

SingleInstance::Role SingleInstance::begin(const QStringList& arguments) {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return Role::first;
    bus.registerObject(QString::fromLatin1(kPath), this, QDBusConnection::ExportAllSlots);
    if (bus.registerService(QString::fromLatin1(kService))) return Role::first;
    if (handOver(bus, arguments)) return Role::later;
    logError("another start has the bus name but does not answer");
    return Role::first;
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
