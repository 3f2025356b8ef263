// What the desktop and the user's settings say about how the interface looks: dark or light, the size of
// texts, the language's conventions. QML draws by it. Main thread only.
#pragma once

#include <QFont>
#include <QObject>
#include <QtQml/qqmlregistration.h>
#include <memory>

#include "platform/NotificationCenter.h"

class QJSEngine;
class QQmlEngine;

namespace dayward {

class Environment;
class SystemColorScheme;

class Appearance final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(bool dark READ isDark NOTIFY darkChanged)
    /// 1 for the usual text size.
    Q_PROPERTY(qreal textScale READ textScale NOTIFY textScaleChanged)
    /// For Qt.locale(): names of months and days, digits.
    Q_PROPERTY(QString localeName READ localeName CONSTANT)
    /// 0 (Sunday) to 6 (Saturday), as in Qt.locale().
    Q_PROPERTY(int firstWeekday READ firstWeekday CONSTANT)
    /// Whether the day is told in two halves of twelve hours.
    Q_PROPERTY(bool halvesDay READ halvesDay CONSTANT)
    Q_PROPERTY(bool rightToLeft READ isRightToLeft CONSTANT)
    Q_PROPERTY(QString family READ family CONSTANT)
    /// The keyboard moves the focus, which is then to be seen.
    Q_PROPERTY(bool keyboardInUse READ keyboardInUse NOTIFY keyboardInUseChanged)

public:
    /// The environment is not owned.
    explicit Appearance(Environment& environment);
    ~Appearance() override;

    /// For QML, which does not own it: the one that there is.
    static Appearance* create(QQmlEngine*, QJSEngine*);

    [[nodiscard]] bool isDark() const { return isDark_; }
    [[nodiscard]] qreal textScale() const { return textScale_; }
    [[nodiscard]] QString localeName() const;
    [[nodiscard]] int firstWeekday() const;
    [[nodiscard]] bool halvesDay() const;
    [[nodiscard]] bool isRightToLeft() const;
    [[nodiscard]] QString family() const;
    [[nodiscard]] bool keyboardInUse() const { return keyboardInUse_; }
    /// Overrules settings and desktop, for pictures of the screens.
    void setDark(bool dark);
    void setTextScale(qreal scale);

    /// A font of the gallery by its name, able to write the text; the interface's own for an empty one.
    Q_INVOKABLE QFont font(const QString& name, int pixelSize, const QString& forText = {}) const;
    /// A text of the interface in the user's language, by its English one.
    Q_INVOKABLE QString text(const QString& english) const;

signals:
    void darkChanged();
    void textScaleChanged();
    void keyboardInUseChanged();

private:
    bool eventFilter(QObject* object, QEvent* event) override;
    void update();
    void setKeyboardInUse(bool inUse);

    static inline Appearance* instance_ = nullptr;
    Environment& environment_;
    std::unique_ptr<SystemColorScheme> system_;
    NotificationCenter::Observation settings_;
    bool isDark_ = false;
    qreal textScale_ = 1;
    bool keyboardInUse_ = false;
};

}  // namespace dayward
