// What the widget's window draws, kept right: the rows as of now, and the moments at which they change. Main
// thread only.
#pragma once

#include <QObject>
#include <QSocketNotifier>
#include <QVariantList>
#include <memory>
#include <optional>

#include "platform/Date.h"
#include "widget/WidgetSession.h"
#include "widget/WidgetWait.h"

namespace dayward {

class SystemColorScheme;

class WidgetBoard final : public QObject {
    Q_OBJECT
    /// Each with key, title, date, countdown, icon (a URL), now and today.
    Q_PROPERTY(QVariantList rows READ rows NOTIFY rowsChanged)
    Q_PROPERTY(int count READ count WRITE setCount NOTIFY countChanged)
    Q_PROPERTY(bool dark READ isDark NOTIFY darkChanged)
    Q_PROPERTY(bool rightToLeft READ isRightToLeft NOTIFY rowsChanged)
    Q_PROPERTY(QString noEvents READ noEvents NOTIFY rowsChanged)
    Q_PROPERTY(QString closeName READ closeName NOTIFY rowsChanged)

public:
    struct Options {
        std::size_t count = 3;
        std::optional<Date> now;   ///< stands still there
        std::optional<bool> dark;  ///< overrules the system
        QString home;              ///< handed to the application
    };

    WidgetBoard(WidgetSession& session, Options options);
    ~WidgetBoard() override;

    [[nodiscard]] const QVariantList& rows() const { return rows_; }
    [[nodiscard]] int count() const { return static_cast<int>(options_.count); }
    /// 1 to 10; others are brought there.
    void setCount(int count);
    [[nodiscard]] bool isDark() const;
    [[nodiscard]] bool isRightToLeft() const;
    [[nodiscard]] QString noEvents() const;
    [[nodiscard]] QString closeName() const;

    /// Opens the application, at the event with that key where there is one.
    Q_INVOKABLE void open(const QString& key) const;

signals:
    void rowsChanged();
    void countChanged();
    void darkChanged();

private:
    void follow();
    void take();
    void refresh();

    WidgetSession& session_;
    Options options_;
    QVariantList rows_;
    std::unique_ptr<SystemColorScheme> system_;
    std::optional<SystemWait> wait_;
    std::unique_ptr<QSocketNotifier> timer_, watches_;
};

}  // namespace dayward
