#include "shell/PictureDrawing.h"

#include <QQuickItem>
#include <QQuickItemGrabResult>
#include <QQuickWindow>
#include <utility>

namespace dayward {

PictureDrawing::PictureDrawing(QQuickItem& item, QQuickWindow& window, QSize pixels, Completion completion)
    : QObject(&item), item_(item), pixels_(pixels), completion_(std::move(completion)) {
    item_.setParent(&window);
    item_.setX(-2 * item_.width());
    item_.setParentItem(window.contentItem());
    connect(&item_, SIGNAL(readyChanged()), this, SLOT(beginWhenReady()));
    beginWhenReady();
}

void PictureDrawing::beginWhenReady() {
    if (!item_.property("ready").toBool() || std::exchange(hasBegun_, true)) return;
    result_ = item_.grabToImage(pixels_);
    if (!result_) return finish();
    connect(result_.get(), &QQuickItemGrabResult::ready, this, &PictureDrawing::finish);
}

void PictureDrawing::finish() {
    completion_(result_ ? result_->image() : QImage());
    item_.deleteLater();
}

}  // namespace dayward
