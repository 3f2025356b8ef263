#include "widget/window/WidgetBoard.h"

#include <QCoreApplication>
#include <QLocale>
#include <QProcess>
#include <algorithm>
#include <iostream>

#include "alerts/WidgetEvent.h"
#include "platform/Clock.h"
#include "platform/Locale.h"
#include "platform/Strings.h"
#include "shell/SystemColorScheme.h"
#include "widget/WidgetContent.h"

namespace dayward {
namespace {

QString qtText(const std::string& text) { return QString::fromStdString(text); }

QString iconURL(const WidgetEvent& event) {
    if (!event.icon) return {};
    const QByteArray bytes(reinterpret_cast<const char*>(event.icon->data()),
                           static_cast<qsizetype>(event.icon->size()));
    return QStringLiteral("data:image/png;base64,") + QString::fromLatin1(bytes.toBase64());
}

QVariantMap rowValue(const WidgetRow& row) {
    return {{"key", qtText(row.event->key())}, {"title", qtText(row.title)},
            {"date", qtText(row.date)},        {"countdown", qtText(row.countdown.value_or(std::string()))},
            {"icon", iconURL(*row.event)},     {"now", row.isComing},
            {"today", row.isToday}};
}

}  // namespace

WidgetBoard::WidgetBoard(WidgetSession& session, Options options)
    : session_(session), options_(std::move(options)), system_(std::make_unique<SystemColorScheme>()) {
    connect(system_.get(), &SystemColorScheme::changed, this, &WidgetBoard::darkChanged);
    if (!options_.now) follow();
    session_.reload();
    refresh();
}

WidgetBoard::~WidgetBoard() = default;

/// Watched before it is read: a copy that is written in between is not missed.
void WidgetBoard::follow() {
    auto wait = SystemWait::make({session_.path(), session_.followsZone(), {}});
    if (!wait) {
        std::cerr << "dayward-widget-window: " << wait.error().description() << std::endl;
        return;
    }
    wait_.emplace(*std::move(wait));
    timer_ = std::make_unique<QSocketNotifier>(wait_->timer(), QSocketNotifier::Read);
    watches_ = std::make_unique<QSocketNotifier>(wait_->watches(), QSocketNotifier::Read);
    for (const auto* notifier : {timer_.get(), watches_.get()}) {
        connect(notifier, &QSocketNotifier::activated, this, &WidgetBoard::take);
    }
}

void WidgetBoard::take() {
    const auto woken = wait_->wake();
    if (!woken) return;
    if (*woken == WidgetWait::Wake::changed) session_.reload();
    refresh();
}

void WidgetBoard::refresh() {
    session_.setNow(options_.now.value_or(SystemClock().now()));
    const WidgetContent content = widgetContent(session_.events(), session_.type(), options_.count);
    QVariantList rows;
    for (const WidgetRow& row : content.rows) rows.append(rowValue(row));
    if (wait_) wait_->arm(content.changesAt);
    if (rows == rows_ && !rows.isEmpty()) return;
    rows_ = std::move(rows);
    emit rowsChanged();
}

void WidgetBoard::setCount(int count) {
    const auto wanted = static_cast<std::size_t>(std::clamp(count, 1, static_cast<int>(kMaximalWidgetEvents)));
    if (wanted == options_.count) return;
    options_.count = wanted;
    emit countChanged();
    refresh();
}

bool WidgetBoard::isDark() const { return options_.dark.value_or(system_->isDark()); }

bool WidgetBoard::isRightToLeft() const {
    return QLocale(qtText(Environment::current().locale().identifier())).textDirection() == Qt::RightToLeft;
}

QString WidgetBoard::closeName() const { return qtText(localized("Close")); }
QString WidgetBoard::noEvents() const { return qtText(localized("No events")); }

void WidgetBoard::open(const QString& key) const {
    QStringList arguments;
    if (!options_.home.isEmpty()) arguments << QStringLiteral("--home") << options_.home;
    if (!key.isEmpty()) arguments << QStringLiteral("--event") << key;
    QProcess::startDetached(QCoreApplication::applicationDirPath() + QStringLiteral("/dayward-app"), arguments);
}

}  // namespace dayward
