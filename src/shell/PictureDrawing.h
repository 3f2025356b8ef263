// Draws one item of QML, out of sight in the window, into a picture; then it and the item go. Main thread
// only.
#pragma once

#include <QImage>
#include <QObject>
#include <QSharedPointer>
#include <QSize>
#include <functional>

class QQuickItem;
class QQuickItemGrabResult;
class QQuickWindow;

namespace dayward {

class PictureDrawing final : public QObject {
    Q_OBJECT

public:
    using Completion = std::function<void(const QImage&)>;

    /// The item, which is taken over, has a property "ready" that turns true when all of it is loaded. The
    /// completion gets the picture, null where it cannot be drawn; it is not called where the window goes.
    PictureDrawing(QQuickItem& item, QQuickWindow& window, QSize pixels, Completion completion);

private slots:
    void beginWhenReady();

private:
    void finish();

    QQuickItem& item_;
    const QSize pixels_;
    const Completion completion_;
    QSharedPointer<QQuickItemGrabResult> result_;
    bool hasBegun_ = false;
};

}  // namespace dayward
