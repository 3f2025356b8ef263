// The present day in the environment's calendar, followed while the clock goes on. Main thread only.
#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include "platform/Calendar.h"
#include "platform/NotificationCenter.h"

namespace dayward {

class Today : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(int year READ year NOTIFY changed)
    Q_PROPERTY(int month READ month NOTIFY changed)
    Q_PROPERTY(int day READ day NOTIFY changed)

public:
    explicit Today(QObject* parent = nullptr);

    [[nodiscard]] int year() const { return static_cast<int>(day_.year); }
    [[nodiscard]] int month() const { return day_.month; }
    [[nodiscard]] int day() const { return day_.day; }

signals:
    void changed();

private:
    void follow();

    Calendar::Fields day_;
    NotificationCenter::Observation timer_;
};

}  // namespace dayward
