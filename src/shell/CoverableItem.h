// Content that something may cover: while it does, a screen reader is told of nothing in it. Main thread only.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QQuickItem>

namespace dayward {

class CoverableItem : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(bool covered READ isCovered WRITE setCovered NOTIFY coveredChanged)

public:
    using QQuickItem::QQuickItem;

    [[nodiscard]] bool isCovered() const { return isCovered_; }
    void setCovered(bool isCovered);

signals:
    void coveredChanged();

private:
    bool isCovered_ = false;
};

/// Before the first window is made; more calls do nothing.
void prepareCoverables();

}  // namespace dayward
