// An event at full size as QML draws it, on the screen and for a picture to share. Main thread only.
#pragma once

#include <QColor>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

namespace dayward {

class EventDetailView;
class Pictures;

class DetailLook {
    Q_GADGET
    QML_VALUE_TYPE(detailLook)
    Q_PROPERTY(QString background MEMBER background)
    Q_PROPERTY(QString icon MEMBER icon)
    Q_PROPERTY(QString fontName MEMBER fontName)
    Q_PROPERTY(QColor textColor MEMBER textColor)
    Q_PROPERTY(QColor scrim MEMBER scrim)
    Q_PROPERTY(QString name MEMBER name)
    Q_PROPERTY(QString date MEMBER date)
    Q_PROPERTY(QString countdown MEMBER countdown)
    Q_PROPERTY(QString note MEMBER note)
    Q_PROPERTY(QStringList unitLabels MEMBER unitLabels)
    Q_PROPERTY(QStringList unitValues MEMBER unitValues)
    Q_PROPERTY(QString spoken MEMBER spoken)
    Q_PROPERTY(bool noteOpened MEMBER noteOpened)
    /// In points; tried one after the other until the text fits.
    Q_PROPERTY(QList<qreal> nameSizes MEMBER nameSizes)
    Q_PROPERTY(QList<qreal> countdownSizes MEMBER countdownSizes)

public:
    DetailLook() = default;
    DetailLook(const EventDetailView& view, Pictures& pictures);

    QString background, icon, fontName, name, date, countdown, note, spoken;
    QColor textColor, scrim;
    QStringList unitLabels, unitValues;
    bool noteOpened = false;
    QList<qreal> nameSizes, countdownSizes;
};

}  // namespace dayward
