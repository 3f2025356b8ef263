#include "shell/QtMainLoop.h"

#include <QCoreApplication>
#include <QEvent>

#include "platform/linux/AsioQueues.h"

namespace dayward {

namespace {
QEvent::Type blocksWait() {
    static const int kType = QEvent::registerEventType();
    return static_cast<QEvent::Type>(kType);
}
}  // namespace

QtMainLoop::QtMainLoop(MainLoop& loop) : loop_(loop), isPosted_(std::make_shared<std::atomic<bool>>(false)) {
    loop_.setWake([this, isPosted = isPosted_] {
        if (!isPosted->exchange(true)) QCoreApplication::postEvent(this, new QEvent(blocksWait()));
    });
}

QtMainLoop::~QtMainLoop() { loop_.setWake(nullptr); }

bool QtMainLoop::event(QEvent* event) {
    if (event->type() != blocksWait()) return QObject::event(event);
    *isPosted_ = false;
    loop_.runQueued();
    return true;
}

}  // namespace dayward
