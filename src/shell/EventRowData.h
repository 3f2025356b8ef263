// A row of the event list as QML sees it. Main thread only.
#pragma once

#include <QColor>
#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace dayward {

class EventTableViewCell;
class Pictures;

class EventRowData {
    Q_GADGET
    QML_VALUE_TYPE(eventRow)
    Q_PROPERTY(QString eventKey MEMBER eventKey)
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString date MEMBER date)
    Q_PROPERTY(QString countdown MEMBER countdown)
    Q_PROPERTY(QString fontName MEMBER fontName)
    Q_PROPERTY(QString icon MEMBER icon)
    Q_PROPERTY(QString background MEMBER background)
    Q_PROPERTY(QString spoken MEMBER spoken)
    Q_PROPERTY(QColor textColor MEMBER textColor)
    Q_PROPERTY(QColor scrim MEMBER scrim)
    Q_PROPERTY(bool missed MEMBER missed)

public:
    EventRowData() = default;
    EventRowData(const EventTableViewCell& cell, Pictures& pictures);
    bool operator==(const EventRowData&) const = default;

    QString eventKey, title, date, countdown, fontName, icon, background, spoken;
    QColor textColor, scrim;
    bool missed = false;
};

}  // namespace dayward
