#include "shell/SystemColorScheme.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QGuiApplication>
#include <QPalette>

#include "platform/Log.h"

namespace dayward {

namespace {

const QString kService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString kPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString kInterface = QStringLiteral("org.freedesktop.portal.Settings");
const QString kGroup = QStringLiteral("org.freedesktop.appearance");
const QString kKey = QStringLiteral("color-scheme");
constexpr uint kPrefersDark = 1;
constexpr uint kPrefersLight = 2;

}  // namespace

SystemColorScheme::SystemColorScheme(QObject* parent) : QObject(parent) {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return;
    // The slot is looked for by the names of its types, and this one has none before its first use.
    qRegisterMetaType<QDBusVariant>();
    const bool hears = bus.connect(kService, kPath, kInterface, QStringLiteral("SettingChanged"), this,
                                   SLOT(settingDidChange(QString, QString, QDBusVariant)));
    if (!hears) logError("changes of the desktop's colour scheme cannot be followed");
    read();
}

void SystemColorScheme::read() {
    QDBusMessage question = QDBusMessage::createMethodCall(kService, kPath, kInterface, QStringLiteral("Read"));
    question << kGroup << kKey;
    auto* watcher = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(question), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher* answered) {
        const QDBusPendingReply<QDBusVariant> reply = *answered;
        if (reply.isValid()) take(reply.value().variant());
        answered->deleteLater();
    });
}

void SystemColorScheme::settingDidChange(const QString& group, const QString& key, const QDBusVariant& value) {
    if (group == kGroup && key == kKey) take(value.variant());
}

void SystemColorScheme::take(const QVariant& value) {
    // The older question wraps its answer twice.
    const QVariant inner = value.canConvert<QDBusVariant>() ? value.value<QDBusVariant>().variant() : value;
    const uint number = inner.toUInt();
    preference_ = number == kPrefersDark    ? Preference::dark
                  : number == kPrefersLight ? Preference::light
                                            : Preference::none;
    emit changed();
}

bool SystemColorScheme::isDark() const {
    if (preference_ != Preference::none) return preference_ == Preference::dark;
    const QPalette palette = QGuiApplication::palette();
    return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

}  // namespace dayward
