// What EventLook.qml draws: the properties are C++'s, since a string that QML keeps is garbage once it changes, and a
// row of the list changes all of them whenever another event comes to it. Main thread only.
#pragma once

#include <QColor>
#include <QFont>
#include <QQuickItem>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace dayward {

class EventLookItem : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString background MEMBER background_ NOTIFY backgroundChanged)
    Q_PROPERTY(QString icon MEMBER icon_ NOTIFY iconChanged)
    Q_PROPERTY(QString title MEMBER title_ NOTIFY titleChanged)
    Q_PROPERTY(QString date MEMBER date_ NOTIFY dateChanged)
    Q_PROPERTY(QString countdown MEMBER countdown_ NOTIFY countdownChanged)
    Q_PROPERTY(QString fontName MEMBER fontName_ NOTIFY fontNameChanged)
    Q_PROPERTY(QColor textColor MEMBER textColor_ NOTIFY textColorChanged)
    /// What stands between the picture and the texts.
    Q_PROPERTY(QColor scrim MEMBER scrim_ NOTIFY scrimChanged)
    /// The same towards the edges, where no text is.
    Q_PROPERTY(QColor faintScrim READ faintScrim NOTIFY scrimChanged)
    /// In pixels.
    Q_PROPERTY(int titleSize MEMBER titleSize_ NOTIFY titleSizeChanged)
    /// The one of the font's name, able to write the title.
    Q_PROPERTY(QFont titleFont READ titleFont NOTIFY titleFontChanged)

public:
    explicit EventLookItem(QQuickItem* parent = nullptr);

    [[nodiscard]] QColor faintScrim() const;
    [[nodiscard]] const QFont& titleFont() const { return titleFont_; }

signals:
    void backgroundChanged();
    void iconChanged();
    void titleChanged();
    void dateChanged();
    void countdownChanged();
    void fontNameChanged();
    void textColorChanged();
    void scrimChanged();
    void titleSizeChanged();
    void titleFontChanged();

private:
    void updateTitleFont();

    QString background_, icon_, title_, date_, countdown_, fontName_;
    QColor textColor_ = Qt::white, scrim_;
    int titleSize_ = 18;
    QFont titleFont_;
};

}  // namespace dayward
